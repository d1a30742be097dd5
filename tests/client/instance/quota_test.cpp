// SPDX-License-Identifier: Apache-2.0
#include "client/instance/quota.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::instance::Quota;

const QString one = u"one"_s;
const QString two = u"two"_s;
const QString three = u"three"_s;

TEST(QuotaTest, LeavesRoomForOthersWhenOneHasAllThatOneMayHave)
{
    Quota quota(3, 2);
    EXPECT_EQ(quota.take(one), Quota::Answer::Taken);
    EXPECT_EQ(quota.take(one), Quota::Answer::Taken);
    EXPECT_EQ(quota.take(one), Quota::Answer::TooManyOfCaller);
    EXPECT_EQ(quota.take(two), Quota::Answer::Taken);
}

TEST(QuotaTest, EndsWhereAllTogetherHaveTooMuch)
{
    Quota quota(3, 2);
    quota.take(one);
    quota.take(one);
    quota.take(two);
    EXPECT_EQ(quota.take(two), Quota::Answer::TooMany);
    EXPECT_EQ(quota.take(three), Quota::Answer::TooMany);
}

TEST(QuotaTest, HasThePlacesAgainThatAreGivenBack)
{
    Quota quota(2, 1);
    quota.take(one);
    quota.take(two);
    quota.giveBack(one);
    EXPECT_EQ(quota.take(two), Quota::Answer::TooManyOfCaller);
    EXPECT_EQ(quota.take(three), Quota::Answer::Taken);
    EXPECT_EQ(quota.take(one), Quota::Answer::TooMany);
}

TEST(QuotaTest, TakesNothingForARefusalAndNothingBackThatWasNotTaken)
{
    Quota quota(2, 1);
    quota.take(one);
    quota.take(one);
    quota.giveBack(one);
    quota.giveBack(one);
    quota.giveBack(two);
    EXPECT_EQ(quota.take(one), Quota::Answer::Taken);
    EXPECT_EQ(quota.take(two), Quota::Answer::Taken);
    EXPECT_EQ(quota.take(three), Quota::Answer::TooMany);
}

} // namespace
