// SPDX-License-Identifier: Apache-2.0
#include "client/rules/edit_history.h"
#include "qt_printers.h"

#include <gtest/gtest.h>

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
    return {QStringLiteral("tick"), SettingChange{QStringLiteral("limit"), before, after}, QStringLiteral("limit")};
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
    history.add(step(QStringLiteral("one"), QStringLiteral("a")));
    history.add(step(QStringLiteral("two"), QStringLiteral("a")));
    EXPECT_EQ(history.toUndo().text, QStringLiteral("two"));
    history.undone();
    EXPECT_EQ(history.toUndo().text, QStringLiteral("one"));
    EXPECT_EQ(history.toRedo().text, QStringLiteral("two"));
    history.redone();
    EXPECT_FALSE(history.canRedo());
}

TEST(EditHistory, ForgetsWhatWasUndoneWhenSomethingElseIsDone)
{
    EditHistory history;
    history.add(step(QStringLiteral("one"), QStringLiteral("a")));
    history.undone();
    history.add(step(QStringLiteral("two"), QStringLiteral("a")));
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.toUndo().text, QStringLiteral("two"));
    history.undone();
    EXPECT_FALSE(history.canUndo());
}

TEST(EditHistory, MakesOneStepOfTheTicksOfANumber)
{
    EditHistory history;
    history.add(tick(QStringLiteral("5"), QStringLiteral("6")));
    history.add(tick(QStringLiteral("6"), QStringLiteral("7")));
    const auto change = std::get<SettingChange>(history.toUndo().change);
    EXPECT_EQ(change.before, QStringLiteral("5"));
    EXPECT_EQ(change.after, QStringLiteral("7"));
    history.undone();
    EXPECT_FALSE(history.canUndo());
}

TEST(EditHistory, DoesNotMergeAcrossAnotherStep)
{
    EditHistory history;
    history.add(tick(QStringLiteral("5"), QStringLiteral("6")));
    history.add(step(QStringLiteral("other"), QStringLiteral("a")));
    history.add(tick(QStringLiteral("6"), QStringLiteral("7")));
    EXPECT_EQ(std::get<SettingChange>(history.toUndo().change).before, QStringLiteral("6"));
}

TEST(EditHistory, ForgetsOnlyTheStepsAboutWhatSomeoneElseChanged)
{
    EditHistory history;
    history.add(step(QStringLiteral("a1"), QStringLiteral("a")));
    history.add(step(QStringLiteral("b1"), QStringLiteral("b")));
    history.add(step(QStringLiteral("a2"), QStringLiteral("a")));
    history.add(step(QStringLiteral("b2"), QStringLiteral("b")));
    history.undone();
    history.forget(QStringLiteral("a"));
    EXPECT_EQ(history.toUndo().text, QStringLiteral("b1"));
    EXPECT_EQ(history.toRedo().text, QStringLiteral("b2"));
    history.undone();
    EXPECT_FALSE(history.canUndo());
}
