// SPDX-License-Identifier: Apache-2.0
#include "client/client.h"

#include "client/chats/chat_attention.h"
#include "core/notification_module.h"
#include "kit/files/private_umask.h"
#include "kit/journal/popup_kinds.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/rule_state.h"
#include "kit/rules/type_ids.h"
#include "kit/settings_page/sound_check.h"
#include "kit/sound/sound_decoder.h"

namespace zepa {

Client::Client(const QString& settingsFolder, Start when)
    : m_settings(settingsFolder), m_ruleBackup(m_settings.getSettingsDir(), builtInTypes())
{
    setSoundProbe([](const QString& path) { return audio::decodeSound(path).clip != nullptr; });
    if (when == Start::Now)
        start();
}

// The module goes first, by the order of the members: its rules call our methods, and it asks for the settings.
Client::~Client() = default;

bool Client::start()
{
    if (m_hasStarted)
        return true;
    makeModule();
    RuleLock lock(m_ruleBackup.ruleFolder());
    if (!lock.wait() && lock.isPossible())
        return false;
    startNow();
    return true;
}

void Client::whenStarted(QObject* context, const std::function<void()>& then)
{
    if (m_hasStarted)
        return then();
    m_waiting.emplace_back(context, then);
    if (m_waiting.size() == 1) {
        makeModule();
        startWaiting();
    }
}

void Client::startWaiting()
{
    whenLocked(m_ruleBackup.ruleFolder(), &m_context, [this](const RuleLock& lock) {
        if (!lock.isHeld() && lock.isPossible())
            return startWaiting();
        startNow();
        // A window is not a command that only reads: what a person wrote into rule files gets its copies.
        m_ruleBackup.keepAll();
        m_ruleBackup.makePrivate();
        const auto waiting = std::exchange(m_waiting, {});
        for (const auto& [context, then] : waiting) {
            if (context)
                then();
        }
    });
}

/// What needs no rule files, so that others are not kept away from them meanwhile.
void Client::makeModule()
{
    if (m_module)
        return;
    // The settings stand already: the module reads the roster theme while it is made, and looks for rule files in
    // their folder.
    m_module.reset(ZepaNotificationModule::getInstance());
    // Methods from outside come before init(). Installing one later makes the module read the rule files again, and
    // every rule in them that belongs to another method would then be there twice.
    m_outside.installIn(*m_module);
    // Asked of the methods themselves: those that watch them learn their defaults only when a type is registered.
    m_typesWithDefaults = builtInTypes();
    m_typesWithDefaults.removeIf([this](const QString& type) { return defaultRulesOf(*m_module, type).isEmpty(); });
    watchMethods();
}

/// With the lock, where there is anything to be locked.
void Client::startNow()
{
    const PrivateUmask forUsAlone;
    // Before anything reads rule files: to the library, what a crash left is a type without rules.
    m_ruleBackup.restore(m_typesWithDefaults);
    // Now that all methods are known, the types: for each one the module reads its rules, or writes the defaults.
    ZepaNotificationModule::init();
    setPopupKinds(*m_module);
    m_ruleBackup.started();
    m_hasStarted = true;
}

void Client::watchMethods()
{
    const auto methods = m_module->getMethods();
    for (ZepaNotificationMethod* method : methods) {
        m_module->uninstallNotificationMethod(method);
        // The method itself has no arguments to give to the platform.
        const bool asksForAttention = method->getId() == u"zepa_dock_bounce_notification_method";
        m_watched.push_back(std::make_unique<RecordingMethod>(
            *method, m_deliveries,
            asksForAttention ? RecordingMethod::Preparation(nameChatForAttention) : RecordingMethod::Preparation()));
        m_module->installNotificationMethod(m_watched.back().get());
    }
}

} // namespace zepa
