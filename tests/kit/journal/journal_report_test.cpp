// SPDX-License-Identifier: Apache-2.0
#include "journal_fixture.h"

#include "client/chats/chat_manager.h"
#include "kit/journal/recording_method.h"
#include "kit/settings/global_settings.h"

#include <QFile>

#include <gmock/gmock.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

using testing::AllOf;
using testing::HasSubstr;
using zepa::ChatState;
using zepa::SoundState;

class JournalReport : public testing::Test, protected JournalClient
{
protected:
    void postAlertFrom(int buddyType)
    {
        zepa::Posting posting;
        posting.type = u"alert_received_notify"_s;
        posting.title = u"from %1, %2"_s.arg(buddyType).arg(++m_count);
        posting.buddy = ZepaBuddy(u"Ann"_s, u"Ann"_s, buddyType);
        announce(m_client.recorder(), posting);
    }

    void allowAlerts(const QString& whose)
    {
        ASSERT_TRUE(m_client.settings().store(zepa::globalSettings().at(1), whose));
    }

    int m_count = 0;
};

/// A method that does what it is told when it is called.
class Caller final : public ZepaNotificationMethod
{
public:
    void postNotification(unsigned int, ZepaNotification*, const QString&, const QString&, const QString&,
                          const QString&, const QList<ZepaField>&, const ZepaPluginAction&,
                          const QList<ZepaArg>&) override
    {
        work();
    }
    QString getId() const override { return u"caller"_s; }
    QString getActionName() const override { return u"call"_s; }
    QString getActionIcon() const override { return {}; }

    std::function<void()> work;
};

TEST_F(JournalReport, NamesTheMethodsInTheOrderOfTheirCallsAndOneWithTwoRulesTwice)
{
    QList<ZepaField> config = m_client.module().getMethods().value(m_popups)->fields;
    config[0].setChecked(true);
    m_client.module().addNotificationRule(m_received, m_popups, config);
    const zepa::Report report = post(m_received);
    ASSERT_EQ(report.calls.size(), 3);
    EXPECT_EQ(report.methods().constFirst(), m_popups);
    EXPECT_EQ(report.methods().count(m_popups), 2);
    EXPECT_EQ(report.methods().count(m_sounds), 1);
    EXPECT_TRUE(report.calls.constFirst().config.constFirst().isChecked());
    EXPECT_THAT(details(), AllOf(HasSubstr("1. Pop-up (sticky = true)"), HasSubstr("Pop-up (sticky = false)"),
                                 HasSubstr("Sound (sound_file = message.wav)")));
}

TEST_F(JournalReport, KeepsTheCallsOfAPostingInsideOfAnotherApart)
{
    Caller caller;
    zepa::RecordingMethod watched(caller, m_client.deliveries());
    m_client.module().installNotificationMethod(&watched);
    const QString typing = u"typing_started_notify"_s;
    QList<ZepaField> config;
    m_client.module().addNotificationRule(typing, u"caller"_s, config);
    caller.work = [this] { post(u"buddy_connected"_s); };
    const zepa::Report outer = post(typing);
    EXPECT_EQ(outer.methods(), QStringList(u"caller"_s));
    ASSERT_EQ(m_client.journal().rowCount(), 2);
    // Once for each rule: installing a method late makes the module read the rule files again.
    EXPECT_EQ(m_client.journal().entry(0).report.methods(), QStringList({m_sounds, m_sounds}));
    m_client.module().removeNotificationRule(typing, u"caller"_s);
    m_client.module().uninstallNotificationMethod(&watched);
}

