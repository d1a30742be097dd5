// SPDX-License-Identifier: Apache-2.0
#include "quiet_watch.h"

#include "service_address.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <iterator>
#include <utility>

namespace zepa::freedesktop {

namespace {

constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";
constexpr const char* controlCentreName = "org.erikreider.swaync.cc";
constexpr const char* controlCentrePath = "/org/erikreider/swaync/cc";
constexpr const char* portalName = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* settingsInterface = "org.freedesktop.portal.Settings";
constexpr const char* settingsGroup = "org.gnome.desktop.notifications";
constexpr const char* settingsKey = "show-banners";

/// At the notification service's own path.
struct Property
{
    const char* interface;
    const char* name;
    std::optional<bool> QuietValues::*value;
};
constexpr Property properties[] = {
    {serviceName, "Inhibited", &QuietValues::inhibited}, // Plasma, Xfce
    {"org.dunstproject.cmd0", "paused", &QuietValues::paused},
    {serviceName, "Dnd", &QuietValues::dnd}, // swaync
};

bool isGnome()
{
    return qgetenv("XDG_CURRENT_DESKTOP").split(':').contains("GNOME");
}

/// A boolean, in variants or not.
std::optional<bool> readValue(bus::MessageReader& reader)
{
    bool value = false;
    if (reader.read(value))
        return value;
    const bool isNested = reader.enterVariant("v");
    if (!reader.enterVariant("b"))
        return std::nullopt;
    const bool isRead = reader.read(value);
    reader.leave();
    if (isNested)
        reader.leave();
    return isRead ? std::optional(value) : std::nullopt;
}

} // namespace

QuietWatch::QuietWatch(bus::Connection& connection, const bus::ServiceWatcher& service)
    : m_connection(connection), m_service(service), m_controlCentre(connection, controlCentreName)
{
    followService();
    followControlCentre();
    // The portal has the value elsewhere too, where it means nothing.
    if (isGnome())
        followPortal();
}

/// Signals first: a change after the answer is not missed.
void QuietWatch::followService()
{
    m_listening.push_back(m_connection.subscribe(
        {.sender = serviceName, .path = servicePath, .interface = propertiesInterface, .member = "PropertiesChanged"},
        [this](const bus::Message& signal) { onPropertiesChanged(signal); }));
    onEachOwner(m_service, {&QuietValues::inhibited, &QuietValues::paused, &QuietValues::dnd}, [this] {
        for (const Property& property : properties)
            askProperty(property.interface, property.name, property.value);
        askControlCentre();
    });
}

void QuietWatch::followControlCentre()
{
    const auto onCounted = [this](const bus::Message& signal) {
        quint32 count = 0;
        bool isQuiet = false;
        if (bus::MessageReader(signal).read(count, isQuiet))
            m_values.dnd = isQuiet;
    };
    for (const char* member : {"Subscribe", "SubscribeV2"})
        m_listening.push_back(m_connection.subscribe(
            {.sender = controlCentreName, .path = controlCentrePath, .interface = controlCentreName, .member = member},
            onCounted));
    onEachOwner(m_controlCentre, {&QuietValues::dnd}, [this] { askControlCentre(); });
}

void QuietWatch::askControlCentre()
{
    if (!m_controlCentre.owner().isEmpty())
        ask(m_controlCentre, m_connection.newCall(controlCentreName, controlCentrePath, controlCentreName, "GetDnd"),
            &QuietValues::dnd);
}

void QuietWatch::followPortal()
{
    m_portal.emplace(m_connection, portalName);
    const bus::SignalMatch change{.sender = portalName,
                                  .path = portalPath,
                                  .interface = settingsInterface,
                                  .member = "SettingChanged",
                                  .firstArgument = settingsGroup};
    m_listening.push_back(m_connection.subscribe(change, [this](const bus::Message& signal) {
        QString group;
        QString key;
        bus::MessageReader reader(signal);
        if (reader.read(group, key) && key == QLatin1StringView(settingsKey))
            m_values.showsBanners = readValue(reader);
    }));
    onEachOwner(*m_portal, {&QuietValues::showsBanners}, [this] {
        bus::Message question = m_connection.newCall(portalName, portalPath, settingsInterface, "Read");
        ask(*m_portal, question.append(settingsGroup).append(settingsKey), &QuietValues::showsBanners);
    });
}

/// Calls `ask` for the owner that there is and for each later one. What the one before said is forgotten.
template <typename Function>
void QuietWatch::onEachOwner(const bus::ServiceWatcher& watcher, std::vector<Value> values, Function ask)
{
    connect(&watcher, &bus::ServiceWatcher::ownerChanged, this,
            [this, values = std::move(values), ask](const QByteArray& /*oldOwner*/, const QByteArray& newOwner) {
                for (const Value value : values)
                    (m_values.*value).reset();
                if (!newOwner.isEmpty())
                    ask();
            });
    if (!watcher.owner().isEmpty())
        ask();
}

void QuietWatch::ask(const bus::ServiceWatcher& watcher, bus::Message question, Value value)
{
    question.setAutoStart(false);
    m_connection.call(question, this, [this, value, owner = watcher.owner(), &watcher](const bus::Message& reply) {
        bus::MessageReader reader(reply);
        const std::optional<bool> told = readValue(reader);
        if (!reply.isError() && told && owner == watcher.owner())
            m_values.*value = told;
    });
}

void QuietWatch::askProperty(const char* interface, const char* property, Value value)
{
    bus::Message question = m_connection.newCall(serviceName, servicePath, propertiesInterface, "Get");
    ask(m_service, question.append(interface).append(property), value);
}

void QuietWatch::onPropertiesChanged(const bus::Message& signal)
{
    QString interface;
    bus::MessageReader reader(signal);
    if (!reader.read(interface) || !reader.enterArray("{sv}"))
        return;
    const auto propertyOf = [&interface](const QString& name) {
        const auto* found = std::find_if(std::begin(properties), std::end(properties), [&](const Property& property) {
            return interface == QLatin1StringView(property.interface) && name == QLatin1StringView(property.name);
        });
        return found == std::end(properties) ? nullptr : found;
    };
    for (QString name; reader.enterEntry("sv") && reader.read(name); reader.leave()) {
        if (const Property* property = propertyOf(name))
            m_values.*(property->value) = readValue(reader);
    }
    QStringList invalidated;
    if (!reader.leave() || !reader.read(invalidated))
        return;
    for (const QString& name : std::as_const(invalidated)) {
        if (const Property* property = propertyOf(name))
            askProperty(property->interface, property->name, property->value);
    }
}

} // namespace zepa::freedesktop
