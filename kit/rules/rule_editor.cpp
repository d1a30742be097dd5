// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_editor.h"

#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "kit/rules/method_titles.h"
#include "kit/rules/rule_backup.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/rule_sync.h"
#include "kit/settings/setting_store.h"
#include "kit/values/field_value.h"

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// Where in `rules` the rule stands that is number `index` of its method, or else another one that is equal to it; -1
/// when there is none.
qsizetype placeOf(const QList<RuleState>& rules, const RuleState& rule, qsizetype index)
{
    qsizetype equal = -1;
    for (qsizetype place = 0; place < rules.size(); ++place) {
        if (rules[place].method != rule.method)
            continue;
        const bool isThatNumber = index-- == 0;
        if (rules[place] != rule)
            continue;
        if (isThatNumber)
            return place;
        equal = place;
    }
    return equal;
}

bool sameButForOrder(const QList<RuleState>& a, const QList<RuleState>& b)
{
    return a.size() == b.size() && std::is_permutation(a.cbegin(), a.cend(), b.cbegin());
}

/// The setting with that identifier; without type when there is none.
ZepaField findSetting(const QList<ZepaField>& all, const QString& id)
{
    const auto found =
        std::find_if(all.cbegin(), all.cend(), [&id](const ZepaField& field) { return field.getId() == id; });
    return found == all.cend() ? ZepaField() : *found;
}

} // namespace

RuleEditor::RuleEditor(const RuleStore& store, QObject* parent) : QObject(parent), m_store(store), m_problem(store)
{
    remember();
}

QList<RuleState> RuleEditor::rules(const QString& type, const QString& method) const
{
    QList<RuleState> rules = rulesOf(module(), type);
    rules.removeIf([&method](const RuleState& rule) { return rule.method != method; });
    return rules;
}

QList<ZepaField> RuleEditor::settings() const
{
    return m_store.settings.offered();
}

ZepaField RuleEditor::setting(const ZepaField& field) const
{
    return m_store.settings.value(field);
}

void RuleEditor::add(const QString& type, const QString& method)
{
    if (!module().getMethods().contains(method))
        return;
    whenLocked([this, type, method] { addNow(type, method); });
}

void RuleEditor::addNow(const QString& type, const QString& method)
{
    QList<RuleState> after = rulesOf(module(), type);
    after.prepend({method, initialFields(module(), type, method)});
    edit(tr("Add: %1").arg(pairName(type, method)), type, after);
}

void RuleEditor::remove(const QString& type, const QString& method, qsizetype index)
{
    const QList<RuleState> shown = rules(type, method);
    if (index < 0 || index >= shown.size())
        return;
    whenLocked([this, type, method, index, rule = shown[index]] {
        QList<RuleState> after = rulesOf(module(), type);
        const qsizetype place = placeOf(after, rule, index);
        if (place < 0)
            return;
        after.removeAt(place);
        edit(tr("Remove: %1").arg(pairName(type, method)), type, after);
    });
}

void RuleEditor::toggle(const QString& type, const QString& method)
{
    if (module().getNotificationRule(type, method))
        return remove(type, method);
    if (!module().getMethods().contains(method))
        return;
    // What the mark shows decides, not what someone else made of it meanwhile.
    whenLocked([this, type, method] {
        if (!module().getNotificationRule(type, method))
            addNow(type, method);
    });
}

void RuleEditor::change(const QString& type, const QString& method, qsizetype index, const QString& field,
                        const QString& value)
{
    const QList<RuleState> shown = rules(type, method);
    if (index < 0 || index >= shown.size())
        return;
    whenLocked([this, type, method, index, field, value, rule = shown[index]] {
        QList<RuleState> after = rulesOf(module(), type);
        const qsizetype place = placeOf(after, rule, index);
        if (place < 0)
            return;
        for (ZepaField& candidate : after[place].fields) {
            if (candidate.getId() != field || candidate.getText() == value || !fieldAllows(candidate, value))
                continue;
            candidate.setText(value);
            const bool ticks = candidate.getType() == ZepaField::SpinBox;
            edit(tr("Change: %1, %2").arg(pairName(type, method), candidate.getLabel()), type, after,
                 ticks ? u"%1/%2/%3/%4"_s.arg(type, method, QString::number(index), field) : QString());
            return;
        }
    });
}

