// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QObject>
#include <QThreadPool>

namespace zepa::bus {

/// Sends calls from a thread of its own, in their order.
///
/// To bring a message into the bus's form and to hand it to the system takes longer than everything else about a
/// pop-up, and wakes other processes, which may get the processor first. The caller waits for none of it.
class CallThread : public QObject
{
    Q_OBJECT

public:
    CallThread();
    /// Returns when every call is with the system; no answer is waited for.
    ~CallThread() override;
    Q_DISABLE_COPY_MOVE(CallThread)

    /// `limit` in milliseconds; `number` is the caller's own and comes back with sent().
    void send(const QDBusConnection& connection, const QDBusMessage& message, int limit, quint64 number);

Q_SIGNALS:
    /// Once for each call, from the event loop, in their order. The call may have failed or been answered by then.
    void sent(quint64 number, const QDBusPendingCall& call);

protected:
    void customEvent(QEvent* event) override;

private:
    QThreadPool m_thread;
};

} // namespace zepa::bus
