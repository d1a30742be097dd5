// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "notify_call.h"

#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QTimer>

#include <optional>

namespace zepa::freedesktop {

class BusLink;

/// Postings on their way to the service, in their order.
///
/// They are held until the service has said what it can do, which is asked again for each owner of the name, and for
/// BusLink::callLimit at most: then they go out as to a service that understands markup. From then on no posting to
/// this owner is held; it is asked again beside the next one that finds no question open.
class Outbox : public QObject
{
    Q_OBJECT

public:
    /// At most so many postings are held; beyond that the oldest is given up.
    static constexpr int heldLimit = 1000;

    /// `link` must outlive the outbox.
    explicit Outbox(BusLink& link);

    void post(growl::PopupPosting posting, growl::Ticket ticket);

Q_SIGNALS:
    /// One of them for each ticket posted; for a clickable pop-up that came after all, shown() after notShown().
    void shown(zepa::growl::Ticket ticket, quint32 id);
    void notShown(zepa::growl::Ticket ticket);

private:
    struct Held
    {
        growl::PopupPosting posting;
        growl::Ticket ticket = 0;
    };

    void onOwnerChanged(const QString& newOwner);
    void askCapabilities();
    void release();
    void send(const growl::PopupPosting& posting, growl::Ticket ticket);
    quint32 idIn(const QDBusMessage& reply);

    BusLink& m_link;
    QList<Held> m_held;
    QTimer m_holdLimit;
    std::optional<Capabilities> m_capabilities;
    bool m_holding = true;  ///< until the owner answered, or did not in time
    quint64 m_question = 0; ///< counts them: only the last one's answer is about this owner
    bool m_asking = false;
};

} // namespace zepa::freedesktop
