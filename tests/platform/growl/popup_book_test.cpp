// SPDX-License-Identifier: Apache-2.0
#include "growl/popup_book.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Qt::StringLiterals;

using namespace zepa::growl;
using namespace std::chrono_literals;

namespace {

/// A book whose contexts are texts, so that answers can be compared at a glance.
class PopupBookTest : public testing::Test
{
protected:
    ~PopupBookTest() override
    {
        for (CFStringRef context : m_contexts)
            CFRelease(context);
    }

    CFStringRef text(const std::string& content)
    {
        m_contexts.push_back(CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(content.data()),
                                                     static_cast<CFIndex>(content.size()), kCFStringEncodingASCII, 0));
        return m_contexts.back();
    }

    Ticket expect(const std::string& context, PopupBook::Time now = 0ms, size_t group = 0)
    {
        return m_book.expect(ClickContext(text(context)), group, now);
    }

    Ticket expectPlain(size_t group = 0) { return m_book.expect(ClickContext(), group, 0ms); }

    Ticket show(const std::string& context, PopupId id, PopupBook::Time now = 0ms)
    {
        const Ticket ticket = expect(context, now);
        m_book.settle(ticket, id);
        return ticket;
    }

    /// Everything answered since the last call: "clicked a" or "timed out a".
    std::vector<std::string> answers()
    {
        std::vector<std::string> result;
        for (const Answer& answer : m_book.takeAnswers()) {
            const auto string = static_cast<CFStringRef>(answer.context.get());
            std::string content;
            for (CFIndex index = 0; index < CFStringGetLength(string); ++index) {
                UniChar unit = 0;
                CFStringGetCharacters(string, {index, 1}, &unit);
                content += static_cast<char>(unit);
            }
            result.push_back((answer.click ? "clicked " : "timed out ") + content);
        }
        return result;
    }

    using Answers = std::vector<std::string>;
    PopupBook m_book;

private:
    std::vector<CFStringRef> m_contexts;
};

} // namespace

TEST_F(PopupBookTest, AnswersAClickedPopupOnceThoughItIsClosedAfterwards)
{
    show("a", 7);
    m_book.clicked(7, u"token"_s);
    m_book.closed(7);
    m_book.clicked(7, {});
    m_book.advance(48h);
    const std::deque<Answer> answers = m_book.takeAnswers();
    ASSERT_EQ(answers.size(), 1U);
    ASSERT_TRUE(answers[0].click);
    EXPECT_EQ(answers[0].click->id, 7U);
    EXPECT_EQ(answers[0].click->activationToken, u"token"_s);
}

TEST_F(PopupBookTest, CallsAClosedPopupTimedOutAtOnceAndTakesNoClickAfterwards)
{
    show("a", 7);
    m_book.closed(7);
    m_book.clicked(7, {});
    EXPECT_EQ(answers(), Answers{"timed out a"});
    EXPECT_EQ(m_book.nextDeadline(), std::nullopt);
}

TEST_F(PopupBookTest, KeepsAClickThatComesBeforeTheReply)
{
    const Ticket ticket = expect("a");
    m_book.clicked(7, u"token"_s);
    m_book.closed(7);
    EXPECT_FALSE(m_book.hasAnswers());
    m_book.settle(ticket, 7);
    const std::deque<Answer> answers = m_book.takeAnswers();
    ASSERT_EQ(answers.size(), 1U);
    ASSERT_TRUE(answers[0].click);
    EXPECT_EQ(answers[0].click->activationToken, u"token"_s);
    EXPECT_FALSE(m_book.isShown(7));
}

TEST_F(PopupBookTest, KeepsAClosingThatComesBeforeTheReplyAndNoClickBehindIt)
{
    const Ticket ticket = expect("a");
    m_book.closed(7);
    m_book.clicked(7, {});
    m_book.settle(ticket, 7);
    EXPECT_FALSE(m_book.isShown(7));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PopupBookTest, GivesAnEarlyAnswerOnlyToThePopupOfItsId)
{
    const Ticket first = expect("a");
    const Ticket second = expect("b");
    m_book.clicked(8, {});
    m_book.settle(first, 7);
    m_book.settle(second, 8);
    EXPECT_EQ(answers(), Answers{"clicked b"});
    EXPECT_EQ(m_book.waitingCount(), 1);
}

TEST_F(PopupBookTest, ForgetsEarlyAnswersWhenNobodyWaitsForAnId)
{
    const Ticket first = expect("a");
    m_book.clicked(9, {});
    m_book.settle(first, 7);
    show("b", 9);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, IgnoresAnswersForIdsThatItDoesNotKnow)
{
    show("a", 7);
    m_book.clicked(8, {});
    m_book.closed(8);
    m_book.advance(1h);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, CallsTheEarlierOfTwoPopupsWithTheSameIdTimedOut)
{
    show("a", 7);
    show("b", 7);
    EXPECT_EQ(answers(), Answers{"timed out a"});
    m_book.clicked(7, {});
    m_book.closed(7);
    EXPECT_EQ(answers(), Answers{"clicked b"});
}

