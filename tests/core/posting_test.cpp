// SPDX-License-Identifier: Apache-2.0
#include "module_test.h"

#include <stdexcept>

namespace {

const QString event = QStringLiteral("event");
const QString other = QStringLiteral("other");
const QString title = QStringLiteral("title");

class Posting : public ModuleTest
{
protected:
    Posting()
    {
        registerType(event);
        registerType(other);
    }

    ProbeMethod probe;
    ProbeMethod second{QStringLiteral("second")};
};

} // namespace

TEST_F(Posting, ReadsItsLimitFromASpinBoxOf300And0And5)
{
    post(event, title);
    ASSERT_EQ(host.settingsRead.size(), 1);
    const ZepaField field = host.settingsRead.first();
    EXPECT_EQ(field.getId(), QStringLiteral("duplicated_notifications_time"));
    EXPECT_EQ(field.getType(), ZepaField::SpinBox);
    EXPECT_EQ(field.getUpperBound(), 300);
    EXPECT_EQ(field.getLowerBound(), 0);
    EXPECT_EQ(field.getIntValue(), 5);
    EXPECT_EQ(field.getLabel(), QString());
    // Empty texts, not null ones.
    EXPECT_TRUE(field.getDescription().isEmpty() && !field.getDescription().isNull());
    EXPECT_TRUE(field.getSuffix().isEmpty() && !field.getSuffix().isNull());
}

TEST_F(Posting, ReadsTheLimitAtEveryPosting)
{
    post(event, title);
    post(event, title);
    EXPECT_EQ(host.settingsRead.size(), 2);
}

TEST_F(Posting, HandsAllTextsActionAndArgumentsToEveryRule)
{
    addRule(event, probe);
    module().postNotification(event, QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d"),
                              ZepaPluginAction([] {}), {ZepaArg()});
    ASSERT_EQ(probe.calls.size(), 1);
    const ProbeCall& call = probe.calls.first();
    EXPECT_EQ(QStringList({call.title, call.text, call.icon, call.extra}).join(QLatin1Char(' ')),
              QStringLiteral("a b c d"));
    EXPECT_EQ(call.notification, type(event));
    EXPECT_TRUE(call.actionIsValid);
    EXPECT_EQ(call.argCount, 1);
}

TEST_F(Posting, IsDroppedWhenItRepeatsTypeAndTitle)
{
    addRule(event, probe);
    post(event, title);
    module().postNotification(event, title, QStringLiteral("another text"), QString(), QString(), ZepaPluginAction(),
                              {});
    EXPECT_EQ(probe.calls.size(), 1);
}

TEST_F(Posting, IsDeliveredTwiceForOneTypeWithTwoTitles)
{
    addRule(event, probe);
    post(event, QStringLiteral("one"));
    post(event, QStringLiteral("two"));
    EXPECT_EQ(probe.calls.size(), 2);
}

TEST_F(Posting, SharesAKeyWhenIdentifierAndTitleRunTogetherToTheSameText)
{
    registerType(QStringLiteral("a"));
    registerType(QStringLiteral("ab"));
    addRule(QStringLiteral("ab"), probe);
    post(QStringLiteral("a"), QStringLiteral("bc"));
    post(QStringLiteral("ab"), QStringLiteral("c"));
    EXPECT_TRUE(probe.calls.isEmpty());
}

TEST_F(Posting, OfAnUnknownTypeDeliversNothingDoesNotCountAndBlocksItsOwnRepeat)
{
    post(QStringLiteral("unknown"), title);
    registerType(QStringLiteral("unknown"));
    addRule(QStringLiteral("unknown"), probe);
    post(QStringLiteral("unknown"), title);
    EXPECT_TRUE(probe.calls.isEmpty());
    post(QStringLiteral("unknown"), QStringLiteral("another title"));
    ASSERT_EQ(probe.calls.size(), 1);
    EXPECT_EQ(probe.calls.first().sequence, 0U);
}

TEST_F(Posting, OfATypeWithoutRulesCounts)
{
    post(other, QStringLiteral("one"));
    post(other, QStringLiteral("two"));
    addRule(event, probe);
    post(event, title);
    EXPECT_EQ(probe.calls.first().sequence, 2U);
}

TEST_F(Posting, DoesNotCountWhenItIsDropped)
{
    addRule(event, probe);
    post(event, QStringLiteral("one"));
    post(event, QStringLiteral("one"));
    post(event, QStringLiteral("two"));
    EXPECT_EQ(probe.calls.last().sequence, 1U);
}

TEST_F(Posting, CallsTwoRulesWithOneNumberNewestFirst)
{
    addRule(event, probe);
    addRule(event, second);
    QStringList order;
    probe.whenCalled = [&] { order.append(QStringLiteral("older")); };
    second.whenCalled = [&] { order.append(QStringLiteral("newer")); };
    post(event, title);
    EXPECT_EQ(order, QStringList({QStringLiteral("newer"), QStringLiteral("older")}));
    EXPECT_EQ(probe.calls.first().sequence, second.calls.first().sequence);
}

