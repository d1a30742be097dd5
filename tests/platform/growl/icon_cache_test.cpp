// SPDX-License-Identifier: Apache-2.0
#include "growl/icon_cache.h"

#include <QBuffer>
#include <QImage>
#include <QtEndian>
#include <gtest/gtest.h>

using zepa::growl::IconCache;

namespace {

QByteArray png(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

QByteArray plainPng(int width, int height, QRgb colour, QImage::Format format = QImage::Format_ARGB32)
{
    QImage image(width, height, format);
    image.fill(QColor::fromRgba(colour));
    return png(image);
}

/// A picture that declares a size that its bytes do not hold.
QByteArray pngDeclaring(quint32 width, quint32 height)
{
    QByteArray bytes = plainPng(1, 1, 0xff000000);
    qToBigEndian(width, bytes.data() + 16);
    qToBigEndian(height, bytes.data() + 20);
    quint32 crc = 0xffffffff;
    for (int index = 12; index < 29; ++index) {
        crc ^= static_cast<uchar>(bytes[index]);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xedb88320U : 0U);
    }
    qToBigEndian(~crc, bytes.data() + 29);
    return bytes;
}

/// A picture whose file is larger than what is known by its bytes.
QByteArray largePng(quint32 seed)
{
    QImage noise(128, 128, QImage::Format_ARGB32);
    quint32 grain = seed;
    for (int y = 0; y < noise.height(); ++y) {
        for (int x = 0; x < noise.width(); ++x)
            noise.setPixel(x, y, 0xff000000U | (grain = grain * 1664525U + 1013904223U));
    }
    return png(noise);
}

QByteArray pixelsOf(const QImage& icon)
{
    return {reinterpret_cast<const char*>(icon.constBits()), icon.sizeInBytes()};
}

/// New data, the caller's.
CFDataRef dataOf(const QByteArray& bytes)
{
    return CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(bytes.constData()), bytes.size());
}

} // namespace

TEST(IconCache, GivesUnpaddedRedGreenBlueAlphaRows)
{
    const QImage icon = IconCache().icon(plainPng(3, 2, qRgba(10, 20, 30, 40)));
    EXPECT_EQ(icon.format(), QImage::Format_RGBA8888);
    EXPECT_EQ(icon.size(), QSize(3, 2));
    EXPECT_EQ(pixelsOf(icon), QByteArray("\x0a\x14\x1e\x28", 4).repeated(6));
}

TEST(IconCache, MakesAPictureWithoutAlphaOpaque)
{
    const QImage icon = IconCache().icon(plainPng(3, 1, qRgb(1, 2, 3), QImage::Format_RGB888));
    EXPECT_EQ(pixelsOf(icon), QByteArray("\x01\x02\x03\xff", 4).repeated(3));
}

TEST(IconCache, ScalesToTheLongestSideAndKeepsTheAspect)
{
    IconCache cache;
    EXPECT_EQ(cache.icon(plainPng(512, 256, 0xff0000ff)).width(), 128);
    EXPECT_EQ(cache.icon(plainPng(512, 256, 0xff0000ff)).height(), 64);
    EXPECT_EQ(cache.icon(plainPng(129, 129, 0xff0000ff)).height(), 128);
    EXPECT_EQ(cache.icon(plainPng(128, 128, 0xff0000ff)).sizeInBytes(), 128 * 128 * 4);
    EXPECT_EQ(cache.icon(plainPng(16, 16, 0xff0000ff)).width(), 16);
}

TEST(IconCache, KeepsTheColourOfAPictureOfTwoColoursThatItScales)
{
    QImage image(300, 300, QImage::Format_Mono);
    image.setColorTable({qRgb(0, 200, 0), qRgb(0, 0, 0)});
    image.fill(0U);
    const QImage icon = IconCache().icon(png(image));
    EXPECT_EQ(pixelsOf(icon), QByteArray("\x00\xc8\x00\xff", 4).repeated(128 * 128));
}

TEST(IconCache, KeepsAHairlineVisible)
{
    const QImage icon = IconCache().icon(plainPng(1000, 1, 0xff00ff00));
    EXPECT_EQ(icon.width(), 128);
    EXPECT_EQ(icon.height(), 1);
}

TEST(IconCache, DecodesTheSameContentOnce)
{
    IconCache cache;
    const QByteArray one = plainPng(32, 32, 0xff00ff00);
    const QByteArray sameElsewhere(one.constData(), one.size());
    EXPECT_EQ(cache.icon(one), cache.icon(sameElsewhere));
    EXPECT_EQ(cache.decodedCount(), 1);
    cache.icon(plainPng(32, 32, 0xff00ff01));
    EXPECT_EQ(cache.decodedCount(), 2);
}

