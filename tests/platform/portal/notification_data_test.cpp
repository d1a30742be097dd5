// SPDX-License-Identifier: Apache-2.0
#include "freedesktop/bus_text.h"
#include "portal/notification_data.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using zepa::portal::NotificationData;
using Posting = zepa::growl::PopupPosting;

TEST(NotificationData, HasPlainTextsThatAreFitForTheBus)
{
    Posting posting;
    posting.title = u"<b>a & b</b>"_s + QChar(0);
    posting.text = QString(QChar(0xD800)) + u"<i>&amp;</i>"_s;
    const NotificationData data = NotificationData::fromPosting(posting, {});
    EXPECT_EQ(data.title, u"<b>a & b</b>\uFFFD"_s);
    EXPECT_EQ(data.body, u"\uFFFD<i>&amp;</i>"_s);
}

TEST(NotificationData, HasTextsOfLimitedLength)
{
    Posting posting;
    posting.title = posting.text = QString(100000, u'x');
    posting.kind.category = QString(100000, u'y');
    const NotificationData data = NotificationData::fromPosting(posting, {});
    EXPECT_EQ(data.title.size(), zepa::freedesktop::summaryLimit);
    EXPECT_EQ(data.body.size(), zepa::freedesktop::bodyLimit);
    EXPECT_LE(data.category.size(), 255);
}

TEST(NotificationData, HasOneOfThreePriorities)
{
    const auto priority = [](int value) {
        Posting posting;
        posting.priority = value;
        return std::string(NotificationData::fromPosting(posting, {}).priority);
    };
    EXPECT_EQ(priority(-2), "low");
    EXPECT_EQ(priority(-1), "low");
    EXPECT_EQ(priority(0), "normal");
    EXPECT_EQ(priority(1), "normal");
    EXPECT_EQ(priority(2), "urgent");
}

TEST(NotificationData, TakesOverWhatThePostingWants)
{
    Posting posting;
    NotificationData data = NotificationData::fromPosting(posting, {});
    EXPECT_FALSE(data.isClickable);
    EXPECT_TRUE(data.isSilent);
    EXPECT_FALSE(data.isTransient);
    EXPECT_TRUE(data.category.isEmpty());
    posting.clickable = true;
    posting.wantsSound = true;
    posting.kind = {.category = u"im.received"_s, .isTransient = true};
    data = NotificationData::fromPosting(posting, QByteArray("png"));
    EXPECT_TRUE(data.isClickable);
    EXPECT_FALSE(data.isSilent);
    EXPECT_TRUE(data.isTransient);
    EXPECT_EQ(data.category, u"im.received"_s);
    EXPECT_EQ(data.icon, QByteArray("png"));
}
