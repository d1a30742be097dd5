// SPDX-License-Identifier: Apache-2.0
#include "kit/widgets/theme_pictures.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>

using namespace Qt::StringLiterals;

using zepa::pictureFile;
using zepa::readPicture;

namespace {

class ThemePictures : public testing::Test
{
protected:
    void SetUp() override
    {
        QDir().mkpath(theme + u"icons"_s);
        QDir().mkpath(root + u"/theme-of-others"_s);
        save(theme + u"icons/bell.png"_s, 32, 32);
        save(root + u"/secret.png"_s, 8, 8);
        save(root + u"/theme-of-others/x.png"_s, 8, 8);
    }

    static void save(const QString& path, int width, int height)
    {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(Qt::red);
        ASSERT_TRUE(picture.save(path));
    }

    QString allowed(const QString& address) const { return pictureFile(address, {theme}); }

    QTemporaryDir folder;
    QString root = QDir(folder.path()).canonicalPath();
    QString theme = root + u"/theme/"_s;
};

} // namespace

TEST_F(ThemePictures, AFileOfTheThemeIsAllowed)
{
    EXPECT_EQ(allowed(theme + u"icons/bell.png"_s), theme + u"icons/bell.png"_s);
}

TEST_F(ThemePictures, AFileOutsideOfTheThemeIsNotAllowed)
{
    EXPECT_EQ(allowed(root + u"/secret.png"_s), QString());
    EXPECT_EQ(allowed(theme + u"../secret.png"_s), QString());
    EXPECT_EQ(allowed(root + u"/theme-of-others/x.png"_s), QString());
    EXPECT_EQ(allowed(u"/etc/passwd"_s), QString());
}

TEST_F(ThemePictures, ALinkOutOfTheThemeIsNotFollowed)
{
    ASSERT_TRUE(QFile::link(root + u"/secret.png"_s, theme + u"icons/link.png"_s));
    ASSERT_TRUE(QFile::link(root, theme + u"out"_s));
    EXPECT_EQ(allowed(theme + u"icons/link.png"_s), QString());
    EXPECT_EQ(allowed(theme + u"out/secret.png"_s), QString());
}

TEST_F(ThemePictures, AThemeThatIsItselfALinkIsTheFolderBehindIt)
{
    ASSERT_TRUE(QFile::link(theme, root + u"/current"_s));
    EXPECT_EQ(pictureFile(root + u"/current/icons/bell.png"_s, {root + u"/current/"_s}), theme + u"icons/bell.png"_s);
}

TEST_F(ThemePictures, OnlyPathsAndBuiltInAddressesAreAllowed)
{
    for (const QString& address :
         {u"file://"_s + theme + u"icons/bell.png"_s, u"icons/bell.png"_s, u"http://localhost/bell.png"_s,
          u"//server/share/bell.png"_s, u"data:image/png;base64,AAAA"_s, u"QRC:/icons/bell.png"_s, QString()})
        EXPECT_EQ(allowed(address), QString()) << address.toStdString();
    EXPECT_EQ(allowed(theme + u"icons"_s), QString());
    EXPECT_EQ(pictureFile(root + u"/secret.png"_s, {QString(), u"/"_s}), QString());
}

TEST_F(ThemePictures, ABuiltInPictureIsAllowedAndMissingOnesAreNot)
{
    const QString qtsOwn = u"qrc:/qt-project.org/styles/commonstyle/images/file-16.png"_s;
    EXPECT_EQ(allowed(qtsOwn), qtsOwn.sliced(3));
    EXPECT_EQ(allowed(u"qrc:/no/such.png"_s), QString());
    EXPECT_EQ(allowed(u"qrc:/../../../../etc/passwd"_s), QString());
}

TEST_F(ThemePictures, ALargePictureIsScaledDownAndAHugeOneIsNotRead)
{
    save(theme + u"large.png"_s, 1000, 500);
    EXPECT_EQ(readPicture(theme + u"large.png"_s, QSize(64, 64)).size(), QSize(64, 32));
    save(theme + u"thin.png"_s, 2000, 1);
    EXPECT_EQ(readPicture(theme + u"thin.png"_s, QSize(64, 64)).size(), QSize(64, 1));
    save(theme + u"huge.png"_s, 4000, 2000);
    EXPECT_TRUE(readPicture(theme + u"huge.png"_s, QSize(64, 64)).isNull());
    EXPECT_EQ(readPicture(theme + u"icons/bell.png"_s, QSize(64, 64)).size(), QSize(32, 32));
}

TEST_F(ThemePictures, AScaledPictureKeepsItsColoursHoweverItIsStored)
{
    for (const QImage::Format format : {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_RGB32,
                                        QImage::Format_ARGB32, QImage::Format_RGBA64}) {
        QImage picture(200, 200, format);
        if (picture.depth() <= 8)
            picture.setColorTable({qRgb(0, 200, 0), qRgb(0, 0, 0)});
        if (picture.colorCount() > 0)
            picture.fill(0U);
        else
            picture.fill(QColor(0, 200, 0));
        ASSERT_TRUE(picture.save(theme + u"green.png"_s));
        const QImage read = readPicture(theme + u"green.png"_s, QSize(64, 64));
        ASSERT_EQ(read.size(), QSize(64, 64));
        EXPECT_EQ(read.pixelColor(31, 32), QColor(0, 200, 0)) << format;
    }
}

TEST_F(ThemePictures, WhatIsNoPlainPictureIsNotRead)
{
    QFile text(theme + u"text.png"_s);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("not a picture");
    text.close();
    EXPECT_TRUE(readPicture(text.fileName(), QSize(64, 64)).isNull());
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    ASSERT_TRUE(text.resize(zepa::largestPictureFile + 1));
    text.close();
    EXPECT_TRUE(readPicture(text.fileName(), QSize(64, 64)).isNull());
}

TEST_F(ThemePictures, NoPipeOrDeviceOfTheThemeIsAllowed)
{
    const QString pipe = theme + u"icons/pipe.png"_s;
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(allowed(pipe), QString());
    ASSERT_TRUE(QFile::link(pipe, theme + u"icons/to-pipe.png"_s));
    EXPECT_EQ(allowed(theme + u"icons/to-pipe.png"_s), QString());

    const QString device = theme + u"icons/zero.png"_s;
    if (mknod(QFile::encodeName(device).constData(), S_IFCHR | 0600, makedev(1, 5)) == 0)
        EXPECT_EQ(allowed(device), QString());
    else
        RecordProperty("device", "not tried: only an administrator can make one");
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, theme + u"icons/to-zero.png"_s));
    EXPECT_EQ(allowed(theme + u"icons/to-zero.png"_s), QString());
}
