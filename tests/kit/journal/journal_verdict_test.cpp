// SPDX-License-Identifier: Apache-2.0
#include "journal_fixture.h"

#include "kit/settings/global_settings.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

class JournalVerdict : public testing::Test, protected JournalClient
{};

TEST_F(JournalVerdict, IsThatThereIsNoSessionBus)
{
    post(m_received);
    EXPECT_EQ(verdict(), Verdict::NoBus);
    EXPECT_THAT(why(), HasSubstr("no session bus"));
}

TEST_F(JournalVerdict, IsThatTheTypeHasNoRule)
{
    post(u"typing_started_notify"_s);
    EXPECT_EQ(verdict(), Verdict::NoRule);
    EXPECT_THAT(why(), HasSubstr("\"Typing started\" has no rule"));
}

TEST_F(JournalVerdict, IsThatNoRuleCallsForAPopUpAndNamesWhatWasCalled)
{
    post(u"buddy_connected"_s);
    EXPECT_EQ(verdict(), Verdict::NoPopupRule);
    EXPECT_THAT(why(), HasSubstr("called was: Sound"));
}

TEST_F(JournalVerdict, IsThatNobodyKnowsTheType)
{
    post(u"nope"_s);
    EXPECT_EQ(verdict(), Verdict::UnknownType);
    EXPECT_THAT(why(), HasSubstr("\"nope\""));
}

TEST_F(JournalVerdict, IsThatItIsARepeatAndSaysOfWhatAndForHowLong)
{
    ASSERT_TRUE(m_client.settings().store(zepa::globalSettings().constFirst(), u"70"_s));
    post(m_received);
    post(u"email_notify"_s);
    post(m_received);
    EXPECT_EQ(verdict(), Verdict::Repeat);
    ASSERT_TRUE(last().earlier);
    EXPECT_EQ(last().earlier->number, 1);
    EXPECT_THAT(why(), AllOf(HasSubstr("s ago"), HasSubstr("70 s"), HasSubstr("duplicated_notifications_time")));
    EXPECT_THAT(why(), Not(HasSubstr("count as the same")));
    post(m_received, u"Ben"_s);
    EXPECT_EQ(verdict(), Verdict::NoBus);
}

TEST_F(JournalVerdict, NamesTheOtherTypeWhoseIdentifierAndTitleMakeTheSameKey)
{
    post(u"message_received_background"_s, u"Ann"_s);
    post(m_received, u"_backgroundAnn"_s);
    EXPECT_EQ(verdict(), Verdict::Repeat);
    EXPECT_THAT(why(), AllOf(HasSubstr("type message_received_background"), HasSubstr("count as the same")));
}

TEST_F(JournalVerdict, OfARepeatWhoseFirstIsForgottenSaysSo)
{
    post(m_received);
    m_client.journal().clear();
    post(m_received);
    EXPECT_EQ(verdict(), Verdict::Repeat);
    EXPECT_THAT(why(), HasSubstr("does not hold any more"));
}

TEST_F(JournalVerdict, ExplainsARepeatAcrossMidnight)
{
    zepa::JournalEntry entry;
    entry.report.fate = zepa::Fate::Repeat;
    entry.report.repeatLimit = 5;
    entry.time = QDateTime(QDate(2026, 3, 2), QTime(0, 0, 30));
    entry.earlier = {1, QDateTime(QDate(2026, 3, 1), QTime(23, 59, 50)), {}, {}};
    EXPECT_THAT(zepa::whyNoPopup(entry).toStdString(), AllOf(HasSubstr("23:59:50"), HasSubstr("without their dates")));
}

TEST_F(JournalVerdict, OfATypeWithoutRulesCountsTheFirstOfABurst)
{
    const QString typing = u"typing_started_notify"_s;
    post(typing);
    post(typing);
    // Now that it has a rule, the module still drops it, because of the first.
    QList<ZepaField> config;
    m_client.module().addNotificationRule(typing, m_sounds, config);
    post(typing);
    EXPECT_EQ(verdict(), Verdict::Repeat);
    ASSERT_TRUE(last().earlier);
    EXPECT_EQ(last().earlier->number, 1);
}

TEST_F(JournalVerdict, HasWordsForEach)
{
    const QList<Verdict> all = zepa::allVerdicts();
    QSet<QString> words;
    for (const Verdict verdict : all)
        words.insert(zepa::verdictText(verdict));
    EXPECT_EQ(words.size(), 11);
}

} // namespace
