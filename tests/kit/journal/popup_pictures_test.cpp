// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/popup_pictures.h"
#include "qt_printers.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QThread>
#include <QtEndian>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::PopupPicture;
using zepa::PopupPictures;

class PopupPicturesTest : public testing::Test
{
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// A picture of one colour.
    QString save(const QString& name, int width, int height, const QColor& colour = Qt::green) const
    {
        QImage picture(width, height, QImage::Format_RGB32);
        picture.fill(colour);
        EXPECT_TRUE(picture.save(path(name)));
        return path(name);
    }
    /// A file that says it is a picture of that size, and ends there.
    QString declare(const QString& name, quint32 width, quint32 height) const
    {
        const QString file = save(name, 1, 1);
        QFile picture(file);
        EXPECT_TRUE(picture.open(QIODevice::ReadWrite) && picture.seek(18));
        const quint32 sides[] = {qToLittleEndian(width), qToLittleEndian(height)};
        EXPECT_EQ(picture.write(reinterpret_cast<const char*>(sides), sizeof sides), qint64(sizeof sides));
        return file;
    }
    QString pipe(const QString& name) const
    {
        EXPECT_EQ(::mkfifo(QFile::encodeName(path(name)).constData(), 0600), 0);
        return path(name);
    }
    static void settle() { QThread::msleep(150); }

    void expectRefused(const QString& file, const QString& why)
    {
        const PopupPicture picture = m_pictures.prepare(file);
        EXPECT_EQ(picture.path, QString()) << file.toStdString();
        EXPECT_TRUE(picture.problem.contains(why)) << picture.problem.toStdString();
        EXPECT_EQ(m_pictures.decodedCount(), 0);
    }

    const QTemporaryDir m_folder;
    PopupPictures m_pictures;
};

TEST_F(PopupPicturesTest, ASmallPictureIsHandedOnAsItIsAndNotDecoded)
{
    const QString file = save(u"a.png"_s, PopupPictures::longestSide, 20);
    for (int i = 0; i < 2; ++i) {
        const PopupPicture picture = m_pictures.prepare(file);
        EXPECT_EQ(picture.path, file);
        EXPECT_EQ(picture.problem, QString());
    }
    EXPECT_EQ(m_pictures.decodedCount(), 0);
}

TEST_F(PopupPicturesTest, NoPictureAndOneThatIsBuiltInAreHandedOnAsTheyAre)
{
    for (const QString& name : {QString(), u":/icons/a.png"_s, u":/none"_s}) {
        EXPECT_EQ(m_pictures.prepare(name).path, name);
        EXPECT_EQ(m_pictures.prepare(name).problem, QString());
    }
}

TEST_F(PopupPicturesTest, ALargePictureIsDecodedOnceForEachStateOfItsFile)
{
    for (const QString& ending : {u"jpg"_s, u"png"_s}) {
        PopupPictures pictures;
        const QString file = save(u"a."_s + ending, 4000, 3000);
        settle();
        for (int i = 0; i < 3; ++i) {
            const QImage shown(pictures.prepare(file).path);
            EXPECT_EQ(shown.size(), QSize(256, 192));
            EXPECT_EQ(shown.pixelColor(100, 100).green(), 255);
        }
        EXPECT_EQ(pictures.decodedCount(), 1);
        save(u"a."_s + ending, 300, 4000, Qt::red);
        settle();
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(QImage(pictures.prepare(file).path).size(), QSize(19, 256));
        EXPECT_EQ(pictures.decodedCount(), 2);
    }
}

TEST_F(PopupPicturesTest, EveryChangeOfAFileThatIsBeingWrittenIsSeen)
{
    // Narrow, so that several changes fall into one tick of the file system's clock; of the same length.
    const QString file = path(u"a.bmp"_s);
    const QList<QColor> colours{Qt::green, Qt::red, Qt::blue};
    QList<QByteArray> contents;
    for (const QColor& colour : colours) {
        QFile saved(save(u"saved.bmp"_s, 300, 1, colour));
        ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
        contents.append(saved.readAll());
    }
    for (int i = 0; i < 60; ++i) {
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::WriteOnly) && written.write(contents[i % 3]) > 0);
        written.close();
        EXPECT_EQ(QImage(m_pictures.prepare(file).path).pixelColor(9, 0), colours[i % 3]) << i;
    }
}

TEST_F(PopupPicturesTest, APictureOfTwoColoursKeepsThem)
{
    QImage picture(600, 600, QImage::Format_Mono);
    picture.setColorTable({qRgb(0, 200, 0), qRgb(0, 0, 0)});
    picture.fill(0U);
    ASSERT_TRUE(picture.save(path(u"a.png"_s)));
    const QImage shown(m_pictures.prepare(path(u"a.png"_s)).path);
    EXPECT_EQ(shown.pixelColor(50, 50), QColor(0, 200, 0));
}

TEST_F(PopupPicturesTest, WhatDeclaresTooManyPixelsIsNotDecoded)
{
    expectRefused(declare(u"a.bmp"_s, 6000, 5000), u"6000 x 5000 pixels, more than 16 million"_s);
}

TEST_F(PopupPicturesTest, WhatIsNoPictureOrTooLargeAFileIsNotDecoded)
{
    QFile file(path(u"a.png"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("not a picture") > 0);
    file.close();
    expectRefused(file.fileName(), u"not an image"_s);
    ASSERT_TRUE(file.resize(qint64{2} * 1024 * 1024 * 1024));
    expectRefused(file.fileName(), u"larger than"_s);
    expectRefused(path(u"none.png"_s), u"No such file"_s);
}

TEST_F(PopupPicturesTest, WhatIsNoRegularFileIsNotOpened)
{
    const QString regular = u"not a regular file"_s;
    expectRefused(pipe(u"a.png"_s), regular);
    ASSERT_TRUE(QFile::link(path(u"a.png"_s), path(u"link.png"_s)));
    expectRefused(path(u"link.png"_s), regular);
    expectRefused(u"/dev/zero"_s, regular);
    expectRefused(m_folder.path(), regular);
}

TEST_F(PopupPicturesTest, AMissingEndingIsFoundAsQtFindsIt)
{
    save(u"a.png"_s, 10, 10);
    ASSERT_TRUE(QDir().mkpath(path(u"a.bmp"_s)));
    EXPECT_EQ(m_pictures.prepare(path(u"a"_s)).path, path(u"a.png"_s));
    save(u"a.b.png"_s, 10, 10);
    expectRefused(path(u"a.b"_s), u"No such file"_s);
    // Qt would try this one, too, and wait for a writer.
    pipe(u"pipe.png"_s);
    expectRefused(path(u"pipe"_s), u"not a regular file"_s);
}

} // namespace
