// SPDX-License-Identifier: Apache-2.0
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_rule.h"
#include "probe_method.h"

#include <gtest/gtest.h>

namespace {

const QString id1 = QStringLiteral("one");
const QString id2 = QStringLiteral("two");

class RuleTest : public testing::Test
{
protected:
    RuleTest()
    {
        method.fields = {ProbeMethod::text(id1, QStringLiteral("a")), ProbeMethod::text(id2, QStringLiteral("b"))};
    }

    ZepaNotification notification{QStringLiteral("event"), QStringLiteral("Event"), QString(), QString()};
    ProbeMethod method;
};

} // namespace

TEST(Notification, KeepsItsFourTextsInTheOrderOfTheConstructor)
{
    const ZepaNotification notification(QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("extra"),
                                        QStringLiteral("description"));
    EXPECT_EQ(notification.getId(), QStringLiteral("id"));
    EXPECT_EQ(notification.getName(), QStringLiteral("name"));
    EXPECT_EQ(notification.getExtra(), QStringLiteral("extra"));
    EXPECT_EQ(notification.getDescription(), QStringLiteral("description"));
}

TEST(NotificationMethod, StartsWithoutFields)
{
    EXPECT_TRUE(ProbeMethod().fields.isEmpty());
}

TEST(NotificationMethod, GivesOneFieldOfTypeZeroForAnIdentifierThatWasNeverSet)
{
    const QList<ZepaField> config = ProbeMethod().getDefaultNotificationConfig(QStringLiteral("never set"));
    ASSERT_EQ(config.size(), 1);
    EXPECT_EQ(config.first().getType(), 0);
}

TEST(NotificationMethod, GivesAnEmptyListForAnIdentifierThatWasSetToOne)
{
    ProbeMethod method;
    method.setDefaultNotificationConfig(QStringLiteral("event"), {});
    EXPECT_TRUE(method.getDefaultNotificationConfig(QStringLiteral("event")).isEmpty());
}

TEST(NotificationMethod, ReplacesADefaultThatIsSetAgain)
{
    ProbeMethod method;
    method.setDefaultNotificationConfig(QStringLiteral("event"), {ProbeMethod::box(id1), ProbeMethod::box(id2)});
    method.setDefaultNotificationConfig(QStringLiteral("event"), {ProbeMethod::box(id2)});
    const QList<ZepaField> config = method.getDefaultNotificationConfig(QStringLiteral("event"));
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
    EXPECT_EQ(textOf(rule.getConfig(), id1), QStringLiteral("a"));
    EXPECT_EQ(textOf(rule.getConfig(), id2), QStringLiteral("b"));
}

TEST_F(RuleTest, DropsAFieldThatTheMethodDoesNotDeclare)
{
    const ZepaNotificationRule rule(&notification, &method, {ProbeMethod::text(QStringLiteral("unknown"), id1)});
    EXPECT_EQ(rule.getConfig().size(), 2);
    EXPECT_TRUE(textOf(rule.getConfig(), QStringLiteral("unknown")).isNull());
}

TEST_F(RuleTest, TakesTheLaterOfTwoFieldsWithOneIdentifier)
{
    ZepaNotificationRule rule(&notification, &method, {});
    rule.setConfig({ProbeMethod::text(id1, QStringLiteral("first")), ProbeMethod::text(id1, QStringLiteral("later"))});
    EXPECT_EQ(textOf(rule.getConfig(), id1), QStringLiteral("later"));
    EXPECT_EQ(textOf(rule.getConfig(), id2), QStringLiteral("b"));
}

TEST_F(RuleTest, TakesTheFirstFieldOfAMethodThatDeclaresAnIdentifierTwice)
{
    method.fields.append(ProbeMethod::text(id1, QStringLiteral("second declaration")));
    const ZepaNotificationRule rule(&notification, &method, {});
    EXPECT_EQ(rule.getConfig().size(), 2);
    EXPECT_EQ(textOf(rule.getConfig(), id1), QStringLiteral("a"));
}

TEST_F(RuleTest, ResetsEverySettingWhenTheMethodChanges)
{
    ZepaNotificationRule rule(&notification, &method, {ProbeMethod::text(id1, QStringLiteral("changed"))});
    ProbeMethod other(QStringLiteral("other"));
    other.fields = {ProbeMethod::text(id1, QStringLiteral("fresh"))};
    rule.setMethod(&other);
    EXPECT_EQ(rule.getMethod(), &other);
    EXPECT_EQ(rule.getConfig().size(), 1);
    EXPECT_EQ(textOf(rule.getConfig(), id1), QStringLiteral("fresh"));
}

TEST_F(RuleTest, KeepsItsFieldsWhenTheMethodsListChangesLater)
{
    const ZepaNotificationRule rule(&notification, &method, {});
    method.fields.clear();
    EXPECT_EQ(rule.getConfig().size(), 2);
}

TEST_F(RuleTest, PassesItsOwnNotificationWhateverTheTextsSay)
{
    ZepaNotificationRule rule(&notification, &method, {ProbeMethod::text(id2, QStringLiteral("set"))});
    rule(7, QStringLiteral("title of something else"), QStringLiteral("text"), QStringLiteral("icon"),
         QStringLiteral("extra"), ZepaPluginAction([] {}), {ZepaArg(), ZepaArg()});
    ASSERT_EQ(method.calls.size(), 1);
    const ProbeCall& call = method.calls.first();
    EXPECT_EQ(call.sequence, 7U);
    EXPECT_EQ(call.notification, &notification);
    EXPECT_EQ(call.title, QStringLiteral("title of something else"));
    EXPECT_EQ(call.text, QStringLiteral("text"));
    EXPECT_EQ(call.icon, QStringLiteral("icon"));
    EXPECT_EQ(call.extra, QStringLiteral("extra"));
    EXPECT_EQ(call.config.size(), 2);
    EXPECT_EQ(textOf(call.config, id2), QStringLiteral("set"));
    EXPECT_TRUE(call.actionIsValid);
    EXPECT_EQ(call.argCount, 2);
}
