// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/extra_methods/extra_methods.h"
#include "kit/journal/delivery_log.h"
#include "kit/journal/journal.h"
#include "kit/journal/recorder.h"
#include "kit/journal/recording_method.h"
#include "kit/rules/rule_backup.h"
#include "kit/rules/rule_store.h"
#include "kit/settings/settings.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class ZepaNotificationModule;

namespace zepa {

/// The client while it runs: its settings, and the notification module made ready on top of them. One at a time;
/// needs a QApplication.
class Client
{
public:
    /// Starting touches the disk, the session bus and the status area. A window that is to be there at once is shown
    /// first, with the settings alone.
    enum class Start { Now, Later };

    /// Reads the settings in that folder, and starts: look at hasStarted(). Without settings().isUsable() stored rules
    /// are in use, if there are any, and nothing that changes is kept.
    explicit Client(const QString& settingsFolder, Start start = Start::Now);
    ~Client();
    Q_DISABLE_COPY_MOVE(Client)

    /// Makes the module ready; does nothing the second time. Waits for other clients that work on the rule files. False
    /// when they take longer than RuleLock::timeout: nothing was read and nothing written.
    bool start();
    bool hasStarted() const { return m_hasStarted; }
    /// Starts without ever blocking, and calls `then` when that is done, unless `context` is gone by then. At once when
    /// nothing is in the way; otherwise it waits for as long as it takes.
    void whenStarted(QObject* context, const std::function<void()>& then);

    Settings& settings() { return m_settings; }
    /// Only once the client has started.
    ZepaNotificationModule& module() { return *m_module; }
    /// Protects the rule files. Changes of rules go through changeSafely(); what a start had to mend is in news().
    RuleBackup& ruleBackup() { return m_ruleBackup; }
    /// What shows and changes rules works with this. Only once the client has started.
    RuleStore ruleStore() { return {*m_module, m_ruleBackup, m_settings}; }
    /// What posts and records works with this. Only once the client has started.
    Recorder recorder() { return {*m_module, m_deliveries, m_journal}; }
    /// Every delivery goes through here.
    DeliveryLog& deliveries() { return m_deliveries; }
    /// What was announced, and what became of it.
    Journal& journal() { return m_journal; }
    /// The delivery methods that this client brings beside the library's own.
    const ExtraMethods& extraMethods() const { return m_outside; }

private:
    void makeModule();
    void watchMethods();
    void startWaiting();
    void startNow();

    Settings m_settings;
    RuleBackup m_ruleBackup;
    DeliveryLog m_deliveries;
    Journal m_journal;
    ExtraMethods m_outside;
    std::vector<std::unique_ptr<RecordingMethod>> m_watched;
    std::unique_ptr<ZepaNotificationModule> m_module;
    QStringList m_typesWithDefaults;
    bool m_hasStarted = false;
    std::vector<std::pair<QPointer<QObject>, std::function<void()>>> m_waiting;
    QObject m_context;
};

} // namespace zepa
