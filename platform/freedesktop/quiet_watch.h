// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "do_not_disturb.h"

#include <zepa_platform/bus.h>

#include <QObject>

#include <optional>
#include <vector>

namespace zepa::freedesktop {

/// Follows what the desktop says about do-not-disturb, in the places that the desktops have for it. Starts no service.
class QuietWatch : public QObject
{
public:
    /// `connection` and `service`, which follows the notification service's name, must outlive this object.
    QuietWatch(bus::Connection& connection, const bus::ServiceWatcher& service);

    ZepaDoNotDisturb state() const { return doNotDisturb(m_values); }

private:
    using Value = std::optional<bool> QuietValues::*;

    void followService();
    void followControlCentre();
    void askControlCentre();
    void followPortal();
    template <typename Function>
    void onEachOwner(const bus::ServiceWatcher& watcher, std::vector<Value> values, Function ask);
    void ask(const bus::ServiceWatcher& watcher, bus::Message question, Value value);
    void askProperty(const char* interface, const char* property, Value value);
    void onPropertiesChanged(const bus::Message& signal);

    bus::Connection& m_connection;
    const bus::ServiceWatcher& m_service;
    bus::ServiceWatcher m_controlCentre;         ///< swaync's
    std::optional<bus::ServiceWatcher> m_portal; ///< on GNOME
    QuietValues m_values;
    std::vector<bus::Registration> m_listening;
};

} // namespace zepa::freedesktop
