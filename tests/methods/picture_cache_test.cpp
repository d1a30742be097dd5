// SPDX-License-Identifier: Apache-2.0
#include "methods/picture_cache.h"

#include <QImage>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

int encodedCount = 0;
qsizetype encodedSize = 0; ///< of the data that is made, whatever the picture

CFDataRef encode(const QPixmap& /*picture*/)
{
    ++encodedCount;
    const std::vector<UInt8> bytes(static_cast<std::size_t>(encodedSize));
    return CFDataCreate(kCFAllocatorDefault, bytes.data(), encodedSize);
}

class PictureCacheTest : public testing::Test
{
protected:
    PictureCacheTest()
    {
        encodedCount = 0;
        for (const QString& file : {a, b})
            save(file, Qt::green);
        settle();
    }

    static void save(const QString& file, Qt::GlobalColor colour)
    {
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(colour);
        EXPECT_TRUE(picture.save(file));
    }
    /// Until a written file can be told from one that is written once more.
    static void settle() { QThread::msleep(150); }

    /// The length of what the cache gives for the file, when a picture is encoded to that many bytes.
    qsizetype ask(const QString& file, qsizetype size)
    {
        encodedSize = size;
        const CFDataRef data = m_cache.picture(file);
        const qsizetype length = CFDataGetLength(data);
        CFRelease(data);
        return length;
    }

    static constexpr qsizetype large = PictureCache::byteLimit + 1;

    const QTemporaryDir m_folder;
    const QString a = m_folder.filePath(u"a.bmp"_s);
    const QString b = m_folder.filePath(u"b.bmp"_s);
    PictureCache m_cache{encode};
};

TEST_F(PictureCacheTest, EncodesALargePictureOnceForEachStateOfItsFile)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(ask(a, large), large);
    EXPECT_EQ(encodedCount, 1);
    save(a, Qt::red);
    settle();
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(ask(a, PictureCache::largestKept), PictureCache::largestKept);
    EXPECT_EQ(encodedCount, 2);
}

TEST_F(PictureCacheTest, KeepsTheNewestOfSeveralLargePicturesBesideTheSmallOnes)
{
    ask(a, large);
    ask(b, large);
    ask(b, large);
    EXPECT_EQ(encodedCount, 2);
    EXPECT_EQ(ask(a, 100), 100);
    EXPECT_EQ(ask(b, large), large);
    EXPECT_EQ(ask(a, 100), 100);
    EXPECT_EQ(encodedCount, 3);
}

TEST_F(PictureCacheTest, ForgetsTheLargePictureOfAFileThatHasASmallOneNow)
{
    ask(a, large);
    save(a, Qt::red);
    settle();
    EXPECT_EQ(ask(a, 100), 100);
    EXPECT_EQ(ask(a, 100), 100);
    EXPECT_EQ(encodedCount, 2);
}

TEST_F(PictureCacheTest, KeepsNothingAboveItsLimit)
{
    ask(a, PictureCache::largestKept + 1);
    ask(a, PictureCache::largestKept + 1);
    EXPECT_EQ(encodedCount, 2);
}

} // namespace
