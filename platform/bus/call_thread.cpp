// SPDX-License-Identifier: Apache-2.0
#include "bus/call_thread.h"

#include <QMetaObject>

namespace zepa::bus {

CallThread::CallThread()
{
    m_thread.setMaxThreadCount(1);
    // To start a thread takes longer than to send a call.
    m_thread.setExpiryTimeout(-1);
}

CallThread::~CallThread()
{
    m_thread.waitForDone();
}

void CallThread::send(const QDBusConnection& connection, const QDBusMessage& message, int limit, quint64 number)
{
    m_thread.start([this, connection, message, limit, number] {
        const QDBusPendingCall call = connection.asyncCall(message, limit);
        QMetaObject::invokeMethod(
            this, [this, number, call] { Q_EMIT sent(number, call); }, Qt::QueuedConnection);
    });
}

} // namespace zepa::bus