TEST_F(PopupBookTest, CallsAPopupThatWasNotShownTimedOut)
{
    const Ticket failed = expect("a");
    m_book.fail(failed);
    m_book.fail(failed);
    EXPECT_FALSE(m_book.settle(failed, 5));
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PopupBookTest, SettlesATicketOnlyOnce)
{
    const Ticket ticket = show("a", 7);
    m_book.settle(ticket, 8);
    EXPECT_TRUE(m_book.isShown(7));
    EXPECT_FALSE(m_book.isShown(8));
}

TEST_F(PopupBookTest, AnswersOnceAPopupOfWhichTheServiceNeverSpeaksAgain)
{
    show("a", 7, 5ms);
    EXPECT_EQ(m_book.nextDeadline(), PopupBook::backstop + 5ms);
    m_book.advance(PopupBook::backstop + 4ms);
    EXPECT_EQ(answers(), Answers{});
    m_book.advance(PopupBook::backstop + 5ms);
    m_book.closed(7);
    m_book.advance(2 * PopupBook::backstop);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PopupBookTest, CallsEverythingShownTimedOutWhenTheServiceGoesAway)
{
    show("a", 1);
    show("b", 2);
    m_book.forgetShown();
    EXPECT_EQ(answers(), (Answers{"timed out a", "timed out b"}));
    m_book.forgetShown();
    m_book.advance(48h);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, GivesNoAnswerOfAnEarlierServiceToThePopupsOfTheNext)
{
    const Ticket waiting = expect("a");
    show("b", 1);
    m_book.clicked(3, {});
    m_book.forgetShown();
    EXPECT_EQ(answers(), Answers{"timed out b"});
    m_book.settle(waiting, 3);
    show("c", 1);
    EXPECT_EQ(answers(), Answers{});
    EXPECT_EQ(m_book.waitingCount(), 2);
}

TEST_F(PopupBookTest, CallsTheOldestTimedOutWhenMoreThanAThousandWait)
{
    for (int number = 1; number <= PopupBook::waitingLimit; ++number)
        show(std::to_string(number), static_cast<PopupId>(number));
    EXPECT_EQ(answers(), Answers{});
    show("more", 2000);
    EXPECT_EQ(answers(), Answers{"timed out 1"});
    EXPECT_EQ(m_book.waitingCount(), PopupBook::waitingLimit);
    m_book.clicked(1, {});
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, CountsThoseThatWaitForTheirIdAmongTheThousand)
{
    const Ticket oldest = expect("oldest");
    for (int number = 1; number <= PopupBook::waitingLimit; ++number)
        expect(std::to_string(number));
    EXPECT_EQ(answers(), Answers{"timed out oldest"});
    m_book.settle(oldest, 5);
    m_book.clicked(5, {});
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, WantsNoAnswerForAPopupWithoutAContext)
{
    const Ticket ticket = expectPlain();
    m_book.settle(ticket, 7);
    m_book.clicked(7, {});
    m_book.closed(7);
    const Ticket failed = expectPlain();
    m_book.fail(failed);
    EXPECT_EQ(answers(), Answers{});
    EXPECT_EQ(m_book.nextDeadline(), std::nullopt);
}

TEST_F(PopupBookTest, DoesNotTakeTheEndOfOnePopupForTheEndOfALaterOneWithItsId)
{
    const Ticket plain = expectPlain();
    m_book.settle(plain, 7);
    const Ticket later = expect("a", 1ms);
    m_book.clicked(7, {});
    m_book.closed(7);
    m_book.settle(later, 7);
    m_book.advance(1h);
    EXPECT_EQ(answers(), Answers{});
    EXPECT_TRUE(m_book.isShown(7));
}

TEST_F(PopupBookTest, RemembersNoMoreThanAThousandPopupsThatNobodyWaitsFor)
{
    show("a", 5000);
    for (PopupId id = 1; id <= 5; ++id)
        m_book.settle(expectPlain(), id);
    for (PopupId id = 6; id <= PopupBook::waitingLimit + 5; ++id)
        m_book.settle(expectPlain(), id);
    EXPECT_FALSE(m_book.isShown(5));
    EXPECT_TRUE(m_book.isShown(6));
    EXPECT_TRUE(m_book.isShown(5000));
}

TEST_F(PopupBookTest, RemembersNoMoreThanAThousandAnswersForUnknownIds)
{
    const Ticket first = expect("a");
    const Ticket second = expect("b");
    for (PopupId id = 1; id <= PopupBook::waitingLimit + 1; ++id)
        m_book.clicked(id, {});
    m_book.settle(first, 1);
    m_book.settle(second, 2);
    EXPECT_EQ(answers(), Answers{"clicked b"});
}

