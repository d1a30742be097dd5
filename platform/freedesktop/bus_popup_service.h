// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "growl/popup_service.h"
#include "held_postings.h"

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QElapsedTimer>
#include <QTimer>

namespace zepa::freedesktop {

/// Pop-ups through a service on the bus, whatever its interface: who derives from this says how to speak to it.
///
/// Postings go to the service in their order. They are held while the bus has not answered, until the service has said
/// what it can do, callLimit at most, and while as many calls are under way as the connection wants. Each owner of the
/// name is asked anew what it can do; from its silence on no posting to it is held for that, and it is asked again
/// beside the next one. What the bus refused for its limits is posted again.
class BusPopupService : public growl::PopupService
{
    Q_OBJECT

public:
    /// A call ends without a reply after this time; a posting that waits for room for its call, after this time without
    /// a word from the service. In milliseconds.
    static constexpr int callLimit = 5000;
    /// So long a clickable pop-up that was given up is closed when the service shows it after all, in milliseconds.
    static constexpr int lateLimit = 24 * 60 * 60 * 1000;

    ZepaPopupService state() override;
    void post(const growl::PopupPosting& posting, growl::Ticket ticket) override;

protected:
    /// `connection` must outlive the service. What it can do is asked again beside a posting after `featuresAge`, in
    /// milliseconds.
    BusPopupService(bus::Connection& connection, const char* name, int featuresAge);

    bus::Connection& connection() { return m_connection; }
    const bus::ServiceWatcher& watcher() const { return m_watcher; }

private:
    /// The question what the service can do.
    virtual bus::Message newQuestion() = 0;
    /// Keeps what the service can do; false when the reply, which may be an error, does not say it. Until it is known
    /// the usual is assumed.
    virtual bool learn(const bus::Message& reply) = 0;
    /// The next owner is another service.
    virtual void forgetOwner() = 0;
    virtual bus::Message newPopup(const growl::PopupPosting& posting, growl::Ticket ticket) = 0;
    /// From the service's reply to newPopup(); 0 for none.
    virtual growl::PopupId idIn(const bus::Message& reply, growl::Ticket ticket) const = 0;

    void onClosed();
    void onOwnerChanged(const QByteArray& oldOwner, const QByteArray& newOwner);
    void goOn();
    void hold(HeldPostings::Held held);
    void giveUpOverdue();
    void ask();
    void onAnswer(const bus::Message& reply);
    void send(HeldPostings::Held held);
    void onReply(const bus::Message& reply, const HeldPostings::Held& held);
    growl::PopupId shownId(const bus::Message& reply, growl::Ticket ticket);

    bus::Connection& m_connection;
    bus::ServiceWatcher m_watcher;
    const int m_featuresAge;
    HeldPostings m_held;
    QTimer m_overdue; ///< while something is held
    QElapsedTimer m_clock;
    qint64 m_lastWord = 0;  ///< when the service was heard of, by m_clock
    bool m_isKnown = false; ///< what this owner can do
    qint64 m_askedAt = 0;
    bool m_isHolding = true; ///< until the owner answered, or did not in time
    bool m_mustAsk = false;  ///< as soon as there is room for the question
    bool m_isAsking = false;
    quint64 m_question = 0; ///< counts them: only the last one's answer is about this owner
};

} // namespace zepa::freedesktop
