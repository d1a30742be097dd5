// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/protected_module.h"

#include "core/notification_module.h"
#include "host/settings_manager.h"
#include "kit/files/private_umask.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/rule_state.h"
#include "kit/rules/type_ids.h"

namespace zepa {

namespace {

QStringList allTypes(const QList<NotificationType>& added)
{
    QStringList types = builtInTypes();
    for (const NotificationType& type : added)
        types.append(type.id);
    return types;
}

} // namespace

ProtectedModule::ProtectedModule(ModuleAdditions additions)
    : m_additions(std::move(additions))
    , m_backup(ZepaSettingsManager::getInstance()->getSettingsDir(), allTypes(m_additions.types))
{}

ProtectedModule::~ProtectedModule() = default;

bool ProtectedModule::start()
{
    if (m_hasStarted)
        return true;
    makeModule();
    RuleLock lock(m_backup.ruleFolder());
    if (!lock.wait() && lock.isPossible())
        return false;
    startNow();
    return true;
}

void ProtectedModule::whenStarted(QObject* context, const std::function<void()>& then)
{
    if (m_hasStarted)
        return then();
    m_waiting.emplace_back(context, then);
    if (m_waiting.size() == 1) {
        makeModule();
        startWaiting();
    }
}

void ProtectedModule::startWaiting()
{
    whenLocked(m_backup.ruleFolder(), &m_context, [this](const RuleLock& lock) {
        if (!lock.isHeld() && lock.isPossible())
            return startWaiting();
        startNow();
        // A window is not a command that only reads: what a person wrote into rule files gets its copies.
        m_backup.keepAll();
        m_backup.makePrivate();
        const auto waiting = std::exchange(m_waiting, {});
        for (const auto& [context, then] : waiting) {
            if (context)
                then();
        }
    });
}

/// What needs no rule files, so that others are not kept away from them meanwhile.
void ProtectedModule::makeModule()
{
    if (m_module)
        return;
    m_module.reset(ZepaNotificationModule::getInstance());
    // Installing a method after init() makes the module read the rule files again, and every rule in them that belongs
    // to another method would then be there twice.
    for (ZepaNotificationMethod* method : m_additions.methods)
        m_module->installNotificationMethod(method);
    // Asked of the methods themselves: those that wrap them learn their defaults only when a type is registered.
    m_typesWithDefaults = allTypes(m_additions.types);
    m_typesWithDefaults.removeIf([this](const QString& type) { return defaultRulesOf(*m_module, type).isEmpty(); });
    if (m_additions.wrapMethods)
        m_additions.wrapMethods(*m_module);
}

/// With the lock, where there is anything to be locked.
void ProtectedModule::startNow()
{
    const PrivateUmask forUsAlone;
    // Before anything reads rule files: to the library, what a crash left is a type without rules.
    m_backup.restore(m_typesWithDefaults);
    // Now that all methods are known, the types: for each one the module reads its rules, or writes the defaults.
    ZepaNotificationModule::init();
    for (const NotificationType& type : m_additions.types)
        m_module->registerNotification(type.id, type.name, type.extra, type.description);
    m_backup.started();
    m_hasStarted = true;
}

} // namespace zepa
