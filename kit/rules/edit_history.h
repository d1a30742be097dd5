// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/rules/rule_state.h"

#include <QList>
#include <QString>

#include <variant>

namespace zepa {

/// The rules of one type before and after a change.
struct RuleChange
{
    QString type;
    QList<RuleState> before; ///< newest first, here and below
    QList<RuleState> after;
};

/// A setting of the whole client before and after a change.
struct SettingChange
{
    QString setting;
    QString before;
    QString after;
};

/// One thing that the user did and may take back.
struct EditStep
{
    QString text; ///< what was done, translated: "Add: Message received, Sound"
    std::variant<RuleChange, SettingChange> change;
    /// Steps in a row with the same key, not empty, become one: each tick of a number need not be taken back by itself.
    QString mergeKey;

    /// The identifier of the type or setting that it changed.
    QString subject() const;
};

/// What was done and can be undone, what was undone and can be done again. Knows nothing of how.
class EditHistory
{
public:
    /// A new step; what was undone before is forgotten.
    void add(const EditStep& step);
    bool canUndo() const { return m_next > 0; }
    bool canRedo() const { return m_next < m_steps.size(); }
    /// The step that undo, or redo, is about. Only when there is one.
    const EditStep& toUndo() const { return m_steps[m_next - 1]; }
    const EditStep& toRedo() const { return m_steps[m_next]; }
    void undone() { --m_next; }
    void redone() { ++m_next; }
    /// Drops all steps about this type or setting: it was changed by someone else, so nobody can go back there. Steps
    /// about others do not touch it and stay.
    void forget(const QString& subject);

private:
    QList<EditStep> m_steps;
    qsizetype m_next = 0;
};

} // namespace zepa
