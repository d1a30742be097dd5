// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"
#include "kit/rules/edit_history.h"
#include "kit/rules/rule_state.h"
#include "kit/rules/rule_store.h"
#include "kit/rules/safe_change.h"
#include "kit/rules/storage_status.h"

#include <QDeadlineTimer>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class ZepaNotificationModule;

namespace zepa {

class RuleLock;

/// Changes rules and settings of the whole client for a window, and can take every change back.
///
/// All goes through the public operations of the module and of the settings, and is on disk when a call returns, with
/// its copy. Where that did not work, which the module itself does not say, problem() does. While another client works
/// on the files, changes wait for it without blocking and in their order: the call returns and changes nothing yet, and
/// the signals tell when it is done, or problem() that it was refused. What the store names must outlive this object.
///
/// A pair of type and method may have several rules; `index` counts them from the newest, 0, on. All of them act. The
/// module calls the newest first; which one that is changes with every start of the client, since files are written
/// newest first and read as oldest first.
class RuleEditor : public QObject
{
    Q_OBJECT

public:
    explicit RuleEditor(const RuleStore& store, QObject* parent = nullptr);

    /// The rules of the pair, newest first.
    QList<RuleState> rules(const QString& type, const QString& method) const;
    /// The settings that the store offers, with their initial values.
    QList<ZepaField> settings() const;
    /// The setting that `field` describes, with its current value.
    ZepaField setting(const ZepaField& field) const;

    /// Adds a rule with the method's default settings for the type, in front of the others.
    void add(const QString& type, const QString& method);
    /// Removes one rule of the pair: the one that stands at `index` now, also when others come or go meanwhile.
    void remove(const QString& type, const QString& method, qsizetype index = 0);
    /// Removes the newest rule of the pair; adds one when there is none.
    void toggle(const QString& type, const QString& method);
    /// Gives one field of a rule the value that `value` spells, as ZepaField::getText() does. A value that the field
    /// does not allow changes nothing.
    void change(const QString& type, const QString& method, qsizetype index, const QString& field,
                const QString& value);
    /// Gives the type the rules that it had when the client was new.
    void restoreDefaults(const QString& type);
    /// Whether restoreDefaults() would change nothing but the order.
    bool hasDefaults(const QString& type) const;
    void changeSetting(const ZepaField& field, const QString& value);

    /// What undo() would take back and redo() do again, in words; empty when there is nothing.
    QString undoText() const;
    QString redoText() const;
    /// Takes the last change back, the order of rules included.
    void undo();
    void redo();

    /// What could not be written, in words for the user; empty when all is well.
    const QString& problem() const { return m_problem.text(); }
    /// Whether a change is in memory and not in its file: retry() may help. Else the change was not made at all.
    bool canRetry() const { return !m_problem.notStored().isEmpty(); }
    /// Writes again what could not be written.
    void retry();

public Q_SLOTS:
    /// Looks whether someone else changed rules or settings meanwhile, and tells by the signals. Steps that could only
    /// be undone over such a change are forgotten.
    void refresh();

Q_SIGNALS:
    /// The rules of this type are others than before.
    void rulesChanged(const QString& type);
    void settingChanged(const QString& setting);
    /// Types or methods came or went.
    void tableChanged();
    /// undoText() or redoText() may be others.
    void historyChanged();
    void problemChanged();
    /// Something to tell the user, translated.
    void said(const QString& text);

private:
    /// What a change needs before it can be made.
    enum class Needs { RuleFiles, Nothing };
    struct Waiting
    {
        std::function<void()> work;
        Needs needs;
        /// When a busy settings file is given up; set at the first attempt.
        std::optional<QDeadlineTimer> deadline = {};
    };

    void whenLocked(const std::function<void()>& work, Needs needs = Needs::RuleFiles);
    void takeLock();
    void carryOutWaiting(RuleLock& lock);
    bool carryOut(Waiting& waiting, const RuleLock& lock);
    void lookForChanges();
    void addNow(const QString& type, const QString& method);
    void changeSettingNow(const ZepaField& field, const QString& value);
    void edit(const QString& text, const QString& type, const QList<RuleState>& after, const QString& mergeKey = {});
    bool carryOut(const EditStep& step, bool back);
    bool carryOut(const RuleChange& change, bool back);
    bool carryOut(const SettingChange& change, bool back);
    void note(SafeChange outcome, const QString& type);
    void remember();
    bool rememberType(const QString& type);
    QString pairName(const QString& type, const QString& method) const;
    ZepaNotificationModule& module() const;

    const RuleStore m_store;
    EditHistory m_history;
    StorageStatus m_problem;
    QHash<QString, QList<RuleState>> m_rules;
    QHash<QString, QString> m_settings;
    QStringList m_methods;
    /// What is to be done when the lock is ours.
    QList<Waiting> m_waiting;
    /// The change that was just tried met a busy settings file and is to be tried again.
    bool m_isSettingsFileBusy = false;
    /// Not null while it is being done.
    RuleLock* m_lock = nullptr;
};

} // namespace zepa
