// SPDX-License-Identifier: Apache-2.0
#include "client/client.h"

#include "client/posting/popup_kinds.h"
#include "core/notification_module.h"

namespace zepa {

Client::Client(const QString& settingsFolder, Start when)
    : m_settings(settingsFolder), m_ruleBackup(m_settings.getSettingsDir())
{
    if (when == Start::Now)
        start();
}

// The module goes first, by the order of the members: its rules call our methods, and it asks for the settings.
Client::~Client() = default;

void Client::start()
{
    if (hasStarted())
        return;
    // Before anything reads rule files: to the library, what a crash left is a type without rules.
    m_ruleBackup.restore();
    // The settings stand already: the module reads the roster theme while it is made, and looks for rule files in
    // their folder.
    m_module.reset(ZepaNotificationModule::getInstance());
    // Methods from outside come before init(). Installing one later makes the module read the rule files again, and
    // every rule in them that belongs to another method would then be there twice.
    m_outside.installIn(*m_module);
    watchMethods();
    // Now that all methods are known, the types: for each one the module reads its rules, or writes the defaults.
    ZepaNotificationModule::init();
    setPopupKinds(*m_module);
    m_ruleBackup.started();
}

void Client::watchMethods()
{
    const auto methods = m_module->getMethods();
    for (ZepaNotificationMethod* method : methods) {
        m_module->uninstallNotificationMethod(method);
        m_watched.push_back(std::make_unique<WatchedMethod>(*method, m_deliveries));
        m_module->installNotificationMethod(m_watched.back().get());
    }
}

} // namespace zepa
