// SPDX-License-Identifier: Apache-2.0
#include "client/ui/theme_pictures.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>

using zepa::pictureFile;
using zepa::readPicture;

namespace {

class ThemePictures : public testing::Test
{
protected:
    void SetUp() override
    {
        QDir().mkpath(theme + QStringLiteral("icons"));
        QDir().mkpath(root + QStringLiteral("/theme-of-others"));
        save(theme + QStringLiteral("icons/bell.png"), 32, 32);
        save(root + QStringLiteral("/secret.png"), 8, 8);
        save(root + QStringLiteral("/theme-of-others/x.png"), 8, 8);
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
    QString theme = root + QStringLiteral("/theme/");
};

} // namespace

TEST_F(ThemePictures, AFileOfTheThemeIsAllowed)
{
    EXPECT_EQ(allowed(theme + QStringLiteral("icons/bell.png")), theme + QStringLiteral("icons/bell.png"));
}

TEST_F(ThemePictures, AFileOutsideOfTheThemeIsNotAllowed)
{
    EXPECT_EQ(allowed(root + QStringLiteral("/secret.png")), QString());
    EXPECT_EQ(allowed(theme + QStringLiteral("../secret.png")), QString());
    EXPECT_EQ(allowed(root + QStringLiteral("/theme-of-others/x.png")), QString());
    EXPECT_EQ(allowed(QStringLiteral("/etc/passwd")), QString());
}

TEST_F(ThemePictures, ALinkOutOfTheThemeIsNotFollowed)
{
    ASSERT_TRUE(QFile::link(root + QStringLiteral("/secret.png"), theme + QStringLiteral("icons/link.png")));
    ASSERT_TRUE(QFile::link(root, theme + QStringLiteral("out")));
    EXPECT_EQ(allowed(theme + QStringLiteral("icons/link.png")), QString());
    EXPECT_EQ(allowed(theme + QStringLiteral("out/secret.png")), QString());
}

TEST_F(ThemePictures, AThemeThatIsItselfALinkIsTheFolderBehindIt)
{
    ASSERT_TRUE(QFile::link(theme, root + QStringLiteral("/current")));
    EXPECT_EQ(pictureFile(root + QStringLiteral("/current/icons/bell.png"), {root + QStringLiteral("/current/")}),
              theme + QStringLiteral("icons/bell.png"));
}

TEST_F(ThemePictures, OnlyPathsAndBuiltInAddressesAreAllowed)
{
    for (const QString& address :
         {QStringLiteral("file://") + theme + QStringLiteral("icons/bell.png"), QStringLiteral("icons/bell.png"),
          QStringLiteral("http://localhost/bell.png"), QStringLiteral("//server/share/bell.png"),
          QStringLiteral("data:image/png;base64,AAAA"), QStringLiteral("QRC:/icons/bell.png"), QString()})
        EXPECT_EQ(allowed(address), QString()) << address.toStdString();
    EXPECT_EQ(allowed(theme + QStringLiteral("icons")), QString());
    EXPECT_EQ(pictureFile(root + QStringLiteral("/secret.png"), {QString(), QStringLiteral("/")}), QString());
}

TEST_F(ThemePictures, ABuiltInPictureIsAllowedAndMissingOnesAreNot)
{
    const QString qtsOwn = QStringLiteral("qrc:/qt-project.org/styles/commonstyle/images/file-16.png");
    EXPECT_EQ(allowed(qtsOwn), qtsOwn.sliced(3));
    EXPECT_EQ(allowed(QStringLiteral("qrc:/no/such.png")), QString());
    EXPECT_EQ(allowed(QStringLiteral("qrc:/../../../../etc/passwd")), QString());
}

TEST_F(ThemePictures, ALargePictureIsScaledDownAndAHugeOneIsNotRead)
{
    save(theme + QStringLiteral("large.png"), 1000, 500);
    EXPECT_EQ(readPicture(theme + QStringLiteral("large.png"), QSize(64, 64)).size(), QSize(64, 32));
    save(theme + QStringLiteral("thin.png"), 2000, 1);
    EXPECT_EQ(readPicture(theme + QStringLiteral("thin.png"), QSize(64, 64)).size(), QSize(64, 1));
    save(theme + QStringLiteral("huge.png"), 4000, 2000);
    EXPECT_TRUE(readPicture(theme + QStringLiteral("huge.png"), QSize(64, 64)).isNull());
    EXPECT_EQ(readPicture(theme + QStringLiteral("icons/bell.png"), QSize(64, 64)).size(), QSize(32, 32));
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
        ASSERT_TRUE(picture.save(theme + QStringLiteral("green.png")));
        const QImage read = readPicture(theme + QStringLiteral("green.png"), QSize(64, 64));
        ASSERT_EQ(read.size(), QSize(64, 64));
        EXPECT_EQ(read.pixelColor(31, 32), QColor(0, 200, 0)) << format;
    }
}

TEST_F(ThemePictures, WhatIsNoPlainPictureIsNotRead)
{
    QFile text(theme + QStringLiteral("text.png"));
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
    const QString pipe = theme + QStringLiteral("icons/pipe.png");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_EQ(allowed(pipe), QString());
    ASSERT_TRUE(QFile::link(pipe, theme + QStringLiteral("icons/to-pipe.png")));
    EXPECT_EQ(allowed(theme + QStringLiteral("icons/to-pipe.png")), QString());

    const QString device = theme + QStringLiteral("icons/zero.png");
    if (mknod(QFile::encodeName(device).constData(), S_IFCHR | 0600, makedev(1, 5)) == 0)
        EXPECT_EQ(allowed(device), QString());
    else
        RecordProperty("device", "not tried: only an administrator can make one");
    ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), theme + QStringLiteral("icons/to-zero.png")));
    EXPECT_EQ(allowed(theme + QStringLiteral("icons/to-zero.png")), QString());
}
