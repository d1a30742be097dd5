// SPDX-License-Identifier: Apache-2.0
#include "portal_service.h"

#include "freedesktop/freedesktop_log.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::portal {

namespace {

constexpr const char* portalName = "org.freedesktop.portal.Desktop";
constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* portalInterface = "org.freedesktop.portal.Notification";
/// A portal that has not said what it can do after this time, in milliseconds, is taken for one of the first version:
/// so what is held goes out before it is given up.
constexpr int featuresLimit = 2000;
static_assert(featuresLimit < HeldPostings<NotificationData>::timeLimit);

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

PortalService::PortalService(bus::Connection* connection)
    : m_connection(connection), m_held([this](growl::Ticket ticket) { Q_EMIT notShown(ticket); })
{
    if (connection == nullptr)
        return;
    m_watcher.emplace(*connection, portalName);
    connect(&*m_watcher, &bus::ServiceWatcher::ownerChanged, this, &PortalService::onOwnerChanged);
    connect(connection, &bus::Connection::opened, this, &PortalService::sendHeld);
    connect(connection, &bus::Connection::roomForCalls, this, &PortalService::sendHeld);
    connect(connection, &bus::Connection::closed, this, [this] {
        forgetFeatures();
        m_held.giveUpAll();
    });
    // The portal tells only the connection that posted.
    bus::SignalMatch clicks;
    clicks.sender = portalName;
    clicks.path = portalPath;
    clicks.interface = portalInterface;
    clicks.member = "ActionInvoked";
    clicks.isDirected = true;
    m_clicks = connection->subscribe(clicks, [this](const bus::Message& signal) { onActionInvoked(signal); });
}

ZepaPopupService PortalService::state()
{
    if (!m_connection)
        return ZepaPopupService::NoBus;
    m_connection->open();
    if (m_connection->state() == bus::Connection::State::Closed)
        return ZepaPopupService::NoBus;
    if (!m_watcher->isKnown())
        return ZepaPopupService::NotKnownYet;
    if (!m_watcher->owner().isEmpty())
        return ZepaPopupService::There;
    const std::optional<bool> isActivatable = m_watcher->isActivatable();
    if (!isActivatable)
        return ZepaPopupService::NotKnownYet;
    return *isActivatable ? ZepaPopupService::There : ZepaPopupService::None;
}

void PortalService::post(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    if (m_connection)
        m_connection->open();
    if (!m_connection || m_connection->state() == bus::Connection::State::Closed) {
        Q_EMIT notShown(ticket);
        return;
    }
    NotificationData data = NotificationData::fromPosting(posting, m_icons.bytesOf(posting.icon));
    const qsizetype bytes = data.byteCount();
    m_held.append(ticket, std::move(data), bytes);
    sendHeld();
}

void PortalService::close(growl::PopupId id)
{
    // A portal that is not running shows nothing of ours.
    if (!m_connection || !m_connection->isOpen() || m_watcher->owner().isEmpty())
        return;
    bus::Message call = newCall(portalInterface, "RemoveNotification");
    call.append(m_ids.idOf(id)).setAutoStart(false);
    m_connection->send(call);
}

bus::Message PortalService::newCall(const char* interface, const char* member)
{
    return m_connection->newCall(portalName, portalPath, interface, member);
}

void PortalService::onOwnerChanged(const QByteArray& oldOwner)
{
    if (oldOwner.isEmpty()) {
        // One that our question started, perhaps, and that still answers it.
        if (!m_isAsking)
            forgetFeatures();
        return;
    }
    forgetFeatures();
    Q_EMIT lost();
    sendHeld();
}

void PortalService::forgetFeatures()
{
    m_features.reset();
    m_isAsking = false;
    ++m_question;
}

void PortalService::askFeatures()
{
    if (std::exchange(m_isAsking, true))
        return;
    bus::Message call = newCall("org.freedesktop.DBus.Properties", "GetAll");
    call.append(portalInterface);
    const auto onReply = [this, question = ++m_question](const bus::Message& reply) {
        if (question != m_question || m_connection == nullptr || !m_connection->isOpen())
            return;
        m_isAsking = false;
        if (reply.isError())
            qCInfo(freedesktopLog) << "the notification portal does not say what it can do:" << reply.errorName();
        m_features = PortalFeatures::fromReply(reply);
        sendHeld();
    };
    m_connection->call(call, this, onReply, {.limit = featuresLimit, .late = onReply});
}

void PortalService::sendHeld()
{
    while (!m_held.isEmpty() && m_connection && m_connection->isOpen() && m_connection->canCall()) {
        if (!m_features) {
            askFeatures();
            return;
        }
        const auto [ticket, data] = m_held.takeFirst();
        send(ticket, data);
    }
}

void PortalService::send(growl::Ticket ticket, const NotificationData& data)
{
    bus::Message call = newCall(portalInterface, "AddNotification");
    call.append(m_ids.idOf(ticket));
    data.appendTo(call, *m_features);
    const auto onReply = [this, ticket](const bus::Message& reply) {
        if (isShownBy(reply)) {
            Q_EMIT shown(ticket, ticket);
            return;
        }
        qCInfo(freedesktopLog) << "the portal did not show a pop-up:" << reply.errorName();
        Q_EMIT notShown(ticket);
    };
    bus::CallOptions options;
    if (data.isClickable) {
        options.late = [this, ticket](const bus::Message& reply) {
            if (isShownBy(reply))
                Q_EMIT shown(ticket, ticket);
        };
    }
    m_connection->call(call, this, onReply, std::move(options));
}

bool PortalService::isShownBy(const bus::Message& reply) const
{
    // One that was replaced meanwhile would tell us nothing of clicks.
    return !reply.isError() && reply.sender() == QLatin1StringView(m_watcher->owner());
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
