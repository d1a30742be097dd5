// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "held_postings.h"
#include "notify_call.h"

#include <zepa_platform/bus.h>

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <optional>

namespace zepa::freedesktop {

/// Postings on their way to the service, in their order.
///
/// They are held while the bus has not answered, until the service has said what it can do, callLimit at most, and
/// while as many calls are under way as the connection wants. Each owner of the name is asked anew what it can do; from
/// its silence on no posting to it is held for that, and it is asked again beside the next one.
class Outbox : public QObject
{
    Q_OBJECT

public:
    /// A call ends without a reply after this time; a posting that waits for room for its call, after this time without
    /// a word from the service. In milliseconds.
    static constexpr int callLimit = 5000;
    /// So long a clickable pop-up that was given up is closed when the service shows it after all, in milliseconds.
    static constexpr int lateLimit = 24 * 60 * 60 * 1000;
    /// What a service can do changes with its settings: it is asked again beside a posting after this time, in
    /// milliseconds.
    static constexpr int usualCapabilitiesAge = 60000;

    /// `connection` and `watcher`, which follows the service's name, must outlive the outbox.
    Outbox(bus::Connection& connection, const bus::ServiceWatcher& watcher, int capabilitiesAge = usualCapabilitiesAge);

    void post(const growl::PopupPosting& posting, growl::Ticket ticket);

Q_SIGNALS:
    /// One of them for each ticket posted; for a clickable pop-up that came after all, shown() after notShown().
    void shown(zepa::growl::Ticket ticket, quint32 id);
    void notShown(zepa::growl::Ticket ticket);

private:
    void onClosed();
    void onOwnerChanged(const QByteArray& oldOwner, const QByteArray& newOwner);
    void goOn();
    void hold(const growl::PopupPosting& posting, growl::Ticket ticket);
    void giveUpOverdue();
    void askCapabilities();
    void onCapabilities(const bus::Message& reply);
    void send(const growl::PopupPosting& posting, growl::Ticket ticket);
    void onReply(const bus::Message& reply, growl::Ticket ticket);
    quint32 idIn(const bus::Message& reply);

    bus::Connection& m_connection;
    const bus::ServiceWatcher& m_watcher;
    const int m_capabilitiesAge;
    HeldPostings m_held;
    QTimer m_overdue; ///< while something is held
    QElapsedTimer m_clock;
    qint64 m_lastWord = 0; ///< when the service was heard of, by m_clock
    std::optional<Capabilities> m_capabilities;
    qint64 m_askedAt = 0;
    bool m_isHolding = true; ///< until the owner answered, or did not in time
    bool m_mustAsk = false;  ///< as soon as there is room for the question
    bool m_isAsking = false;
    quint64 m_question = 0; ///< counts them: only the last one's answer is about this owner
};

} // namespace zepa::freedesktop
