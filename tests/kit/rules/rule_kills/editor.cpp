// SPDX-License-Identifier: Apache-2.0
#include "editor.h"

#include "client/client.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "kit/rules/rule_backup.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/rule_state.h"
#include "kit/rules/safe_change.h"
#include "kit/settings/settings.h"
#include "ledger.h"
#include "rule_list.h"

#include <functional>
#include <memory>
#include <optional>
#include <random>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString sound = u"zepa_sound_notification_method"_s;

/// What the client is made of, where its built-in types would not fit on the disk.
class SmallClient
{
public:
    explicit SmallClient(const QString& folder) : m_settings(folder), m_backup(m_settings.getSettingsDir(), types)
    {
        zepa::RuleLock lock(m_backup.ruleFolder());
        if (!lock.wait())
            _exit(1);
        m_backup.restore();
        m_module.reset(ZepaNotificationModule::getInstance());
        for (const QString& type : types)
            m_module->registerNotification(type, {}, {}, {});
        m_backup.started();
    }
    ZepaNotificationModule& module() { return *m_module; }
    zepa::RuleBackup& ruleBackup() { return m_backup; }

private:
    static inline const QStringList types{u"one"_s, u"two"_s, u"three"_s, u"four"_s, u"five"_s};

    zepa::Settings m_settings;
    zepa::RuleBackup m_backup;
    std::unique_ptr<ZepaNotificationModule> m_module;
};

class Editor
{
public:
    Editor(const EditorPlan& plan, ZepaNotificationModule& module, zepa::RuleBackup& backup)
        : m_plan(plan), m_module(module), m_backup(backup), m_random(plan.seed)
    {
        m_types = module.getNotifications().keys();
        m_types.sort();
        const QList<ZepaField> fields = module.getMethods().value(sound)->fields;
        m_soundField = fields.constFirst().getId();
    }

    void reportFound()
    {
        for (const QString& type : std::as_const(m_types))
            say("found", type, textsOf(rulesOf(m_module, type)));
        write("mended " + QByteArray::number(m_backup.restored().size() + m_backup.reset().size()) + '\n');
        write("ready\n");
    }

    /// One change; false when there is no use in going on.
    bool edit()
    {
        const QString type = m_types[below(m_types.size())];
        RuleList rules = rulesOf(m_module, type);
        const auto dice = below(10);
        if (dice == 0 && (!m_plan.fewTypes || below(10) == 0))
            return replaceAll(type);
        if (dice < 4 && rules.size() < m_plan.mostRules)
            return add(type, rules);
        if (dice < 7 && !rules.isEmpty())
            return remove(type, rules);
        return update(type, rules);
    }

private:
    bool add(const QString& type, RuleList rules)
    {
        const QString file = newFile();
        rules.prepend(soundRule(file));
        return carryOut(type, rules, [&] {
            QList<ZepaField> config = configWith(file);
            m_module.addNotificationRule(type, sound, config);
        });
    }

    bool remove(const QString& type, RuleList rules)
    {
        const QString method = rules[below(rules.size())].method;
        for (qsizetype i = 0; i < rules.size(); ++i) {
            if (rules[i].method != method)
                continue;
            rules.removeAt(i);
            break;
        }
        return carryOut(type, rules, [&] { m_module.removeNotificationRule(type, method); });
    }

    bool update(const QString& type, RuleList rules)
    {
        const QString file = newFile();
        bool isThere = false;
        for (RuleValue& rule : rules) {
            if (rule.method != sound)
                continue;
            rule = soundRule(file);
            isThere = true;
            break;
        }
        if (!isThere)
            rules.prepend(soundRule(file));
        return carryOut(type, rules, [&] {
            QList<ZepaField> config = configWith(file);
            zepa::updateRule(m_module, type, sound, config);
        });
    }

    /// What an undo is made of: every rule goes, and then come others, with a file on the disk after each step.
    bool replaceAll(const QString& type)
    {
        const QStringList files{newFile(), newFile()};
        const RuleList rules{soundRule(files[1]), soundRule(files[0])};
        return carryOut(type, rules, [&] {
            ZepaNotification* notification = m_module.getNotifications().value(type);
            while (!m_module.getRules(notification).isEmpty())
                m_module.removeNotificationRule(m_module.getRules(notification).constFirst());
            for (const QString& file : files) {
                QList<ZepaField> config = configWith(file);
                m_module.addNotificationRule(type, sound, config);
            }
        });
    }

    bool carryOut(const QString& type, const RuleList& wanted, const std::function<void()>& change)
    {
        using zepa::SafeChange;
        const QStringList texts = textsOf(wanted);
        say("tries", type, texts);
        zepa::RuleLock lock(m_backup.ruleFolder());
        const SafeChange result = changeSafely(m_module, m_backup, lock, type, change);
        switch (result) {
        case SafeChange::Stored:
        case SafeChange::StoredWithoutCopy:
            say("stored", type, textsOf(rulesOf(m_module, type)));
            return true;
        case SafeChange::NotStored:
            say("unstored", type, texts);
            return false;
        case SafeChange::Refused:
        case SafeChange::Busy:
            say("refused", type, texts);
            // Somebody may make room.
            usleep(1000);
            return true;
        }
        return false;
    }

    RuleValue soundRule(const QString& file) const { return {sound, {{m_soundField, file}}}; }
    QList<ZepaField> configWith(const QString& file) const
    {
        QList<ZepaField> config = m_module.getMethods().value(sound)->fields;
        for (ZepaField& field : config)
            field.setText(file);
        return config;
    }
    /// A value that no rule ever had.
    QString newFile() { return u"%1-%2 ä.wav"_s.arg(m_plan.seed).arg(++m_edits); }
    qsizetype below(qsizetype end) { return std::uniform_int_distribution<qsizetype>(0, end - 1)(m_random); }

    void say(const char* what, const QString& type, const QStringList& rules) { write(reportLine(what, type, rules)); }
    void write(const QByteArray& bytes) const
    {
        if (::write(m_plan.report, bytes.constData(), static_cast<std::size_t>(bytes.size())) != bytes.size())
            _exit(1);
    }

    const EditorPlan m_plan;
    ZepaNotificationModule& m_module;
    zepa::RuleBackup& m_backup;
    QStringList m_types;
    QString m_soundField;
    std::mt19937 m_random;
    int m_edits = 0;
};

template <typename Client>
void run(Client& client, const EditorPlan& plan)
{
    Editor editor(plan, client.module(), client.ruleBackup());
    editor.reportFound();
    while (!plan.editsNothing && editor.edit()) {
    }
}

} // namespace

void runEditor(const EditorPlan& plan)
{
    if (plan.fewTypes) {
        SmallClient client(plan.folder);
        run(client, plan);
    } else {
        zepa::Client client(plan.folder);
        run(client, plan);
    }
}
