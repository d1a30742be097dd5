// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_rule.h"
#include "probe_method.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString id1 = u"one"_s;
const QString id2 = u"two"_s;

class RuleTest : public testing::Test
{
protected:
    RuleTest() { method.fields = {ProbeMethod::text(id1, u"a"_s), ProbeMethod::text(id2, u"b"_s)}; }

    ZepaNotification notification{u"event"_s, u"Event"_s, QString(), QString()};
    ProbeMethod method;
};

} // namespace

TEST(Notification, KeepsItsFourTextsInTheOrderOfTheConstructor)
{
    const ZepaNotification notification(u"id"_s, u"name"_s, u"extra"_s, u"description"_s);
    EXPECT_EQ(notification.getId(), u"id"_s);
    EXPECT_EQ(notification.getName(), u"name"_s);
    EXPECT_EQ(notification.getExtra(), u"extra"_s);
    EXPECT_EQ(notification.getDescription(), u"description"_s);
}

TEST(NotificationMethod, StartsWithoutFields)
{
    EXPECT_TRUE(ProbeMethod().fields.isEmpty());
}

TEST(NotificationMethod, GivesOneFieldOfTypeZeroForAnIdentifierThatWasNeverSet)
{
    const QList<ZepaField> config = ProbeMethod().getDefaultNotificationConfig(u"never set"_s);
    ASSERT_EQ(config.size(), 1);
    EXPECT_EQ(config.first().getType(), 0);
}

TEST(NotificationMethod, GivesAnEmptyListForAnIdentifierThatWasSetToOne)
{
    ProbeMethod method;
    method.setDefaultNotificationConfig(u"event"_s, {});
    EXPECT_TRUE(method.getDefaultNotificationConfig(u"event"_s).isEmpty());
}

TEST(NotificationMethod, ReplacesADefaultThatIsSetAgain)
{
    ProbeMethod method;
    method.setDefaultNotificationConfig(u"event"_s, {ProbeMethod::box(id1), ProbeMethod::box(id2)});
    method.setDefaultNotificationConfig(u"event"_s, {ProbeMethod::box(id2)});
    const QList<ZepaField> config = method.getDefaultNotificationConfig(u"event"_s);
    ASSERT_EQ(config.size(), 1);
    EXPECT_EQ(config.first().getId(), id2);
}

TEST(NotificationMethod, DoesNothingWithRegistrationsUnlessItWantsThem)
{
    ProbeMethod method;
    ZepaNotification notification(id1, id1, id1, id1);
    method.ZepaNotificationMethod::registerNotification(&notification);
    method.ZepaNotificationMethod::registerNotifications({&notification});
    EXPECT_TRUE(method.registered.isEmpty());
    EXPECT_TRUE(method.lists.isEmpty());
}

TEST_F(RuleTest, HoldsTheMethodsFieldsWithTheirInitialValuesWhenBuiltWithAnEmptyConfig)
{
    const ZepaNotificationRule rule(&notification, &method, {});
    EXPECT_EQ(rule.getConfig().size(), 2);
    EXPECT_EQ(textOf(rule.getConfig(), id1), u"a"_s);
    EXPECT_EQ(textOf(rule.getConfig(), id2), u"b"_s);
}

TEST_F(RuleTest, DropsAFieldThatTheMethodDoesNotDeclare)
{
    const ZepaNotificationRule rule(&notification, &method, {ProbeMethod::text(u"unknown"_s, id1)});
    EXPECT_EQ(rule.getConfig().size(), 2);
    EXPECT_TRUE(textOf(rule.getConfig(), u"unknown"_s).isNull());
}

TEST_F(RuleTest, TakesTheLaterOfTwoFieldsWithOneIdentifier)
{
    ZepaNotificationRule rule(&notification, &method, {});
    rule.setConfig({ProbeMethod::text(id1, u"first"_s), ProbeMethod::text(id1, u"later"_s)});
    EXPECT_EQ(textOf(rule.getConfig(), id1), u"later"_s);
    EXPECT_EQ(textOf(rule.getConfig(), id2), u"b"_s);
}

TEST_F(RuleTest, TakesTheFirstFieldOfAMethodThatDeclaresAnIdentifierTwice)
{
    method.fields.append(ProbeMethod::text(id1, u"second declaration"_s));
    const ZepaNotificationRule rule(&notification, &method, {});
    EXPECT_EQ(rule.getConfig().size(), 2);
    EXPECT_EQ(textOf(rule.getConfig(), id1), u"a"_s);
}

TEST_F(RuleTest, ResetsEverySettingWhenTheMethodChanges)
{
    ZepaNotificationRule rule(&notification, &method, {ProbeMethod::text(id1, u"changed"_s)});
    ProbeMethod other(u"other"_s);
    other.fields = {ProbeMethod::text(id1, u"fresh"_s)};
    rule.setMethod(&other);
    EXPECT_EQ(rule.getMethod(), &other);
    EXPECT_EQ(rule.getConfig().size(), 1);
    EXPECT_EQ(textOf(rule.getConfig(), id1), u"fresh"_s);
}

TEST_F(RuleTest, KeepsItsFieldsWhenTheMethodsListChangesLater)
{
    const ZepaNotificationRule rule(&notification, &method, {});
    method.fields.clear();
    EXPECT_EQ(rule.getConfig().size(), 2);
}

TEST_F(RuleTest, PassesItsOwnNotificationWhateverTheTextsSay)
{
    ZepaNotificationRule rule(&notification, &method, {ProbeMethod::text(id2, u"set"_s)});
    rule(7, u"title of something else"_s, u"text"_s, u"icon"_s, u"extra"_s, ZepaPluginAction([] {}),
         {ZepaArg(), ZepaArg()});
    ASSERT_EQ(method.calls.size(), 1);
    const ProbeCall& call = method.calls.first();
    EXPECT_EQ(call.sequence, 7U);
    EXPECT_EQ(call.notification, &notification);
    EXPECT_EQ(call.title, u"title of something else"_s);
    EXPECT_EQ(call.text, u"text"_s);
    EXPECT_EQ(call.icon, u"icon"_s);
    EXPECT_EQ(call.extra, u"extra"_s);
    EXPECT_EQ(call.config.size(), 2);
    EXPECT_EQ(textOf(call.config, id2), u"set"_s);
    EXPECT_TRUE(call.actionIsValid);
    EXPECT_EQ(call.argCount, 2);
}
