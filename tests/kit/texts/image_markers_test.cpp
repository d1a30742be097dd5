// SPDX-License-Identifier: Apache-2.0
#include "kit/texts/image_markers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using zepa::MessagePart;
using zepa::splitAtImageMarkers;

namespace {

MessagePart words(const QString& text)
{
    return {text, {}};
}

MessagePart marker(const QString& address)
{
    return {u"image:"_s + address + u":image"_s, address};
}

} // namespace

TEST(ImageMarkers, AMessageWithoutMarkersIsOnePiece)
{
    EXPECT_EQ(splitAtImageMarkers(u"see the image"_s), QList<MessagePart>{words(u"see the image"_s)});
    EXPECT_TRUE(splitAtImageMarkers(QString()).isEmpty());
}

TEST(ImageMarkers, AMarkerIsCutOutOfTheWordsAroundIt)
{
    const QList<MessagePart> expected{words(u"alert "_s), marker(u"qrc:/icons/bell.png"_s), words(u"!"_s)};
    EXPECT_EQ(splitAtImageMarkers(u"alert image:qrc:/icons/bell.png:image!"_s), expected);
}

TEST(ImageMarkers, EachMarkerIsTheShortestThereIs)
{
    const QList<MessagePart> expected{marker(u"/a.png"_s), words(u" and "_s), marker(u"/b.png"_s)};
    EXPECT_EQ(splitAtImageMarkers(u"image:/a.png:image and image:/b.png:image"_s), expected);
}

TEST(ImageMarkers, AnOpeningInTheWordsDoesNotSpoilTheMarkerBehindIt)
{
    const QList<MessagePart> expected{words(u"my image: "_s), marker(u"/a.png"_s)};
    EXPECT_EQ(splitAtImageMarkers(u"my image: image:/a.png:image"_s), expected);
}

TEST(ImageMarkers, WhatIsOnlyHalfAMarkerStaysWords)
{
    for (const QString& text :
         {u"image:"_s, u":image"_s, u"image::image"_s, u"image:image"_s, u"image:/a.png"_s, u"IMAGE:/a.png:IMAGE"_s})
        EXPECT_EQ(splitAtImageMarkers(text), QList<MessagePart>{words(text)}) << text.toStdString();
}

TEST(ImageMarkers, ThePiecesTogetherAreTheMessage)
{
    // Every text of eight pieces of these four: openings, closings and what stands between in any order.
    const QStringList pieces{u"image:"_s, u":image"_s, u"x"_s, u":"_s};
    for (int number = 0; number < 1 << 16; ++number) {
        QString text;
        for (int place = 0; place < 8; ++place)
            text += pieces.at((number >> (2 * place)) & 3);
        QString together;
        for (const MessagePart& part : splitAtImageMarkers(text)) {
            ASSERT_FALSE(part.text.isEmpty());
            together += part.text;
        }
        ASSERT_EQ(together, text);
    }
}
