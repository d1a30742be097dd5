// SPDX-License-Identifier: Apache-2.0
#include "chosen_service.h"

#include "freedesktop/freedesktop_log.h"
#include "freedesktop/notification_service.h"
#include "freedesktop/notify_call.h"
#include "freedesktop/service_address.h"
#include "portal_service.h"

namespace zepa::portal {

namespace {

/// Null for NotKnownYet.
std::unique_ptr<growl::PopupService> makeService(ServiceChoice choice, bus::Connection& connection)
{
    switch (choice) {
    case ServiceChoice::NotKnownYet:
        break;
    case ServiceChoice::Notifications:
        return std::make_unique<freedesktop::NotificationService>(connection);
    case ServiceChoice::Portal:
        qCInfo(freedesktopLog) << "pop-ups go through the notification portal";
        return std::make_unique<PortalService>(connection);
    }
    return nullptr;
}

} // namespace

ChosenService::ChosenService(const ProcessFacts& process, bus::Connection& connection)
    : m_process(process), m_connection(connection), m_watcher(connection, freedesktop::serviceName)
{
    connect(&m_watcher, &bus::ServiceWatcher::changed, this, &ChosenService::tryToChoose);
    connect(&m_watcher, &bus::ServiceWatcher::ownerChanged, this, &ChosenService::tryToChoose);
    connect(&connection, &bus::Connection::closed, this, [this] {
        while (!m_held.isEmpty())
            Q_EMIT notShown(m_held.takeFirst().ticket);
    });
    m_watcher.isActivatable(); // asked from now on
}

ZepaPopupService ChosenService::state()
{
    if (m_service)
        return m_service->state();
    m_connection.open();
    const bool isClosed = m_connection.state() == bus::Connection::State::Closed;
    return isClosed ? ZepaPopupService::NoBus : ZepaPopupService::NotKnownYet;
}

ZepaDoNotDisturb ChosenService::doNotDisturb()
{
    return m_service ? m_service->doNotDisturb() : ZepaDoNotDisturb::NotTold;
}

void ChosenService::post(const growl::PopupPosting& posting, growl::Ticket ticket)
{
    if (m_service) {
        m_service->post(posting, ticket);
        return;
    }
    if (state() == ZepaPopupService::NoBus) {
        Q_EMIT notShown(ticket);
        return;
    }
    m_held.add({freedesktop::cutToSize(posting), ticket});
    while (m_held.isOverfull())
        Q_EMIT notShown(m_held.takeFirst().ticket);
}

void ChosenService::close(growl::PopupId id)
{
    if (m_service)
        m_service->close(id);
}

void ChosenService::tryToChoose()
{
    if (m_service)
        return;
    const NameFacts name{.isOwnerKnown = m_watcher.isKnown(),
                         .hasOwner = !m_watcher.owner().isEmpty(),
                         .isActivatable = m_watcher.isActivatable()};
    m_service = makeService(choose(m_process, name), m_connection);
    if (!m_service)
        return;
    connect(m_service.get(), &PopupService::shown, this, &PopupService::shown);
    connect(m_service.get(), &PopupService::notShown, this, &PopupService::notShown);
    connect(m_service.get(), &PopupService::clicked, this, &PopupService::clicked);
    connect(m_service.get(), &PopupService::closed, this, &PopupService::closed);
    connect(m_service.get(), &PopupService::lost, this, &PopupService::lost);
    m_service->state(); // so that it connects now
    while (!m_held.isEmpty()) {
        const freedesktop::HeldPostings::Held held = m_held.takeFirst();
        m_service->post(held.posting, held.ticket);
    }
}

} // namespace zepa::portal

std::unique_ptr<zepa::growl::PopupService> zepa::growl::makePopupService()
{
    using namespace zepa::portal;
    const ProcessFacts process = ProcessFacts::ofThisProcess();
    // A session ends before the connection, which is made before it.
    bus::Connection& connection = *bus::Connection::shared();
    if (auto service = makeService(choose(process, {}), connection))
        return service;
    return std::make_unique<ChosenService>(process, connection);
}
