// SPDX-License-Identifier: Apache-2.0
#include "chosen_service.h"

#include "freedesktop/bus_text.h"
#include "freedesktop/freedesktop_log.h"
#include "freedesktop/notification_service.h"
#include "portal_service.h"

#include <utility>

namespace zepa::portal {

namespace {

/// Null for NotKnownYet.
std::unique_ptr<growl::PopupService> makeService(ServiceChoice choice, bus::Connection* connection)
{
    switch (choice) {
    case ServiceChoice::NotKnownYet:
        break;
    case ServiceChoice::Notifications:
        return std::make_unique<freedesktop::NotificationService>();
    case ServiceChoice::Portal:
        qCInfo(freedesktopLog) << "pop-ups go through the notification portal";
        return std::make_unique<PortalService>(connection);
    }
    return nullptr;
}

} // namespace

ChosenService::ChosenService(const ProcessFacts& process, bus::Connection* connection)
    : m_process(process), m_connection(connection), m_held([this](growl::Ticket ticket) { Q_EMIT notShown(ticket); })
{
    if (connection == nullptr)
        return;
    m_watcher.emplace(*connection, "org.freedesktop.Notifications");
    connect(&*m_watcher, &bus::ServiceWatcher::changed, this, &ChosenService::tryToChoose);
    connect(&*m_watcher, &bus::ServiceWatcher::ownerChanged, this, &ChosenService::tryToChoose);
    connect(connection, &bus::Connection::closed, this, [this] { m_held.giveUpAll(); });
    m_watcher->isActivatable(); // asked from now on
}

ZepaPopupService ChosenService::state()
{
    if (m_service)
        return m_service->state();
    if (!m_connection)
        return ZepaPopupService::NoBus;
    m_connection->open();
    const bool isClosed = m_connection->state() == bus::Connection::State::Closed;
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
    // Cut here already, so that a posting that is held does not hold megabytes.
    growl::PopupPosting held = posting;
    held.title = freedesktop::busText(held.title, freedesktop::summaryLimit);
    held.text = freedesktop::busText(held.text, freedesktop::bodyLimit);
    const qsizetype bytes = byteCount(held);
    m_held.append(ticket, std::move(held), bytes);
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
    const NameFacts name{.isOwnerKnown = m_watcher->isKnown(),
                         .hasOwner = !m_watcher->owner().isEmpty(),
                         .isActivatable = m_watcher->isActivatable()};
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
        const auto [ticket, posting] = m_held.takeFirst();
        m_service->post(posting, ticket);
    }
}

/// Texts, and an icon where the posting before had another one: equal icons share their pixels.
qsizetype ChosenService::byteCount(const growl::PopupPosting& posting)
{
    const bool isNew = std::exchange(m_lastIcon, posting.icon.cacheKey()) != posting.icon.cacheKey();
    return 2 * (posting.title.size() + posting.text.size()) + (isNew ? posting.icon.sizeInBytes() : 0);
}

} // namespace zepa::portal

std::unique_ptr<zepa::growl::PopupService> zepa::growl::makePopupService()
{
    using namespace zepa::portal;
    const ProcessFacts process = ProcessFacts::ofThisProcess();
    bus::Connection* connection = nullptr;
    const ServiceChoice choice = choose(process, {});
    // Outside of a sandbox no connection is opened for a choice that is made already.
    if (choice != ServiceChoice::Notifications)
        connection = bus::Connection::shared();
    if (auto service = makeService(choice, connection))
        return service;
    return std::make_unique<ChosenService>(process, connection);
}
