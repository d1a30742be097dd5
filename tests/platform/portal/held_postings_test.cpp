// SPDX-License-Identifier: Apache-2.0
#include "portal/held_postings.h"

#include <gmock/gmock.h>

#include <vector>

using namespace Qt::StringLiterals;

using testing::ElementsAre;
using zepa::growl::Ticket;

namespace {

class HeldPostings : public testing::Test
{
protected:
    using Queue = zepa::portal::HeldPostings<QString>;

    std::vector<Ticket> givenUp;
    Queue held{[this](Ticket ticket) { givenUp.push_back(ticket); }};
};

} // namespace

TEST_F(HeldPostings, ComeOutInTheirOrder)
{
    held.append(1, u"a"_s, 1);
    held.append(2, u"b"_s, 1);
    EXPECT_EQ(held.takeFirst(), std::make_pair(Ticket(1), u"a"_s));
    EXPECT_EQ(held.takeFirst(), std::make_pair(Ticket(2), u"b"_s));
    EXPECT_TRUE(held.isEmpty());
    EXPECT_TRUE(givenUp.empty());
}

TEST_F(HeldPostings, AreAThousandAtMost)
{
    for (Ticket ticket = 1; ticket <= Queue::countLimit; ++ticket)
        held.append(ticket, {}, 1);
    EXPECT_TRUE(givenUp.empty());
    held.append(Queue::countLimit + 1, {}, 1);
    EXPECT_THAT(givenUp, ElementsAre(1U));
    EXPECT_EQ(held.takeFirst().first, 2U);
}

TEST_F(HeldPostings, AreOfLimitedSizeTogether)
{
    held.append(1, {}, Queue::byteLimit - 1);
    held.append(2, {}, 1);
    EXPECT_TRUE(givenUp.empty());
    held.append(3, {}, 1);
    EXPECT_THAT(givenUp, ElementsAre(1U));
    // A single one may be larger.
    held.append(4, {}, 2 * Queue::byteLimit);
    EXPECT_THAT(givenUp, ElementsAre(1U, 2U, 3U));
    EXPECT_EQ(held.takeFirst().first, 4U);
    // What was taken counts no more.
    held.append(5, {}, Queue::byteLimit);
    EXPECT_EQ(givenUp.size(), 3U);
}

TEST_F(HeldPostings, AreGivenUpAllTogether)
{
    held.append(1, {}, 1);
    held.append(2, {}, 1);
    held.giveUpAll();
    EXPECT_THAT(givenUp, ElementsAre(1U, 2U));
    EXPECT_TRUE(held.isEmpty());
}
