// SPDX-License-Identifier: Apache-2.0
// A notification service that does what a test tells it: well, badly, late or not at all.
//
// Options, one argument each:
//   markup              says that it understands markup; no-actions: does not say that it offers actions
//   mute                never replies to anything; mute-capabilities: never to GetCapabilities
//   mute-notify         never replies to Notify
//   mute-first-capabilities   never replies to GetCapabilities before the first Notify
//   late-capabilities   replies to GetCapabilities after 300 ms
//   wrong-types         replies with values of types that are not the interface's
//   refuse              replies to Notify with an error
//   same-id             gives every pop-up the id of the first
//   merge               gives each pop-up an id of its own, shows one for all and says that the one before is gone
//   click-first, close-first, close-click-first   says that of each pop-up before it replies to Notify
//   click-last          clicks each pop-up right after its reply
//   late-start          takes its name after 1,000 ms
//   replace             takes the name from its owner
//   log=FILE            writes there instead of to standard output
//   portal              shows the face of the notification portal instead, which knows of these
//     mute, refuse, click-first, log=FILE; mute-version, no-version, version-2
// Commands, one line of standard input each:
//   click ID | close ID | invoke ID KEY | token ID TOKEN | wrong-signals ID | sleep MILLISECONDS | release
// The portal counts the pop-ups that it got from 1:
//   click NUMBER | invoke NUMBER ACTION | token NUMBER TOKEN | odd-token NUMBER | sleep MILLISECONDS | release
//
// Every call that it gets is written as a line of JSON, and {"ready":true} when it owns its name.
#include "scripted_portal.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSocketNotifier>
#include <QThread>
#include <QTimer>

#include <memory>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString& name()
{
    static const QString text = u"org.freedesktop.Notifications"_s;
    return text;
}

const QString& path()
{
    static const QString text = u"/org/freedesktop/Notifications"_s;
    return text;
}

QString typeOf(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<QDBusArgument>())
        return value.value<QDBusArgument>().currentSignature();
    if (value.metaType() == QMetaType::fromType<uchar>())
        return u"y"_s;
    if (value.metaType() == QMetaType::fromType<QString>())
        return u"s"_s;
    return QString::fromLatin1(value.metaType().name());
}

QJsonObject imageOf(const QVariant& value)
{
    const auto argument = value.value<QDBusArgument>();
    int width = 0;
    int height = 0;
    int rowBytes = 0;
    int bits = 0;
    int channels = 0;
    bool alpha = false;
    QByteArray pixels;
    argument.beginStructure();
    argument >> width >> height >> rowBytes >> alpha >> bits >> channels >> pixels;
    argument.endStructure();
    return {{u"width"_s, width}, {u"height"_s, height},     {u"row"_s, rowBytes},       {u"alpha"_s, alpha},
            {u"bits"_s, bits},   {u"channels"_s, channels}, {u"bytes"_s, pixels.size()}};
}

class ScriptedService : public QDBusVirtualObject
{
    Q_OBJECT

public:
    ScriptedService(const QStringList& options, QFile& log)
        : m_bus(QDBusConnection::sessionBus()), m_options(options), m_log(log)
    {
        m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s,
                      QCoreApplication::instance(), SLOT(quit()));
        m_bus.registerVirtualObject(path(), this);
        QTimer::singleShot(has("late-start") ? 1000 : 0, this, &ScriptedService::takeName);
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*connection*/) override
    {
        const QString method = call.member();
        if (method == u"Notify"_s)
            return onNotify(call);
        QJsonObject line{{u"call"_s, method}, {u"sender"_s, call.service()}};
        if (method == u"CloseNotification"_s) {
            line[u"id"_s] = call.arguments().value(0).toInt();
            write(line);
            m_bus.send(call.createReply());
            emitClosed(call.arguments().value(0).toUInt(), 3);
            return true;
        }
        write(line);
        const bool isMute =
            has("mute") || has("mute-capabilities") || (has("mute-first-capabilities") && m_lastId == 0);
        if (method != u"GetCapabilities"_s || isMute)
            return true;
        QStringList capabilities{u"body"_s};
        if (!has("no-actions"))
            capabilities.append(u"actions"_s);
        if (has("markup"))
            capabilities.append(u"body-markup"_s);
        const QDBusMessage reply = has("wrong-types") ? call.createReply(42) : call.createReply(capabilities);
        QTimer::singleShot(has("late-capabilities") ? 300 : 0, this, [this, reply] { m_bus.send(reply); });
        return true;
    }

    void command(const QString& line)
    {
        const QStringList words = line.split(u' ');
        const QString verb = words.value(0);
        const uint id = words.value(1).toUInt();
        if (verb == u"click"_s) {
            emitSignal("ActionInvoked", {id, u"default"_s});
        } else if (verb == u"invoke"_s) {
            emitSignal("ActionInvoked", {id, words.value(2)});
        } else if (verb == u"close"_s) {
            emitClosed(id, 2);
        } else if (verb == u"token"_s) {
            emitSignal("ActivationToken", {id, words.value(2)});
        } else if (verb == u"wrong-signals"_s) {
            emitSignal("ActionInvoked", {u"default"_s, id});
            emitSignal("ActionInvoked", {id});
            emitSignal("NotificationClosed", {id});
            emitSignal("NotificationClosed", {u"1"_s, u"2"_s});
            emitSignal("ActivationToken", {});
        } else if (verb == u"sleep"_s) {
            write({{u"asleep"_s, true}});
            QThread::msleep(words.value(1).toULong());
            write({{u"awake"_s, true}});
        } else if (verb == u"release"_s) {
            m_bus.unregisterService(name());
            write({{u"released"_s, true}});
        }
    }