TEST_F(Posting, InsideAMethodLeavesTheOuterOnesNumberAndBothCount)
{
    addRule(event, probe);
    addRule(event, second);
    ProbeMethod inner(QStringLiteral("inner"));
    addRule(other, inner);
    second.whenCalled = [&] { post(other, QStringLiteral("inside")); };
    post(event, title);
    EXPECT_EQ(second.calls.first().sequence, 0U);
    EXPECT_EQ(inner.calls.first().sequence, 0U);
    EXPECT_EQ(probe.calls.first().sequence, 0U);
    second.whenCalled = nullptr;
    post(event, QStringLiteral("afterwards"));
    EXPECT_EQ(probe.calls.last().sequence, 2U);
}

TEST_F(Posting, OfTheSameEventInsideAMethodIsARepeat)
{
    addRule(event, probe);
    probe.whenCalled = [&] { post(event, title); };
    post(event, title);
    EXPECT_EQ(probe.calls.size(), 1);
}

TEST_F(Posting, DoesNotReachARuleThatAMethodAddsMeanwhile)
{
    addRule(event, probe);
    probe.whenCalled = [&] { addRule(event, second); };
    post(event, title);
    EXPECT_TRUE(second.calls.isEmpty());
    EXPECT_EQ(module().getRules(type(event)).size(), 2);
}

TEST_F(Posting, StillReachesARuleThatAMethodRemovesMeanwhile)
{
    ZepaNotificationRule* later = addRule(event, probe);
    addRule(event, second);
    second.whenCalled = [&] { module().removeNotificationRule(later); };
    post(event, title);
    EXPECT_EQ(probe.calls.size(), 1);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
    post(event, QStringLiteral("afterwards"));
    EXPECT_EQ(probe.calls.size(), 1);
    EXPECT_EQ(second.calls.size(), 2);
}

TEST_F(Posting, MayRemoveTheVeryRuleThatIsCalled)
{
    ZepaNotificationRule* own = addRule(event, probe, {});
    probe.whenCalled = [&] {
        module().removeNotificationRule(own);
        module().removeNotificationRule(own);
    };
    post(event, title);
    EXPECT_EQ(probe.calls.size(), 1);
    EXPECT_TRUE(module().getRules(type(event)).isEmpty());
}

TEST_F(Posting, KeepsARuleThatIsRemovedInsideANestedPostingUntilTheOutermostEnds)
{
    ZepaNotificationRule* later = addRule(event, probe);
    addRule(event, second);
    ProbeMethod inner(QStringLiteral("inner"));
    addRule(other, inner);
    second.whenCalled = [&] { post(other, QStringLiteral("inside")); };
    inner.whenCalled = [&] { module().removeNotificationRule(later); };
    post(event, title);
    EXPECT_EQ(probe.calls.size(), 1);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
}

TEST_F(Posting, MayInstallAMethodMeanwhile)
{
    addRule(event, probe);
    second.setDefaultNotificationConfig(event, {});
    probe.whenCalled = [&] { module().installNotificationMethod(&second); };
    host.writeRuleFile(event, "<rules/>");
    post(event, title);
    EXPECT_EQ(module().getMethods().value(second.getId()), &second);
    EXPECT_TRUE(second.calls.isEmpty());
}

TEST_F(Posting, LetsAMethodsExceptionThroughWithoutCounting)
{
    ZepaNotificationRule* own = addRule(event, probe);
    addRule(other, second);
    probe.whenCalled = [&] {
        module().removeNotificationRule(own);
        throw std::runtime_error("from a method");
    };
    EXPECT_THROW(post(event, title), std::runtime_error);
    post(other, QStringLiteral("afterwards"));
    EXPECT_EQ(second.calls.first().sequence, 0U);
    addRule(event, second);
    post(event, title);
    EXPECT_EQ(second.calls.size(), 1);
}

TEST_F(Posting, EndsWithTheMethodThatTakesTheModuleDown)
{
    ZepaNotificationRule* removed = addRule(event, probe);
    addRule(event, second);
    ProbeMethod inner(QStringLiteral("inner"));
    addRule(other, probe);
    addRule(other, inner);
    second.whenCalled = [&] {
        module().removeNotificationRule(removed);
        post(other, QStringLiteral("inside"));
    };
    inner.whenCalled = [&] { closeModule(); };
    post(event, title);
    EXPECT_EQ(inner.calls.size(), 1);
    EXPECT_TRUE(probe.calls.isEmpty());
    EXPECT_TRUE(module().getNotifications().isEmpty());
}
