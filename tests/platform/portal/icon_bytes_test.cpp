// SPDX-License-Identifier: Apache-2.0
#include "portal/icon_bytes.h"

#include <gtest/gtest.h>

using zepa::portal::IconBytes;

namespace {

QImage square(int side, Qt::GlobalColor colour)
{
    QImage image(side, side, QImage::Format_RGBA8888);
    image.fill(colour);
    return image;
}

} // namespace

TEST(IconBytes, AreAPngFileOfThePicture)
{
    IconBytes icons;
    const QImage image = square(32, Qt::green);
    EXPECT_EQ(QImage::fromData(icons.bytesOf(image), "PNG").convertToFormat(QImage::Format_RGBA8888), image);
}

TEST(IconBytes, AreEncodedOnceForEachPicture)
{
    IconBytes icons;
    const QImage image = square(32, Qt::green);
    const QByteArray first = icons.bytesOf(image);
    EXPECT_EQ(icons.bytesOf(image).constData(), first.constData());
    EXPECT_NE(icons.bytesOf(square(32, Qt::red)), first);
    EXPECT_EQ(icons.bytesOf(image).constData(), first.constData());
}

TEST(IconBytes, AreNoneForNoPicture)
{
    EXPECT_TRUE(IconBytes().bytesOf(QImage()).isEmpty());
}
