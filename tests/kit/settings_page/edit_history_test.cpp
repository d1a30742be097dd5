// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/edit_history.h"
#include "qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using zepa::EditHistory;
using zepa::EditStep;
using zepa::RuleChange;
using zepa::SettingChange;

namespace {

EditStep step(const QString& text, const QString& subject, const QString& mergeKey = {})
{
    return {text, RuleChange{subject, {}, {}}, mergeKey};
}

EditStep tick(const QString& before, const QString& after)
{
    return {u"tick"_s, SettingChange{u"limit"_s, before, after}, u"limit"_s};
}

} // namespace

TEST(EditHistory, BeginsWithNothing)
{
    const EditHistory history;
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
}

TEST(EditHistory, GivesStepsBackLastOneFirst)
{
    EditHistory history;
    history.add(step(u"one"_s, u"a"_s));
    history.add(step(u"two"_s, u"a"_s));
    EXPECT_EQ(history.toUndo().text, u"two"_s);
    history.undone();
    EXPECT_EQ(history.toUndo().text, u"one"_s);
    EXPECT_EQ(history.toRedo().text, u"two"_s);
    history.redone();
    EXPECT_FALSE(history.canRedo());
}

TEST(EditHistory, ForgetsWhatWasUndoneWhenSomethingElseIsDone)
{
    EditHistory history;
    history.add(step(u"one"_s, u"a"_s));
    history.undone();
    history.add(step(u"two"_s, u"a"_s));
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.toUndo().text, u"two"_s);
    history.undone();
    EXPECT_FALSE(history.canUndo());
}

TEST(EditHistory, MakesOneStepOfTheTicksOfANumber)
{
    EditHistory history;
    history.add(tick(u"5"_s, u"6"_s));
    history.add(tick(u"6"_s, u"7"_s));
    const auto change = std::get<SettingChange>(history.toUndo().change);
    EXPECT_EQ(change.before, u"5"_s);
    EXPECT_EQ(change.after, u"7"_s);
    history.undone();
    EXPECT_FALSE(history.canUndo());
}

TEST(EditHistory, DoesNotMergeAcrossAnotherStep)
{
    EditHistory history;
    history.add(tick(u"5"_s, u"6"_s));
    history.add(step(u"other"_s, u"a"_s));
    history.add(tick(u"6"_s, u"7"_s));
    EXPECT_EQ(std::get<SettingChange>(history.toUndo().change).before, u"6"_s);
}

TEST(EditHistory, ForgetsOnlyTheStepsAboutWhatSomeoneElseChanged)
{
    EditHistory history;
    history.add(step(u"a1"_s, u"a"_s));
    history.add(step(u"b1"_s, u"b"_s));
    history.add(step(u"a2"_s, u"a"_s));
    history.add(step(u"b2"_s, u"b"_s));
    history.undone();
    history.forget(u"a"_s);
    EXPECT_EQ(history.toUndo().text, u"b1"_s);
    EXPECT_EQ(history.toRedo().text, u"b2"_s);
    history.undone();
    EXPECT_FALSE(history.canUndo());
}