private:
    bool has(const char* option) const { return m_options.contains(QLatin1String(option)); }

    void takeName()
    {
        const auto how = has("replace") ? QDBusConnectionInterface::ReplaceExistingService
                                        : QDBusConnectionInterface::DontQueueService;
        m_bus.interface()->registerService(name(), how, QDBusConnectionInterface::AllowReplacement);
        write({{u"ready"_s, true}});
    }

    bool onNotify(const QDBusMessage& call)
    {
        const QVariantList arguments = call.arguments();
        QVariantMap hints;
        arguments.value(6).value<QDBusArgument>() >> hints;
        QJsonObject types;
        QJsonObject values;
        for (auto hint = hints.cbegin(); hint != hints.cend(); ++hint) {
            types[hint.key()] = typeOf(hint.value());
            values[hint.key()] = QJsonValue::fromVariant(hint.value());
        }
        QJsonObject line{{u"call"_s, u"Notify"_s},
                         {u"sender"_s, call.service()},
                         {u"signature"_s, call.signature()},
                         {u"application"_s, arguments.value(0).toString()},
                         {u"replaces"_s, arguments.value(1).toInt()},
                         {u"icon"_s, arguments.value(2).toString()},
                         {u"summary"_s, arguments.value(3).toString()},
                         {u"body"_s, arguments.value(4).toString()},
                         {u"actions"_s, QJsonArray::fromStringList(arguments.value(5).toStringList())},
                         {u"hints"_s, types},
                         {u"values"_s, values},
                         {u"urgency"_s, hints.value(u"urgency"_s).toInt()},
                         {u"timeout"_s, arguments.value(7).toInt()}};
        if (hints.contains(u"image-data"_s))
            line[u"image"_s] = imageOf(hints.value(u"image-data"_s));
        const uint id = has("same-id") ? 1 : ++m_lastId;
        line[u"id"_s] = static_cast<int>(id);
        write(line);
        reply(call, id);
        return true;
    }

    void reply(const QDBusMessage& call, uint id)
    {
        if (has("mute") || has("mute-notify"))
            return;
        if (has("refuse")) {
            m_bus.send(call.createErrorReply(u"org.freedesktop.Notifications.Error"_s, QString()));
            return;
        }
        if (has("wrong-types")) {
            m_bus.send(call.createReply(u"1"_s));
            return;
        }
        if (has("close-first") || has("close-click-first"))
            emitClosed(id, 2);
        if (has("click-first") || has("close-click-first"))
            emitSignal("ActionInvoked", {id, u"default"_s});
        m_bus.send(call.createReply(id));
        if (has("merge") && id > 1)
            emitClosed(id - 1, 1);
        if (has("click-last"))
            emitSignal("ActionInvoked", {id, u"default"_s});
    }

    void emitSignal(const char* signal, const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createSignal(path(), name(), QLatin1String(signal));
        message.setArguments(arguments);
        m_bus.send(message);
    }

    void emitClosed(uint id, uint reason) { emitSignal("NotificationClosed", {id, reason}); }

    void write(const QJsonObject& line)
    {
        m_log.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
        m_log.flush();
    }

    QDBusConnection m_bus;
    QStringList m_options;
    QFile& m_log;
    uint m_lastId = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    QFile log;
    for (const QString& option : QCoreApplication::arguments()) {
        if (option.startsWith(u"log="_s))
            log.setFileName(option.mid(4));
    }
    if (log.fileName().isEmpty())
        log.open(stdout, QIODevice::WriteOnly);
    else
        log.open(QIODevice::Append);
    if (!QDBusConnection::sessionBus().isConnected())
        return 1;
    const QStringList options = QCoreApplication::arguments();
    std::unique_ptr<ScriptedService> service;
    std::unique_ptr<ScriptedPortal> portal;
    if (options.contains(u"portal"_s))
        portal = std::make_unique<ScriptedPortal>(options, log);
    else
        service = std::make_unique<ScriptedService>(options, log);

    QByteArray input;
    QSocketNotifier notifier(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [&] {
        char bytes[4096];
        const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
        if (count <= 0)
            notifier.setEnabled(false);
        else
            input.append(bytes, count);
        for (qsizetype end = input.indexOf('\n'); end >= 0; end = input.indexOf('\n')) {
            const QString line = QString::fromUtf8(input.left(end));
            input.remove(0, end + 1);
            if (portal)
                portal->command(line);
            else
                service->command(line);
        }
    });
    return QCoreApplication::exec();
}

#include "scripted_service.moc"
