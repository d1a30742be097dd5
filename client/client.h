// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/extra_methods/extra_methods.h"
#include "kit/journal/recorded_methods.h"
#include "kit/rules/protected_module.h"
#include "kit/settings/settings.h"

#include <QString>

#include <functional>

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

    /// As for ProtectedModule.
    bool start() { return m_notifications.start(); }
    bool hasStarted() const { return m_notifications.hasStarted(); }
    void whenStarted(QObject* context, const std::function<void()>& then)
    {
        m_notifications.whenStarted(context, then);
    }

    Settings& settings() { return m_settings; }
    /// Only once the client has started.
    ZepaNotificationModule& module() { return m_notifications.module(); }
    /// Protects the rule files. Changes of rules go through changeSafely(); what a start had to mend is in news().
    RuleBackup& ruleBackup() { return m_notifications.backup(); }
    /// What shows and changes rules works with this. Only once the client has started.
    RuleStore ruleStore() { return m_notifications.ruleStore(m_settings); }
    /// What posts and records works with this. Only once the client has started.
    Recorder recorder() { return m_recorded.recorder(module()); }
    /// Every delivery goes through here.
    DeliveryLog& deliveries() { return m_recorded.deliveries(); }
    /// What was announced, and what became of it.
    Journal& journal() { return m_recorded.journal(); }
    /// The delivery methods that this client brings beside the library's own.
    const ExtraMethods& extraMethods() const { return m_extraMethods; }

private:
    // The module goes first: its rules call the methods, and it asks for the settings.
    Settings m_settings;
    ExtraMethods m_extraMethods;
    RecordedMethods m_recorded;
    ProtectedModule m_notifications;
};

} // namespace zepa
