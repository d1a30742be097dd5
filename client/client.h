// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/methods/delivery_log.h"
#include "client/methods/watched_method.h"
#include "client/services/settings.h"

#include <QString>

#include <memory>
#include <vector>

class ZepaNotificationModule;

namespace zepa {

/// The client while it runs: its settings, and the notification module made ready on top of them. One at a time;
/// needs a QApplication.
class Client
{
public:
    /// Starts everything with the settings in that folder. Look at settings().isUsable() first: without it, rules have
    /// their defaults and nothing that changes is kept.
    explicit Client(const QString& settingsFolder);
    ~Client();
    Q_DISABLE_COPY_MOVE(Client)

    Settings& settings() { return m_settings; }
    ZepaNotificationModule& module() { return *m_module; }
    /// Every delivery goes through here.
    DeliveryLog& deliveries() { return m_deliveries; }

private:
    void startUp();
    void watchMethods();

    Settings m_settings;
    DeliveryLog m_deliveries;
    std::vector<std::unique_ptr<WatchedMethod>> m_watched;
    std::unique_ptr<ZepaNotificationModule> m_module;
};

} // namespace zepa