void RuleEditor::restoreDefaults(const QString& type)
{
    whenLocked([this, type] {
        if (!hasDefaults(type))
            edit(tr("Restore defaults: %1").arg(typeName(module(), type)), type, defaultRulesOf(module(), type));
    });
}

bool RuleEditor::hasDefaults(const QString& type) const
{
    return sameButForOrder(rulesOf(module(), type), defaultRulesOf(module(), type));
}

void RuleEditor::changeSetting(const ZepaField& field, const QString& value)
{
    whenLocked([this, field, value] { changeSettingNow(field, value); }, Needs::Nothing);
}

void RuleEditor::changeSettingNow(const ZepaField& field, const QString& value)
{
    const QString before = setting(field).getText();
    if (before == value || !fieldAllows(field, value))
        return;
    EditStep step{tr("Change: %1").arg(field.getLabel()), SettingChange{field.getId(), before, value}, {}};
    if (field.getType() == ZepaField::SpinBox)
        step.mergeKey = field.getId();
    // A stored value that the field does not offer cannot be stored again.
    if (!carryOut(step, false) || !fieldAllows(field, before))
        return;
    m_history.add(step);
    Q_EMIT historyChanged();
}

QString RuleEditor::undoText() const
{
    return m_history.canUndo() ? m_history.toUndo().text : QString();
}

QString RuleEditor::redoText() const
{
    return m_history.canRedo() ? m_history.toRedo().text : QString();
}

void RuleEditor::undo()
{
    whenLocked([this] {
        if (!m_history.canUndo() || !carryOut(m_history.toUndo(), true))
            return;
        const QString text = m_history.toUndo().text;
        m_history.undone();
        Q_EMIT historyChanged();
        Q_EMIT said(tr("Undone: %1").arg(text));
    });
}

void RuleEditor::redo()
{
    whenLocked([this] {
        if (!m_history.canRedo() || !carryOut(m_history.toRedo(), false))
            return;
        const QString text = m_history.toRedo().text;
        m_history.redone();
        Q_EMIT historyChanged();
        Q_EMIT said(tr("Redone: %1").arg(text));
    });
}

void RuleEditor::retry()
{
    whenLocked([this] {
        const QStringList types = m_problem.notStored();
        for (const QString& type : types) {
            const auto store = [this, &type] {
                module().storeNotificationRules(module().getNotifications().value(type));
            };
            const SafeChange outcome = changeSafely(module(), m_store.backup, *m_lock, type, store);
            // The change itself was made long ago: refused now means that it is still not stored.
            note(outcome == SafeChange::Refused ? SafeChange::NotStored : outcome, type);
        }
        if (m_problem.text().isEmpty())
            Q_EMIT said(tr("All rules are stored now."));
    });
}

/// Calls `work` with the lock, with rules as the files hold them, and in the order of the calls. What needs nothing is
/// called also when the lock cannot be had.
void RuleEditor::whenLocked(const std::function<void()>& work, Needs needs)
{
    m_waiting.append({work, needs});
    if (m_waiting.size() == 1)
        takeLock();
}

void RuleEditor::takeLock()
{
    zepa::whenLocked(m_store.backup.ruleFolder(), this, [this](RuleLock& lock) { carryOutWaiting(lock); });
}

void RuleEditor::carryOutWaiting(RuleLock& lock)
{
    auto all = std::exchange(m_waiting, {});
    m_lock = &lock;
    while (!all.isEmpty() && carryOut(all.first(), lock))
        all.removeFirst();
    m_lock = nullptr;
    if (all.isEmpty())
        return;
    // Others get the rule files meanwhile.
    m_waiting = all + m_waiting;
    constexpr std::chrono::milliseconds timeBetweenAttempts{20};
    QTimer::singleShot(timeBetweenAttempts, this, &RuleEditor::takeLock);
}

/// False when it has to be tried again.
bool RuleEditor::carryOut(Waiting& waiting, const RuleLock& lock)
{
    if (!lock.isHeld() && lock.isPossible() && waiting.needs == Needs::RuleFiles) {
        m_problem.noteBusy();
        Q_EMIT problemChanged();
        return true;
    }
    if (lock.isHeld())
        bringUpToDate(module(), m_store.backup);
    lookForChanges();
    waiting.work();
    if (!std::exchange(m_isSettingsFileBusy, false))
        return true;
    if (!waiting.deadline)
        waiting.deadline.emplace(RuleLock::timeout);
    if (!waiting.deadline->hasExpired())
        return false;
    m_problem.noteBusySettings();
    Q_EMIT problemChanged();
    return true;
}

