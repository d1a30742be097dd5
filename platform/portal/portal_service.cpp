// SPDX-License-Identifier: Apache-2.0
#include "portal_service.h"

#include <climits>

using namespace Qt::StringLiterals;

namespace zepa::portal {

namespace {

constexpr const char* portalName = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* portalInterface = "org.freedesktop.portal.Notification";
/// What a portal can do stays, until there is another one.
constexpr int featuresAge = INT_MAX;

/// From the parameters of an action: the target of the action, which ours has not, and what the platform adds.
QString activationTokenIn(bus::MessageReader& reader)
{
    QString token;
    if (!reader.enterArray("v"))
        return token;
    while (!reader.atEnd()) {
        if (!reader.enterVariant("a{sv}")) {
            if (!reader.skip())
                break;
            continue;
        }
        if (reader.enterArray("{sv}")) {
            for (QString key; reader.enterEntry("sv") && reader.read(key); reader.leave()) {
                if (key == u"activation-token"_s && reader.enterVariant("s")) {
                    reader.read(token);
                    reader.leave();
                }
            }
            reader.leave();
        }
        reader.leave();
    }
    return token;
}

} // namespace

PortalService::PortalService(bus::Connection& connection)
    : BusPopupService(connection, portalName, featuresAge)
    , m_clicks(connection.subscribe({.sender = portalName,
                                     .path = portalPath,
                                     .interface = portalInterface,
                                     .member = "ActionInvoked",
                                     // The portal tells only the connection that posted.
                                     .isDirected = true},
                                    [this](const bus::Message& signal) { onActionInvoked(signal); }))
{}

void PortalService::close(growl::PopupId id)
{
    // A portal that is not running shows nothing of ours.
    if (watcher().owner().isEmpty())
        return;
    bus::Message call = newCall(portalInterface, "RemoveNotification");
    connection().send(call.append(m_ids.idOf(id)).setAutoStart(false));
}

bus::Message PortalService::newCall(const char* interface, const char* member)
{
    return connection().newCall(portalName, portalPath, interface, member);
}

bus::Message PortalService::newQuestion()
{
    return newCall("org.freedesktop.DBus.Properties", "GetAll").append(portalInterface);
}

bool PortalService::learn(const bus::Message& reply)
{
    m_features = PortalFeatures::fromReply(reply);
    // Without a sender it is no answer of anybody.
    return !reply.sender().isEmpty();
}

bus::Message PortalService::newPopup(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    bus::Message call = newCall(portalInterface, "AddNotification");
    call.append(m_ids.idOf(ticket));
    NotificationData::fromPosting(posting, m_icons.bytesOf(posting.icon)).appendTo(call, m_features);
    return call;
}

void PortalService::onActionInvoked(const bus::Message& signal)
{
    bus::MessageReader reader(signal);
    QString id;
    QString action;
    if (!reader.read(id, action) || action != QLatin1StringView(clickAction))
        return;
    if (const growl::PopupId popup = m_ids.popupOf(id); popup != 0)
        Q_EMIT clicked(popup, activationTokenIn(reader));
}

} // namespace zepa::portal
