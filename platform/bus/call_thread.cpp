// SPDX-License-Identifier: Apache-2.0
#include "bus/call_thread.h"

#include <QCoreApplication>
#include <QEvent>

namespace zepa::bus {

namespace {

/// Brings a call from its thread to the main one.
class SentEvent : public QEvent
{
public:
    SentEvent(quint64 theNumber, const QDBusPendingCall& theCall) : QEvent(User), number(theNumber), call(theCall) {}

    const quint64 number;
    const QDBusPendingCall call;
};

} // namespace

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
        QCoreApplication::postEvent(this, new SentEvent(number, connection.asyncCall(message, limit)));
    });
}

void CallThread::customEvent(QEvent* event)
{
    const auto* news = static_cast<const SentEvent*>(event);
    Q_EMIT sent(news->number, news->call);
}

} // namespace zepa::bus
