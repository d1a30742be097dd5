// SPDX-License-Identifier: Apache-2.0
// A notification service that shows nothing.
//
//   service FILE [MILLISECONDS | never]
//
// Replies to Notify at once, after that time, or never. Writes to FILE, a line each: "ready" when it owns its name, and
// "TIME TITLE" for each pop-up: when it had the message, in nanoseconds of the system's monotonic clock.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QFile>
#include <QTimer>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

long long now()
{
    constexpr long long inOneSecond = 1'000'000'000;
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * inOneSecond + time.tv_nsec;
}

class Service : public QDBusVirtualObject
{
public:
    Service(const QString& file, const QString& delay)
        : m_bus(QDBusConnection::sessionBus()), m_log(file), m_never(delay == u"never"_s), m_delay(delay.toInt())
    {
        m_log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
        m_bus.registerVirtualObject(u"/org/freedesktop/Notifications"_s, this);
        m_bus.registerService(u"org.freedesktop.Notifications"_s);
        m_log.write("ready\n");
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*connection*/) override
    {
        const long long time = now();
        const QString method = call.member();
        if (method == u"GetCapabilities"_s) {
            m_bus.send(call.createReply(QStringList{u"actions"_s, u"body"_s}));
        } else if (method == u"GetServerInformation"_s) {
            const QString text = u"measured"_s;
            m_bus.send(call.createReply(QVariantList{text, text, text, u"1.2"_s}));
        } else if (method == u"Notify"_s) {
            m_log.write(QByteArray::number(time) + ' ' + call.arguments().value(3).toString().toUtf8() + '\n');
            onNotify(call.createReply(++m_lastId));
        }
        return true;
    }

private:
    void onNotify(const QDBusMessage& reply)
    {
        if (m_never)
            return;
        if (m_delay == 0)
            m_bus.send(reply);
        else
            QTimer::singleShot(m_delay, Qt::PreciseTimer, this, [this, reply] { m_bus.send(reply); });
    }

    QDBusConnection m_bus;
    QFile m_log;
    const bool m_never;
    const int m_delay;
    uint m_lastId = 0;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (!QDBusConnection::sessionBus().isConnected())
        return 1;
    const QStringList arguments = QCoreApplication::arguments();
    const Service service(arguments.value(1), arguments.value(2));
    return QCoreApplication::exec();
}
