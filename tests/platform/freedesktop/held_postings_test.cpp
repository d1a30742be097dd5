// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/held_postings.h"

#include <gtest/gtest.h>

using zepa::freedesktop::HeldPostings;
using Posting = zepa::growl::PopupPosting;

namespace {

Posting withText(qsizetype length)
{
    Posting posting;
    posting.text = QString(length, u'x');
    return posting;
}

Posting withIcon(const QImage& icon)
{
    Posting posting;
    posting.icon = icon;
    return posting;
}

QImage newIcon()
{
    QImage icon(128, 128, QImage::Format_RGBA8888);
    icon.fill(Qt::red);
    return icon;
}

} // namespace

TEST(HeldPostings, LeaveInTheOrderInWhichTheyCame)
{
    HeldPostings held;
    for (quint64 ticket = 1; ticket <= 3; ++ticket)
        held.add({{}, ticket, static_cast<qint64>(ticket)});
    EXPECT_EQ(held.first().since, 1);
    for (quint64 ticket = 1; ticket <= 3; ++ticket)
        EXPECT_EQ(held.takeFirst().ticket, ticket);
    EXPECT_TRUE(held.isEmpty());
    EXPECT_EQ(held.byteCount(), 0);
}

TEST(HeldPostings, ComeBackToTheirPlace)
{
    HeldPostings held;
    for (const quint64 ticket : {5U, 6U, 3U, 4U, 1U, 2U})
        held.add({{}, ticket, 0});
    for (quint64 ticket = 1; ticket <= 6; ++ticket)
        EXPECT_EQ(held.takeFirst().ticket, ticket);
}

TEST(HeldPostings, AreTooManyAboveAThousand)
{
    HeldPostings held;
    for (quint64 ticket = 1; ticket <= 1000; ++ticket)
        held.add({{}, ticket, 0});
    EXPECT_FALSE(held.isOverfull());
    held.add({{}, 1001, 0});
    EXPECT_TRUE(held.isOverfull());
    held.takeFirst();
    EXPECT_FALSE(held.isOverfull());
}

TEST(HeldPostings, AreTooLargeAboveTheLimitInBytes)
{
    HeldPostings held;
    const auto length = HeldPostings::byteLimit / 4 / static_cast<qsizetype>(sizeof(QChar));
    for (quint64 ticket = 1; ticket <= 3; ++ticket)
        held.add({withText(length), ticket, 0});
    EXPECT_FALSE(held.isOverfull());
    held.add({withText(length), 4, 0});
    EXPECT_TRUE(held.isOverfull());
    held.takeFirst();
    EXPECT_FALSE(held.isOverfull());
}

TEST(HeldPostings, CountAnIconOnceHoweverManyHaveIt)
{
    HeldPostings held;
    const QImage icon = newIcon();
    for (quint64 ticket = 1; ticket <= 1000; ++ticket)
        held.add({withIcon(icon), ticket, 0});
    EXPECT_FALSE(held.isOverfull());
    while (!held.isEmpty())
        held.takeFirst();
    EXPECT_EQ(held.byteCount(), 0);
}

TEST(HeldPostings, CountIconsThatDiffer)
{
    HeldPostings held;
    quint64 ticket = 0;
    while (!held.isOverfull() && ticket < 1000)
        held.add({withIcon(newIcon()), ++ticket, 0});
    EXPECT_LE(ticket, 256U) << "64 kB each";
    EXPECT_GE(ticket, 200U);
}
