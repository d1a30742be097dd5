// SPDX-License-Identifier: Apache-2.0
#include "client/files/popup_pictures.h"
#include "qt_printers.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QThread>
#include <QtEndian>

#include <gtest/gtest.h>

#include <sys/stat.h>

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
    const QString file = save(QStringLiteral("a.png"), PopupPictures::longestSide, 20);
    for (int i = 0; i < 2; ++i) {
        const PopupPicture picture = m_pictures.prepare(file);
        EXPECT_EQ(picture.path, file);
        EXPECT_EQ(picture.problem, QString());
    }
    EXPECT_EQ(m_pictures.decodedCount(), 0);
}

TEST_F(PopupPicturesTest, NoPictureAndOneThatIsBuiltInAreHandedOnAsTheyAre)
{
    for (const QString& name : {QString(), QStringLiteral(":/icons/a.png"), QStringLiteral(":/none")}) {
        EXPECT_EQ(m_pictures.prepare(name).path, name);
        EXPECT_EQ(m_pictures.prepare(name).problem, QString());
    }
}

TEST_F(PopupPicturesTest, ALargePictureIsDecodedOnceForEachStateOfItsFile)
{
    for (const QString& ending : {QStringLiteral("jpg"), QStringLiteral("png")}) {
        PopupPictures pictures;
        const QString file = save(QStringLiteral("a.") + ending, 4000, 3000);
        settle();
        for (int i = 0; i < 3; ++i) {
            const QImage shown(pictures.prepare(file).path);
            EXPECT_EQ(shown.size(), QSize(256, 192));
            EXPECT_EQ(shown.pixelColor(100, 100).green(), 255);
        }
        EXPECT_EQ(pictures.decodedCount(), 1);
        save(QStringLiteral("a.") + ending, 300, 4000, Qt::red);
        settle();
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(QImage(pictures.prepare(file).path).size(), QSize(19, 256));
        EXPECT_EQ(pictures.decodedCount(), 2);
    }
}

TEST_F(PopupPicturesTest, EveryChangeOfAFileThatIsBeingWrittenIsSeen)
{
    // Narrow, so that several changes fall into one tick of the file system's clock; of the same length.
    const QString file = path(QStringLiteral("a.bmp"));
    const QList<QColor> colours{Qt::green, Qt::red, Qt::blue};
    QList<QByteArray> contents;
    for (const QColor& colour : colours) {
        QFile saved(save(QStringLiteral("saved.bmp"), 300, 1, colour));
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
    ASSERT_TRUE(picture.save(path(QStringLiteral("a.png"))));
    const QImage shown(m_pictures.prepare(path(QStringLiteral("a.png"))).path);
    EXPECT_EQ(shown.pixelColor(50, 50), QColor(0, 200, 0));
}

TEST_F(PopupPicturesTest, WhatDeclaresTooManyPixelsIsNotDecoded)
{
    expectRefused(declare(QStringLiteral("a.bmp"), 6000, 5000),
                  QStringLiteral("6000 x 5000 pixels, more than 16 million"));
}

TEST_F(PopupPicturesTest, WhatIsNoPictureOrTooLargeAFileIsNotDecoded)
{
    QFile file(path(QStringLiteral("a.png")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("not a picture") > 0);
    file.close();
    expectRefused(file.fileName(), QStringLiteral("not an image"));
    ASSERT_TRUE(file.resize(qint64{2} * 1024 * 1024 * 1024));
    expectRefused(file.fileName(), QStringLiteral("larger than"));
    expectRefused(path(QStringLiteral("none.png")), QStringLiteral("No such file"));
}

TEST_F(PopupPicturesTest, WhatIsNoRegularFileIsNotOpened)
{
    const QString regular = QStringLiteral("not a regular file");
    expectRefused(pipe(QStringLiteral("a.png")), regular);
    ASSERT_TRUE(QFile::link(path(QStringLiteral("a.png")), path(QStringLiteral("link.png"))));
    expectRefused(path(QStringLiteral("link.png")), regular);
    expectRefused(QStringLiteral("/dev/zero"), regular);
    expectRefused(m_folder.path(), regular);
}

TEST_F(PopupPicturesTest, AMissingEndingIsFoundAsQtFindsIt)
{
    save(QStringLiteral("a.png"), 10, 10);
    ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("a.bmp"))));
    EXPECT_EQ(m_pictures.prepare(path(QStringLiteral("a"))).path, path(QStringLiteral("a.png")));
    save(QStringLiteral("a.b.png"), 10, 10);
    expectRefused(path(QStringLiteral("a.b")), QStringLiteral("No such file"));
    // Qt would try this one, too, and wait for a writer.
    pipe(QStringLiteral("pipe.png"));
    expectRefused(path(QStringLiteral("pipe")), QStringLiteral("not a regular file"));
}

} // namespace
