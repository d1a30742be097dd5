// SPDX-License-Identifier: Apache-2.0
#include "client/ui/image_markers.h"

#include <gtest/gtest.h>

using zepa::MessagePart;
using zepa::splitAtImageMarkers;

namespace {

MessagePart words(const QString& text)
{
    return {text, {}};
}

MessagePart marker(const QString& address)
{
    return {QStringLiteral("image:") + address + QStringLiteral(":image"), address};
}

} // namespace

TEST(ImageMarkers, AMessageWithoutMarkersIsOnePiece)
{
    EXPECT_EQ(splitAtImageMarkers(QStringLiteral("see the image")),
              QList<MessagePart>{words(QStringLiteral("see the image"))});
    EXPECT_TRUE(splitAtImageMarkers(QString()).isEmpty());
}

TEST(ImageMarkers, AMarkerIsCutOutOfTheWordsAroundIt)
{
    const QList<MessagePart> expected{words(QStringLiteral("alert ")), marker(QStringLiteral("qrc:/icons/bell.png")),
                                      words(QStringLiteral("!"))};
    EXPECT_EQ(splitAtImageMarkers(QStringLiteral("alert image:qrc:/icons/bell.png:image!")), expected);
}

TEST(ImageMarkers, EachMarkerIsTheShortestThereIs)
{
    const QList<MessagePart> expected{marker(QStringLiteral("/a.png")), words(QStringLiteral(" and ")),
                                      marker(QStringLiteral("/b.png"))};
    EXPECT_EQ(splitAtImageMarkers(QStringLiteral("image:/a.png:image and image:/b.png:image")), expected);
}

TEST(ImageMarkers, AnOpeningInTheWordsDoesNotSpoilTheMarkerBehindIt)
{
    const QList<MessagePart> expected{words(QStringLiteral("my image: ")), marker(QStringLiteral("/a.png"))};
    EXPECT_EQ(splitAtImageMarkers(QStringLiteral("my image: image:/a.png:image")), expected);
}

TEST(ImageMarkers, WhatIsOnlyHalfAMarkerStaysWords)
{
    for (const QString& text :
         {QStringLiteral("image:"), QStringLiteral(":image"), QStringLiteral("image::image"),
          QStringLiteral("image:image"), QStringLiteral("image:/a.png"), QStringLiteral("IMAGE:/a.png:IMAGE")})
        EXPECT_EQ(splitAtImageMarkers(text), QList<MessagePart>{words(text)}) << text.toStdString();
}

TEST(ImageMarkers, ThePiecesTogetherAreTheMessage)
{
    // Every text of eight pieces of these four: openings, closings and what stands between in any order.
    const QStringList pieces{QStringLiteral("image:"), QStringLiteral(":image"), QStringLiteral("x"),
                             QStringLiteral(":")};
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