void RuleEditor::refresh()
{
    // Who works on the files just now is looked at when it is done, before anything is changed here.
    RuleLock lock(m_store.backup.ruleFolder());
    if (!m_lock && lock.tryNow())
        bringUpToDate(module(), m_store.backup);
    lookForChanges();
}

void RuleEditor::lookForChanges()
{
    bool history = false;
    const QStringList types = module().getNotifications().keys();
    QStringList methods = module().getMethods().keys();
    methods.sort();
    if (methods != m_methods || types.size() != m_rules.size()) {
        remember();
        m_history = {};
        Q_EMIT tableChanged();
        Q_EMIT historyChanged();
        return;
    }
    for (const QString& type : types) {
        if (!rememberType(type))
            continue;
        m_history.forget(type);
        history = true;
        Q_EMIT rulesChanged(type);
    }
    const QList<ZepaField> settings = m_store.settings.offered();
    for (const ZepaField& field : settings) {
        const QString value = setting(field).getText();
        if (m_settings.value(field.getId()) == value)
            continue;
        m_settings.insert(field.getId(), value);
        m_history.forget(field.getId());
        history = true;
        Q_EMIT settingChanged(field.getId());
    }
    if (!history)
        return;
    Q_EMIT historyChanged();
    Q_EMIT said(tr("Rules or settings were changed outside this window."));
}

void RuleEditor::edit(const QString& text, const QString& type, const QList<RuleState>& after, const QString& mergeKey)
{
    const EditStep step{text, RuleChange{type, rulesOf(module(), type), after}, mergeKey};
    if (!module().getNotifications().contains(type) || !carryOut(step, false))
        return;
    m_history.add(step);
    Q_EMIT historyChanged();
}

/// False when nothing was changed; problem() tells why.
bool RuleEditor::carryOut(const EditStep& step, bool back)
{
    return std::visit([this, back](const auto& change) { return carryOut(change, back); }, step.change);
}

bool RuleEditor::carryOut(const RuleChange& change, bool back)
{
    const auto apply = [this, &change, back] {
        applyRules(module(), change.type, back ? change.before : change.after);
    };
    const SafeChange outcome = changeSafely(module(), m_store.backup, *m_lock, change.type, apply);
    note(outcome, change.type);
    if (outcome == SafeChange::Refused || outcome == SafeChange::Busy)
        return false;
    rememberType(change.type);
    Q_EMIT rulesChanged(change.type);
    return true;
}

bool RuleEditor::carryOut(const SettingChange& change, bool back)
{
    const ZepaField field = findSetting(m_store.settings.offered(), change.setting);
    const SettingStore::Outcome stored = m_store.settings.tryToStore(field, back ? change.before : change.after);
    if (stored == SettingStore::Outcome::Busy) {
        m_isSettingsFileBusy = true;
        return false;
    }
    const bool isStored = stored == SettingStore::Outcome::Done;
    m_problem.noteSetting(field, isStored);
    Q_EMIT problemChanged();
    if (!isStored)
        return false;
    m_settings.insert(change.setting, setting(field).getText());
    Q_EMIT settingChanged(change.setting);
    return true;
}

void RuleEditor::note(SafeChange outcome, const QString& type)
{
    m_problem.noteRules(outcome, type);
    Q_EMIT problemChanged();
}

void RuleEditor::remember()
{
    m_rules.clear();
    const QStringList types = module().getNotifications().keys();
    for (const QString& type : types)
        rememberType(type);
    const QList<ZepaField> settings = m_store.settings.offered();
    for (const ZepaField& field : settings)
        m_settings.insert(field.getId(), setting(field).getText());
    m_methods = module().getMethods().keys();
    m_methods.sort();
}

/// Whether the rules are others than when they were last looked at.
bool RuleEditor::rememberType(const QString& type)
{
    const QList<RuleState> now = rulesOf(module(), type);
    const bool differs = m_rules.value(type) != now;
    m_rules.insert(type, now);
    return differs;
}

QString RuleEditor::pairName(const QString& type, const QString& method) const
{
    const ZepaNotificationMethod* found = module().getMethods().value(method);
    return tr("%1, %2").arg(typeName(module(), type), found ? methodTitle(*found) : method);
}

ZepaNotificationModule& RuleEditor::module() const
{
    return m_store.module;
}

} // namespace zepa
