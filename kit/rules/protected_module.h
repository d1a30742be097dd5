// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"
#include "kit/rules/rule_backup.h"
#include "kit/rules/rule_store.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class ZepaNotificationMethod;
class ZepaNotificationModule;

namespace zepa {

/// A type of the client's own, as ZepaNotificationModule::registerNotification() takes it.
struct NotificationType
{
    QString id;
    QString name;
    QString extra = {};
    QString description = {};
};

/// What a client adds to the module. All of it is in the module before any rule is read.
struct ModuleAdditions
{
    /// Registered behind the built-in types. Their rule files are protected like those of the others.
    QList<NotificationType> types = {};
    /// Installed behind the built-in ones. They must outlive the ProtectedModule.
    QList<ZepaNotificationMethod*> methods = {};
    /// Called once when all methods are installed and no type is registered yet, for example to put other methods in
    /// front of them (RecordedMethods).
    std::function<void(ZepaNotificationModule&)> wrapMethods = {};
};

/// The notification module from its start to its end, on rule files that a crash or another program may have left
/// damaged or may be changing at this moment.
///
/// A start makes the module, installs methods, takes the RuleLock, puts back what is broken, registers the types, and
/// gives the lock back. One object at a time, on the main thread; it needs a QGuiApplication and the host's services,
/// which must outlive it. Translators are installed before it starts.
class ZEPA_KIT_EXPORT ProtectedModule
{
public:
    /// Makes nothing yet and reads no file. The rules are those in ZepaSettingsManager::getSettingsDir().
    explicit ProtectedModule(ModuleAdditions additions = {});
    /// Takes the module down.
    ~ProtectedModule();
    Q_DISABLE_COPY_MOVE(ProtectedModule)

    /// Starts; does nothing the second time. Waits for other programs that work on the rule files. False when they take
    /// longer than RuleLock::timeout: no rule was read and nothing written.
    bool start();
    bool hasStarted() const { return m_hasStarted; }
    /// Starts without ever blocking, and calls `then` when that is done, unless `context` is gone by then. At once when
    /// nothing is in the way; otherwise it waits for as long as it takes. For programs that stay: unlike start(), it
    /// also brings the copies of all rule files up to date.
    void whenStarted(QObject* context, const std::function<void()>& then);

    /// Only once it has started, here and below.
    ZepaNotificationModule& module() const { return *m_module; }
    /// What shows and changes rules works with this. `settings` must outlive the objects that use it.
    RuleStore ruleStore(SettingStore& settings) { return {*m_module, m_backup, settings}; }
    /// Protects the rule files; at any time. What a start had to repair is in news().
    RuleBackup& backup() { return m_backup; }

private:
    void makeModule();
    void startWaiting();
    void startNow();

    const ModuleAdditions m_additions;
    RuleBackup m_backup;
    std::unique_ptr<ZepaNotificationModule> m_module;
    QStringList m_typesWithDefaults;
    bool m_hasStarted = false;
    std::vector<std::pair<QPointer<QObject>, std::function<void()>>> m_waiting;
    QObject m_context;
};

} // namespace zepa
