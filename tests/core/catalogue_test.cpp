// SPDX-License-Identifier: Apache-2.0
#include "listening_translator.h"
#include "marking_translator.h"
#include "module_test.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct Expected
{
    const char* id;
    const char* name;
    const char* description;
};

constexpr std::array expectedTypes{
    Expected{"message_received", "Message received", "When you receive any message"},
    Expected{"message_received_background", "Message received (Background chat)",
             "When you receive a message in a background chat"},
    Expected{"message_received_initial", "Message received (Initial)", "When you receive an initial message"},
    Expected{"message_sent", "Message sent", "When you sent message"},
    Expected{"alert_received_notify", "Alert received", "Alert received"},
    Expected{"alert_sent_notify", "Alert sent", "Alert sent"},
    Expected{"email_notify", "New email", "New email"},
    Expected{"info_notify", "Information message", "Program information"},
    Expected{"error_notify", "Error message", "Program error"},
    Expected{"logged_in", "Account logged in", "Account logged in"},
    Expected{"buddy_went_offline", "Buddy went offline", "When buddy changes presence to unavailable"},
    Expected{"buddy_connected", "Buddy connected", "When buddy changes presence from unavailable"},
    Expected{"buddy_went_away", "Buddy went away", "When buddy becomes away"},
    Expected{"buddy_changed_status", "Buddy changed status", "When buddy changes status"},
    Expected{"typing_started_notify", "Typing started", "When buddy start typing"},
    Expected{"typing_stoped_notify", "Typing stoped", "When buddy stop typing"},
    Expected{"conf_message_received", "Conference message received", "Conference message received"},
    Expected{"conf_message_bg_received", "Conference message received (Background)",
             "Conference message received (Background)"},
};

using Catalogue = ModuleTest;

} // namespace

TEST_F(Catalogue, HoldsExactlyTheEighteenTypesOfTheTable)
{
    module();
    ZepaNotificationModule::init();
    EXPECT_EQ(module().getNotifications().size(), 18);
    for (const Expected& expected : expectedTypes) {
        const ZepaNotification* notification = type(QString::fromLatin1(expected.id));
        ASSERT_NE(notification, nullptr) << expected.id;
        EXPECT_EQ(notification->getId(), QString::fromLatin1(expected.id));
        EXPECT_EQ(notification->getName(), QString::fromLatin1(expected.name));
        EXPECT_EQ(notification->getDescription(), QString::fromLatin1(expected.description));
    }
    EXPECT_EQ(type(u"typing_stoped_notify"_s)->getName(), u"Typing stoped"_s);
}

TEST_F(Catalogue, RegistersInTheOrderOfTheTable)
{
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    ZepaNotificationModule::init();
    QStringList order;
    for (const Expected& expected : expectedTypes)
        order.append(QString::fromLatin1(expected.id));
    EXPECT_EQ(probe.registered, order);
}

TEST_F(Catalogue, LeavesEveryThirdTextEmptyAndDescribesMailByItsName)
{
    module();
    ZepaNotificationModule::init();
    for (const ZepaNotification* notification : module().getNotifications())
        EXPECT_TRUE(notification->getExtra().isEmpty());
    EXPECT_EQ(type(u"email_notify"_s)->getDescription(), type(u"email_notify"_s)->getName());
}

TEST_F(Catalogue, TranslatesNameAndDescriptionUnderCommentsOfTheirOwn)
{
    module();
    const MarkingTranslator::Installed translator;
    ZepaNotificationModule::init();
    const ZepaNotification* alert = type(u"alert_sent_notify"_s);
    EXPECT_EQ(alert->getName(), u"Alert sent|translation|notification event"_s);
    EXPECT_EQ(alert->getDescription(), u"Alert sent|translation|notification event description"_s);
}

TEST_F(Catalogue, TranslatesEachDescriptionBeforeItsName)
{
    module();
    ListeningTranslator translator;
    QCoreApplication::installTranslator(&translator);
    ZepaNotificationModule::init();
    QCoreApplication::removeTranslator(&translator);
    QStringList expected;
    for (std::size_t i = 0; i < expectedTypes.size(); ++i)
        expected << u"notification event description"_s << u"notification event"_s;
    EXPECT_EQ(translator.heard, expected);
}

TEST_F(Catalogue, ChangesNothingWhenItIsFilledTwice)
{
    module();
    ZepaNotificationModule::init();
    const ZepaNotification* mail = type(u"email_notify"_s);
    const qsizetype rules = module().getRules(type(u"email_notify"_s)).size();
    ZepaNotificationModule::init();
    EXPECT_EQ(module().getNotifications().size(), 18);
    EXPECT_EQ(type(u"email_notify"_s), mail);
    EXPECT_EQ(module().getRules(type(u"email_notify"_s)).size(), rules);
}

TEST_F(Catalogue, GivesAMethodThatIsInstalledAfterItStoredRulesOrElseDefaults)
{
    ProbeMethod probe;
    for (const Expected& expected : expectedTypes)
        probe.setDefaultNotificationConfig(QString::fromLatin1(expected.id), {});
    host.writeRuleFile(u"message_sent"_s, "<rules/>");
    host.writeRuleFile(u"typing_started_notify"_s, "<rules><probe><config/></probe></rules>");
    module();
    ZepaNotificationModule::init();
    module().installNotificationMethod(&probe);
    EXPECT_EQ(module().getNotificationRule(u"message_sent"_s, probe.getId()), nullptr);
    EXPECT_NE(module().getNotificationRule(u"typing_started_notify"_s, probe.getId()), nullptr);
    // No file, because no built-in method has a default for it.
    EXPECT_NE(module().getNotificationRule(u"typing_stoped_notify"_s, probe.getId()), nullptr);
}

TEST_F(Catalogue, GivesAMethodThatIsInstalledBeforeItStoredRulesOrElseDefaults)
{
    ProbeMethod probe;
    for (const Expected& expected : expectedTypes)
        probe.setDefaultNotificationConfig(QString::fromLatin1(expected.id), {});
    host.writeRuleFile(u"message_sent"_s, "<rules/>");
    host.writeRuleFile(u"typing_started_notify"_s, "<rules><probe><config/></probe></rules>");
    module().installNotificationMethod(&probe);
    ZepaNotificationModule::init();
    EXPECT_EQ(module().getNotificationRule(u"message_sent"_s, probe.getId()), nullptr);
    EXPECT_EQ(module().getRules(type(u"typing_started_notify"_s)).size(), 1);
    EXPECT_NE(module().getNotificationRule(u"email_notify"_s, probe.getId()), nullptr);
}

TEST_F(Catalogue, WritesNoRuleFileForATypeThatNoMethodHasADefaultFor)
{
    module();
    ZepaNotificationModule::init();
    EXPECT_EQ(host.ruleFiles(),
              QStringList({u"alert_received_notify"_s, u"alert_sent_notify"_s, u"buddy_changed_status"_s,
                           u"buddy_connected"_s, u"email_notify"_s, u"error_notify"_s, u"info_notify"_s, u"logged_in"_s,
                           u"message_received"_s, u"message_received_background"_s, u"message_received_initial"_s}));
}