TEST_F(JournalReport, SaysWhyAnAlertMakesNoSound)
{
    postAlertFrom(ZepaBuddy::Contact);
    EXPECT_EQ(last().report.sound, SoundState::Asked);
    postAlertFrom(ZepaBuddy::NotOnContactList);
    EXPECT_EQ(last().report.sound, SoundState::MutedForStrangers);
    EXPECT_TRUE(last().isFromStranger);
    EXPECT_THAT(details(), HasSubstr("buddies_only"));
    allowAlerts(u"always"_s);
    postAlertFrom(ZepaBuddy::NotOnContactList);
    EXPECT_EQ(last().report.sound, SoundState::Asked);
    allowAlerts(u"never"_s);
    postAlertFrom(ZepaBuddy::Contact);
    EXPECT_EQ(last().report.sound, SoundState::MutedForAll);
    EXPECT_THAT(details(), HasSubstr("never"));
}

TEST(JournalReportAlone, SaysThatAlertsAreMuteWhenTheStoredChoiceIsNoneOfThose)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"settings.ini"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("[General]\nalerts=sometimes\n") > 0);
    file.close();
    zepa::Client client{folder.path()};
    zepa::Posting posting;
    posting.type = u"alert_received_notify"_s;
    posting.title = u"Ann"_s;
    posting.buddy = ZepaBuddy(u"Ann"_s, u"Ann"_s, ZepaBuddy::Contact);
    EXPECT_EQ(announce(client.recorder(), posting).sound, SoundState::MutedForAll);
    const QString text = zepa::detailsText(client.journal().entry(0));
    EXPECT_THAT(text.toStdString(), AllOf(HasSubstr("\"alerts\": sometimes"), testing::Not(HasSubstr("never"))));
}

TEST_F(JournalReport, SaysThatASoundFileIsNotThere)
{
    QList<ZepaField> config = m_client.module().getMethods().value(m_sounds)->fields;
    config[0].setText(u"no-such-file.wav"_s);
    m_client.module().updateNotificationRule(m_received, m_sounds, config);
    post(m_received);
    EXPECT_EQ(last().report.sound, SoundState::NoFile);
    EXPECT_THAT(details(), HasSubstr("sound file is not there"));
}

TEST_F(JournalReport, SaysWhyThereIsNoLineInAChat)
{
    const QString status = u"buddy_changed_status"_s;
    post(status, u"one"_s);
    EXPECT_EQ(last().report.chat, ChatState::NoWindow);
    EXPECT_THAT(details(), HasSubstr("chat window of Ann is not open"));
    zepa::ChatManager::instance().open(ZepaBuddy(u"Ann"_s, u"Ann"_s, ZepaBuddy::Contact));
    post(status, u"two"_s);
    EXPECT_EQ(last().report.chat, ChatState::Written);
    zepa::Posting aboutNobody;
    aboutNobody.type = status;
    announce(m_client.recorder(), aboutNobody);
    EXPECT_EQ(last().report.chat, ChatState::NoBuddy);
    post(m_received);
    EXPECT_EQ(last().report.chat, ChatState::NotAsked);
}

TEST_F(JournalReport, IsKeptForTheLastThousandPostings)
{
    const int more = 20;
    for (int i = 0; i < zepa::Journal::capacity + more; ++i)
        post(u"typing_started_notify"_s, QString::number(i));
    EXPECT_EQ(m_client.journal().rowCount(), zepa::Journal::capacity);
    EXPECT_EQ(m_client.journal().entry(0).number, more + 1);
    m_client.journal().answered(more, zepa::Answer::Clicked);
    m_client.journal().answered(more + 1, zepa::Answer::Clicked);
    EXPECT_TRUE(m_client.journal().entry(0).answer);
    EXPECT_FALSE(m_client.journal().entry(1).answer);
}

TEST_F(JournalReport, ShowsAStrangersTextsOnOneLine)
{
    post(u"nope"_s, u"a\nb\tc"_s + QChar(0x202e) + u"d"_s);
    const QString line = zepa::lineText(last());
    EXPECT_FALSE(line.contains(u'\n'));
    EXPECT_FALSE(line.contains(QChar(0x202e)));
    EXPECT_EQ(line.count(u'\t'), 6);
}

} // namespace