TEST(IconCache, GivesNoIconForBrokenData)
{
    IconCache cache;
    EXPECT_TRUE(cache.icon(QByteArrayView()).isNull());
    EXPECT_TRUE(cache.icon(QByteArray("no picture at all")).isNull());
    EXPECT_TRUE(cache.icon(plainPng(64, 64, 0xff00ff00).left(60)).isNull());
}

TEST(IconCache, RemembersThatDataIsBroken)
{
    IconCache cache;
    cache.icon(QByteArray("broken"));
    cache.icon(QByteArray("broken"));
    EXPECT_EQ(cache.decodedCount(), 1);
}

TEST(IconCache, RefusesAPictureThatDeclaresGigabytes)
{
    IconCache cache;
    EXPECT_TRUE(cache.icon(pngDeclaring(30000, 30000)).isNull());
    EXPECT_TRUE(cache.icon(pngDeclaring(4097, 4096)).isNull());
    EXPECT_LT(cache.byteCount(), 1024);
}

TEST(IconCache, DecodesAFileOnceThatIsLargerThanTheCache)
{
    QImage image(2600, 2400, QImage::Format_RGB888);
    image.fill(Qt::green);
    QByteArray large;
    QBuffer buffer(&large);
    buffer.open(QIODevice::WriteOnly);
    ASSERT_TRUE(image.save(&buffer, "BMP"));
    ASSERT_GT(large.size(), IconCache::byteLimit);
    IconCache cache;
    const QImage icon = cache.icon(large);
    EXPECT_EQ(icon.width(), 128);
    EXPECT_EQ(cache.icon(large), icon);
    EXPECT_EQ(cache.decodedCount(), 1);
    EXPECT_LT(cache.byteCount(), 128 * 128 * 4 + 100);
    // Another one of the same size and beginning is another one.
    large[large.size() - 1] = static_cast<char>(large[large.size() - 1] ^ 1);
    cache.icon(large);
    EXPECT_EQ(cache.decodedCount(), 2);
}

TEST(IconCache, KnowsLargeDataAgainAndHoldsIt)
{
    const QByteArray bytes = largePng(1);
    ASSERT_GT(bytes.size(), IconCache::longestKey);
    const CFDataRef data = dataOf(bytes);
    {
        IconCache cache;
        const QImage icon = cache.icon(data);
        EXPECT_EQ(icon.width(), 128);
        EXPECT_EQ(cache.icon(data), icon);
        EXPECT_EQ(cache.icon(QByteArrayView(bytes)), icon);
        EXPECT_EQ(cache.decodedCount(), 1);
        EXPECT_EQ(CFGetRetainCount(data), 2) << "other data could get its address";
    }
    EXPECT_EQ(CFGetRetainCount(data), 1);
    CFRelease(data);
}

TEST(IconCache, HoldsNoLargeDataForLongThatNobodyElseHolds)
{
    IconCache cache;
    const CFDataRef wanted = dataOf(largePng(1));
    cache.icon(wanted);
    for (quint32 seed = 2; seed < 6; ++seed) {
        const CFDataRef passing = dataOf(largePng(seed));
        cache.icon(passing);
        CFRelease(passing);
    }
    EXPECT_LE(cache.heldCount(), 2) << "what is still wanted, and what came last";
    const CFDataRef small = dataOf(plainPng(8, 8, 0xff00ff00));
    cache.icon(small);
    EXPECT_EQ(cache.heldCount(), 1);
    EXPECT_EQ(CFGetRetainCount(wanted), 2);
    CFRelease(small);
    CFRelease(wanted);
}

TEST(IconCache, KeepsNothingThatPointsAtTheCallersBytes)
{
    IconCache cache;
    QByteArray bytes = plainPng(32, 32, 0xff00ff00);
    const QByteArray copy(bytes.constData(), bytes.size());
    const QImage icon = cache.icon(bytes);
    bytes.fill('x');
    EXPECT_EQ(cache.icon(copy), icon);
    EXPECT_EQ(cache.decodedCount(), 1);
}

TEST(IconCache, NeverKeepsMoreBytesThanItsLimit)
{
    IconCache cache;
    const QByteArray first = plainPng(128, 128, 0xff000000);
    cache.icon(first);
    for (QRgb colour = 1; colour <= 400; ++colour) {
        cache.icon(plainPng(128, 128, 0xff000000 | colour));
        ASSERT_LE(cache.byteCount(), IconCache::byteLimit);
    }
    EXPECT_GT(cache.byteCount(), IconCache::byteLimit / 2);
    const int decoded = cache.decodedCount();
    EXPECT_FALSE(cache.icon(first).isNull());
    EXPECT_EQ(cache.decodedCount(), decoded + 1) << "the least recently used icon was still kept";
}