TEST_F(PopupBookTest, ShowsAClickedPopupUntilTheServiceClosesIt)
{
    show("a", 7);
    m_book.clicked(7, {});
    EXPECT_TRUE(m_book.isShown(7));
    m_book.closed(7);
    EXPECT_FALSE(m_book.isShown(7));
}

TEST_F(PopupBookTest, HoldsTheContextUntilItIsAnsweredAndTaken)
{
    const CFStringRef context = text("a");
    m_book.settle(m_book.expect(ClickContext(context), 0, 0ms), 7);
    EXPECT_EQ(CFGetRetainCount(context), 2);
    m_book.clicked(7, {});
    EXPECT_EQ(CFGetRetainCount(context), 2);
    m_book.takeAnswers();
    EXPECT_EQ(CFGetRetainCount(context), 1);
}

TEST_F(PopupBookTest, CopiesAndMovesContextsWithBalancedReferences)
{
    const CFStringRef context = text("a");
    {
        ClickContext one(context);
        ClickContext two = one;
        ClickContext three = std::move(one);
        EXPECT_TRUE(one.isNull()); // NOLINT(bugprone-use-after-move): what moving leaves is what is tested
        one = two;
        EXPECT_EQ(CFGetRetainCount(context), 4);
        two = ClickContext();
        EXPECT_EQ(CFGetRetainCount(context), 3);
    }
    EXPECT_EQ(CFGetRetainCount(context), 1);
}

TEST_F(PopupBookTest, WantsAPopupClosedThatMadeRoomForLaterOnes)
{
    const Ticket early = expect("early");
    show("shown", 1);
    for (int number = 0; number < PopupBook::waitingLimit; ++number)
        expect(std::to_string(number));
    EXPECT_EQ(answers(), (Answers{"timed out early", "timed out shown"}));
    EXPECT_EQ(m_book.takeUnwanted(), QList<PopupId>{1});
    m_book.settle(early, 2);
    EXPECT_EQ(m_book.takeUnwanted(), QList<PopupId>{2}) << "as soon as its id is known";
    EXPECT_TRUE(m_book.takeUnwanted().isEmpty());
}

TEST_F(PopupBookTest, WantsAPopupClosedOfWhichTheServiceNeverSpokeAgain)
{
    show("a", 1);
    m_book.settle(expectPlain(), 2);
    m_book.advance(PopupBook::backstop);
    EXPECT_EQ(m_book.takeUnwanted(), QList<PopupId>{1}) << "nobody waited for the other";
}

TEST_F(PopupBookTest, WantsNoPopupClosedThatTheServiceSaysIsGone)
{
    show("clicked", 1);
    show("closed", 2);
    show("same", 3);
    show("same", 3);
    m_book.clicked(1, {});
    m_book.closed(2);
    m_book.fail(expect("refused"));
    m_book.advance(1h);
    EXPECT_TRUE(m_book.takeUnwanted().isEmpty());
}

TEST_F(PopupBookTest, WantsNoPopupClosedOfAServiceThatWentAway)
{
    show("a", 1);
    m_book.advance(PopupBook::backstop);
    m_book.forgetShown();
    EXPECT_TRUE(m_book.takeUnwanted().isEmpty());
}

TEST_F(PopupBookTest, CountsThePostingsWhoseIdIsStillToCome)
{
    const Ticket first = expect("a");
    const Ticket second = expectPlain();
    EXPECT_EQ(m_book.idlessCount(), 2);
    m_book.settle(first, 1);
    m_book.fail(second);
    EXPECT_EQ(m_book.idlessCount(), 0);
}

TEST_F(PopupBookTest, WithdrawsThePopupsOfOneGroupClickableOrNot)
{
    m_book.settle(expect("a", 0ms, 5), 1);
    m_book.settle(expectPlain(5), 2);
    m_book.settle(expect("other", 0ms, 6), 3);
    m_book.withdraw(5);
    m_book.withdraw(5);
    EXPECT_EQ(answers(), Answers{"timed out a"});
    EXPECT_EQ(m_book.takeUnwanted(), (QList<PopupId>{1, 2}));
    EXPECT_EQ(m_book.clickableIds(), QList<PopupId>{3});
}

TEST_F(PopupBookTest, WithdrawsAPopupOnItsWayAsSoonAsItsIdIsKnown)
{
    const Ticket ticket = expect("a", 0ms, 5);
    m_book.withdraw(5);
    EXPECT_EQ(answers(), Answers{"timed out a"});
    m_book.settle(ticket, 1);
    m_book.clicked(1, {});
    EXPECT_EQ(m_book.takeUnwanted(), QList<PopupId>{1});
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, KnowsOnWhichPopupsAClickStillMeansSomething)
{
    show("a", 1);
    m_book.settle(expectPlain(), 2);
    show("clicked", 3);
    expect("on its way");
    m_book.clicked(3, {});
    EXPECT_EQ(m_book.clickableIds(), QList<PopupId>{1});
}
