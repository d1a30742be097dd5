// SPDX-License-Identifier: Apache-2.0
#include "module_test.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString event = u"event"_s;
const QString other = u"other"_s;
const QString title = u"title"_s;

class Posting : public ModuleTest
{
protected:
    Posting()
    {
        registerType(event);
        registerType(other);
    }

    ProbeMethod probe;
    ProbeMethod second{u"second"_s};
};

} // namespace

TEST_F(Posting, ReadsItsLimitFromASpinBoxOf300And0And5)
{
    post(event, title);
    ASSERT_EQ(host.settingsRead.size(), 1);
    const ZepaField field = host.settingsRead.first();
    EXPECT_EQ(field.getId(), u"duplicated_notifications_time"_s);
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
    module().postNotification(event, u"a"_s, u"b"_s, u"c"_s, u"d"_s, ZepaPluginAction([] {}), {ZepaArg()});
    ASSERT_EQ(probe.calls.size(), 1);
    const ProbeCall& call = probe.calls.first();
    EXPECT_EQ(QStringList({call.title, call.text, call.icon, call.extra}).join(QLatin1Char(' ')), u"a b c d"_s);
    EXPECT_EQ(call.notification, type(event));
    EXPECT_TRUE(call.actionIsValid);
    EXPECT_EQ(call.argCount, 1);
}

TEST_F(Posting, IsDroppedWhenItRepeatsTypeAndTitle)
{
    addRule(event, probe);
    post(event, title);
    module().postNotification(event, title, u"another text"_s, QString(), QString(), ZepaPluginAction(), {});
    EXPECT_EQ(probe.calls.size(), 1);
}

TEST_F(Posting, IsDeliveredTwiceForOneTypeWithTwoTitles)
{
    addRule(event, probe);
    post(event, u"one"_s);
    post(event, u"two"_s);
    EXPECT_EQ(probe.calls.size(), 2);
}

TEST_F(Posting, SharesAKeyWhenIdentifierAndTitleRunTogetherToTheSameText)
{
    registerType(u"a"_s);
    registerType(u"ab"_s);
    addRule(u"ab"_s, probe);
    post(u"a"_s, u"bc"_s);
    post(u"ab"_s, u"c"_s);
    EXPECT_TRUE(probe.calls.isEmpty());
}

TEST_F(Posting, OfAnUnknownTypeDeliversNothingDoesNotCountAndBlocksItsOwnRepeat)
{
    post(u"unknown"_s, title);
    registerType(u"unknown"_s);
    addRule(u"unknown"_s, probe);
    post(u"unknown"_s, title);
    EXPECT_TRUE(probe.calls.isEmpty());
    post(u"unknown"_s, u"another title"_s);
    ASSERT_EQ(probe.calls.size(), 1);
    EXPECT_EQ(probe.calls.first().sequence, 0U);
}

TEST_F(Posting, OfATypeWithoutRulesCounts)
{
    post(other, u"one"_s);
    post(other, u"two"_s);
    addRule(event, probe);
    post(event, title);
    EXPECT_EQ(probe.calls.first().sequence, 2U);
}

TEST_F(Posting, DoesNotCountWhenItIsDropped)
{
    addRule(event, probe);
    post(event, u"one"_s);
    post(event, u"one"_s);
    post(event, u"two"_s);
    EXPECT_EQ(probe.calls.last().sequence, 1U);
}

TEST_F(Posting, CallsTwoRulesWithOneNumberNewestFirst)
{
    addRule(event, probe);
    addRule(event, second);
    QStringList order;
    probe.whenCalled = [&] { order.append(u"older"_s); };
    second.whenCalled = [&] { order.append(u"newer"_s); };
    post(event, title);
    EXPECT_EQ(order, QStringList({u"newer"_s, u"older"_s}));
    EXPECT_EQ(probe.calls.first().sequence, second.calls.first().sequence);
}

TEST_F(Posting, InsideAMethodLeavesTheOuterOnesNumberAndBothCount)
{
    addRule(event, probe);
    addRule(event, second);
    ProbeMethod inner(u"inner"_s);
    addRule(other, inner);
    second.whenCalled = [&] { post(other, u"inside"_s); };
    post(event, title);
    EXPECT_EQ(second.calls.first().sequence, 0U);
    EXPECT_EQ(inner.calls.first().sequence, 0U);
    EXPECT_EQ(probe.calls.first().sequence, 0U);
    second.whenCalled = nullptr;
    post(event, u"afterwards"_s);
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
    post(event, u"afterwards"_s);
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
    ProbeMethod inner(u"inner"_s);
    addRule(other, inner);
    second.whenCalled = [&] { post(other, u"inside"_s); };
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
    post(other, u"afterwards"_s);
    EXPECT_EQ(second.calls.first().sequence, 0U);
    addRule(event, second);
    post(event, title);
    EXPECT_EQ(second.calls.size(), 1);
}

TEST_F(Posting, EndsWithTheMethodThatTakesTheModuleDown)
{
    ZepaNotificationRule* removed = addRule(event, probe);
    addRule(event, second);
    ProbeMethod inner(u"inner"_s);
    addRule(other, probe);
    addRule(other, inner);
    second.whenCalled = [&] {
        module().removeNotificationRule(removed);
        post(other, u"inside"_s);
    };
    inner.whenCalled = [&] { closeModule(); };
    post(event, title);
    EXPECT_EQ(inner.calls.size(), 1);
    EXPECT_TRUE(probe.calls.isEmpty());
    EXPECT_TRUE(module().getNotifications().isEmpty());
}
