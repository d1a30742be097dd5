// SPDX-License-Identifier: Apache-2.0
#include "popup_book.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace zepa::freedesktop;
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

    Ticket expect(const std::string& context, PopupBook::Time now = 0ms)
    {
        return m_book.expect(ClickContext(text(context)), now);
    }

    Ticket show(const std::string& context, quint32 id, PopupBook::Time now = 0ms)
    {
        const Ticket ticket = expect(context, now);
        m_book.settle(ticket, id, now);
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
            result.push_back((answer.kind == Answer::Kind::Clicked ? "clicked " : "timed out ") + content);
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
    m_book.clicked(7, QStringLiteral("token"), 10ms);
    m_book.closed(7, 11ms);
    m_book.clicked(7, {}, 12ms);
    m_book.advance(48h);
    const QList<Answer> answers = m_book.takeAnswers();
    ASSERT_EQ(answers.size(), 1);
    EXPECT_EQ(answers[0].kind, Answer::Kind::Clicked);
    EXPECT_EQ(answers[0].id, 7U);
    EXPECT_EQ(answers[0].activationToken, QStringLiteral("token"));
}

TEST_F(PopupBookTest, CallsAClosedPopupTimedOutAfterTheGrace)
{
    show("a", 7);
    m_book.closed(7, 100ms);
    EXPECT_EQ(m_book.nextDeadline(), 300ms);
    m_book.advance(299ms);
    EXPECT_EQ(answers(), Answers{});
    m_book.advance(300ms);
    EXPECT_EQ(answers(), Answers{"timed out a"});
    EXPECT_EQ(m_book.nextDeadline(), std::nullopt);
}

TEST_F(PopupBookTest, TakesAClickThatComesWithinTheGraceAfterTheClosing)
{
    show("a", 7);
    m_book.closed(7, 100ms);
    m_book.clicked(7, {}, 299ms);
    m_book.advance(1h);
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(PopupBookTest, IgnoresAClickAfterTheGrace)
{
    show("a", 7);
    m_book.closed(7, 100ms);
    m_book.advance(300ms);
    m_book.clicked(7, {}, 300ms);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PopupBookTest, TakesAClickThatWasHeldUpAsLongAsTheGraceWasNotEnded)
{
    show("a", 7);
    m_book.closed(7, 100ms);
    m_book.clicked(7, {}, 400ms);
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(PopupBookTest, DoesNotProlongTheGraceWhenAPopupIsClosedTwice)
{
    show("a", 7);
    m_book.closed(7, 100ms);
    m_book.closed(7, 250ms);
    m_book.advance(300ms);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PopupBookTest, KeepsAClickThatComesBeforeTheReply)
{
    const Ticket ticket = expect("a");
    m_book.clicked(7, QStringLiteral("token"), 1ms);
    m_book.closed(7, 2ms);
    EXPECT_FALSE(m_book.hasAnswers());
    m_book.settle(ticket, 7, 3ms);
    const QList<Answer> answers = m_book.takeAnswers();
    ASSERT_EQ(answers.size(), 1);
    EXPECT_EQ(answers[0].kind, Answer::Kind::Clicked);
    EXPECT_EQ(answers[0].activationToken, QStringLiteral("token"));
    EXPECT_FALSE(m_book.isShown(7));
}

TEST_F(PopupBookTest, KeepsAClosingThatComesBeforeTheReply)
{
    const Ticket ticket = expect("a");
    m_book.closed(7, 1ms);
    m_book.closed(7, 150ms);
    m_book.settle(ticket, 7, 100ms);
    EXPECT_FALSE(m_book.isShown(7));
    EXPECT_EQ(m_book.nextDeadline(), 201ms);
    m_book.advance(201ms);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PopupBookTest, TakesClosingAndClickThatBothComeBeforeTheReply)
{
    const Ticket ticket = expect("a");
    m_book.closed(7, 1ms);
    m_book.clicked(7, {}, 2ms);
    m_book.settle(ticket, 7, 900ms);
    EXPECT_EQ(answers(), Answers{"clicked a"});
}

TEST_F(PopupBookTest, IgnoresAnEarlyClickThatComesAfterTheGraceOfAnEarlyClosing)
{
    const Ticket ticket = expect("a");
    m_book.closed(7, 1ms);
    m_book.clicked(7, {}, 201ms);
    m_book.settle(ticket, 7, 900ms);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PopupBookTest, GivesAnEarlyAnswerOnlyToThePopupOfItsId)
{
    const Ticket first = expect("a");
    const Ticket second = expect("b");
    m_book.clicked(8, {}, 1ms);
    m_book.settle(first, 7, 2ms);
    m_book.settle(second, 8, 3ms);
    EXPECT_EQ(answers(), Answers{"clicked b"});
    EXPECT_EQ(m_book.waitingCount(), 1);
}

TEST_F(PopupBookTest, ForgetsEarlyAnswersWhenNobodyWaitsForAnId)
{
    const Ticket first = expect("a");
    m_book.clicked(9, {}, 1ms);
    m_book.settle(first, 7, 2ms);
    show("b", 9);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, IgnoresAnswersForIdsThatItDoesNotKnow)
{
    show("a", 7);
    m_book.clicked(8, {}, 1ms);
    m_book.closed(8, 1ms);
    m_book.advance(1h);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, CallsTheEarlierOfTwoPopupsWithTheSameIdTimedOut)
{
    show("a", 7);
    show("b", 7);
    EXPECT_EQ(answers(), Answers{"timed out a"});
    m_book.clicked(7, {}, 1ms);
    m_book.closed(7, 2ms);
    EXPECT_EQ(answers(), Answers{"clicked b"});
}

TEST_F(PopupBookTest, CallsAPopupThatWasNotShownTimedOut)
{
    const Ticket failed = expect("a");
    const Ticket zero = expect("b");
    m_book.fail(failed);
    m_book.settle(zero, 0, 1ms);
    m_book.fail(failed);
    m_book.settle(failed, 5, 1ms);
    EXPECT_EQ(answers(), (Answers{"timed out a", "timed out b"}));
}

TEST_F(PopupBookTest, SettlesATicketOnlyOnce)
{
    const Ticket ticket = show("a", 7);
    m_book.settle(ticket, 8, 1ms);
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
    m_book.closed(7, PopupBook::backstop + 6ms);
    m_book.advance(2 * PopupBook::backstop);
    EXPECT_EQ(answers(), Answers{"timed out a"});
}

TEST_F(PopupBookTest, CallsEverythingShownTimedOutWhenTheServiceGoesAway)
{
    show("a", 1);
    show("b", 2);
    m_book.closed(2, 1ms);
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
    m_book.clicked(3, {}, 1ms);
    m_book.forgetShown();
    EXPECT_EQ(answers(), Answers{"timed out b"});
    m_book.settle(waiting, 3, 2ms);
    show("c", 1);
    EXPECT_EQ(answers(), Answers{});
    EXPECT_EQ(m_book.waitingCount(), 2);
}

TEST_F(PopupBookTest, CallsTheOldestTimedOutWhenMoreThanAThousandWait)
{
    for (int number = 1; number <= PopupBook::waitingLimit; ++number)
        show(std::to_string(number), static_cast<quint32>(number));
    EXPECT_EQ(answers(), Answers{});
    show("more", 2000);
    EXPECT_EQ(answers(), Answers{"timed out 1"});
    EXPECT_EQ(m_book.waitingCount(), PopupBook::waitingLimit);
    m_book.clicked(1, {}, 1ms);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, CountsThoseThatWaitForTheirIdAmongTheThousand)
{
    const Ticket oldest = expect("oldest");
    for (int number = 1; number <= PopupBook::waitingLimit; ++number)
        expect(std::to_string(number));
    EXPECT_EQ(answers(), Answers{"timed out oldest"});
    m_book.settle(oldest, 5, 1ms);
    m_book.clicked(5, {}, 2ms);
    EXPECT_EQ(answers(), Answers{});
}

TEST_F(PopupBookTest, WantsNoAnswerForAPopupWithoutAContext)
{
    const Ticket ticket = m_book.expect(ClickContext(), 0ms);
    m_book.settle(ticket, 7, 0ms);
    m_book.clicked(7, {}, 1ms);
    m_book.closed(7, 2ms);
    const Ticket failed = m_book.expect(ClickContext(), 3ms);
    m_book.fail(failed);
    EXPECT_EQ(answers(), Answers{});
    EXPECT_EQ(m_book.nextDeadline(), std::nullopt);
}

TEST_F(PopupBookTest, DoesNotTakeTheEndOfOnePopupForTheEndOfALaterOneWithItsId)
{
    const Ticket plain = m_book.expect(ClickContext(), 0ms);
    m_book.settle(plain, 7, 0ms);
    const Ticket later = expect("a", 1ms);
    m_book.clicked(7, {}, 2ms);
    m_book.closed(7, 2ms);
    m_book.settle(later, 7, 3ms);
    m_book.advance(1h);
    EXPECT_EQ(answers(), Answers{});
    EXPECT_TRUE(m_book.isShown(7));
}

TEST_F(PopupBookTest, RemembersNoMoreThanAThousandPopupsThatNobodyWaitsFor)
{
    show("a", 5000);
    for (quint32 id = 1; id <= 5; ++id)
        m_book.settle(m_book.expect(ClickContext(), 0ms), id, 0ms);
    for (quint32 id = 6; id <= PopupBook::waitingLimit + 5; ++id)
        m_book.settle(m_book.expect(ClickContext(), 0ms), id, 0ms);
    EXPECT_FALSE(m_book.isShown(5));
    EXPECT_TRUE(m_book.isShown(6));
    EXPECT_TRUE(m_book.isShown(5000));
}

TEST_F(PopupBookTest, RemembersNoMoreThanAThousandAnswersForUnknownIds)
{
    const Ticket first = expect("a");
    const Ticket second = expect("b");
    for (quint32 id = 1; id <= PopupBook::waitingLimit + 1; ++id)
        m_book.clicked(id, {}, 1ms);
    m_book.settle(first, 1, 2ms);
    m_book.settle(second, 2, 2ms);
    EXPECT_EQ(answers(), Answers{"clicked b"});
}

TEST_F(PopupBookTest, ShowsAClickedPopupUntilTheServiceClosesIt)
{
    show("a", 7);
    m_book.clicked(7, {}, 1ms);
    EXPECT_TRUE(m_book.isShown(7));
    m_book.closed(7, 2ms);
    EXPECT_FALSE(m_book.isShown(7));
}

TEST_F(PopupBookTest, HoldsTheContextUntilItIsAnsweredAndTaken)
{
    const CFStringRef context = text("a");
    m_book.settle(m_book.expect(ClickContext(context), 0ms), 7, 0ms);
    EXPECT_EQ(CFGetRetainCount(context), 2);
    m_book.clicked(7, {}, 1ms);
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
    EXPECT_EQ(m_book.takeUnwanted(), QList<quint32>{1});
    m_book.settle(early, 2, 1ms);
    EXPECT_EQ(m_book.takeUnwanted(), QList<quint32>{2}) << "as soon as its id is known";
    EXPECT_TRUE(m_book.takeUnwanted().isEmpty());
}

TEST_F(PopupBookTest, WantsAPopupClosedOfWhichTheServiceNeverSpokeAgain)
{
    show("a", 1);
    m_book.settle(m_book.expect(ClickContext(), 0ms), 2, 0ms);
    m_book.advance(PopupBook::backstop);
    EXPECT_EQ(m_book.takeUnwanted(), QList<quint32>{1}) << "nobody waited for the other";
}

TEST_F(PopupBookTest, WantsNoPopupClosedThatTheServiceSaysIsGone)
{
    show("clicked", 1);
    show("closed", 2);
    show("same", 3);
    show("same", 3);
    m_book.clicked(1, {}, 0ms);
    m_book.closed(2, 0ms);
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
    const Ticket second = m_book.expect(ClickContext(), 0ms);
    EXPECT_EQ(m_book.idlessCount(), 2);
    m_book.settle(first, 1, 0ms);
    m_book.fail(second);
    EXPECT_EQ(m_book.idlessCount(), 0);
}
