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

namespace {

const QString& name()
{
    static const QString text = QStringLiteral("org.freedesktop.Notifications");
    return text;
}

const QString& path()
{
    static const QString text = QStringLiteral("/org/freedesktop/Notifications");
    return text;
}

QString typeOf(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<QDBusArgument>())
        return value.value<QDBusArgument>().currentSignature();
    if (value.metaType() == QMetaType::fromType<uchar>())
        return QStringLiteral("y");
    if (value.metaType() == QMetaType::fromType<QString>())
        return QStringLiteral("s");
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
    return {{QStringLiteral("width"), width},        {QStringLiteral("height"), height},
            {QStringLiteral("row"), rowBytes},       {QStringLiteral("alpha"), alpha},
            {QStringLiteral("bits"), bits},          {QStringLiteral("channels"), channels},
            {QStringLiteral("bytes"), pixels.size()}};
}

class ScriptedService : public QDBusVirtualObject
{
    Q_OBJECT

public:
    ScriptedService(const QStringList& options, QFile& log)
        : m_bus(QDBusConnection::sessionBus()), m_options(options), m_log(log)
    {
        m_bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                      QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                      QCoreApplication::instance(), SLOT(quit()));
        m_bus.registerVirtualObject(path(), this);
        QTimer::singleShot(has("late-start") ? 1000 : 0, this, &ScriptedService::takeName);
    }

    QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& /*connection*/) override
    {
        const QString method = call.member();
        if (method == QStringLiteral("Notify"))
            return onNotify(call);
        QJsonObject line{{QStringLiteral("call"), method}, {QStringLiteral("sender"), call.service()}};
        if (method == QStringLiteral("CloseNotification")) {
            line[QStringLiteral("id")] = call.arguments().value(0).toInt();
            write(line);
            m_bus.send(call.createReply());
            emitClosed(call.arguments().value(0).toUInt(), 3);
            return true;
        }
        write(line);
        const bool isMute =
            has("mute") || has("mute-capabilities") || (has("mute-first-capabilities") && m_lastId == 0);
        if (method != QStringLiteral("GetCapabilities") || isMute)
            return true;
        QStringList capabilities{QStringLiteral("body")};
        if (!has("no-actions"))
            capabilities.append(QStringLiteral("actions"));
        if (has("markup"))
            capabilities.append(QStringLiteral("body-markup"));
        const QDBusMessage reply = has("wrong-types") ? call.createReply(42) : call.createReply(capabilities);
        QTimer::singleShot(has("late-capabilities") ? 300 : 0, this, [this, reply] { m_bus.send(reply); });
        return true;
    }

    void command(const QString& line)
    {
        const QStringList words = line.split(u' ');
        const QString verb = words.value(0);
        const uint id = words.value(1).toUInt();
        if (verb == QStringLiteral("click")) {
            emitSignal("ActionInvoked", {id, QStringLiteral("default")});
        } else if (verb == QStringLiteral("invoke")) {
            emitSignal("ActionInvoked", {id, words.value(2)});
        } else if (verb == QStringLiteral("close")) {
            emitClosed(id, 2);
        } else if (verb == QStringLiteral("token")) {
            emitSignal("ActivationToken", {id, words.value(2)});
        } else if (verb == QStringLiteral("wrong-signals")) {
            emitSignal("ActionInvoked", {QStringLiteral("default"), id});
            emitSignal("ActionInvoked", {id});
            emitSignal("NotificationClosed", {id});
            emitSignal("NotificationClosed", {QStringLiteral("1"), QStringLiteral("2")});
            emitSignal("ActivationToken", {});
        } else if (verb == QStringLiteral("sleep")) {
            write({{QStringLiteral("asleep"), true}});
            QThread::msleep(words.value(1).toULong());
            write({{QStringLiteral("awake"), true}});
        } else if (verb == QStringLiteral("release")) {
            m_bus.unregisterService(name());
            write({{QStringLiteral("released"), true}});
        }
    }

private:
    bool has(const char* option) const { return m_options.contains(QLatin1String(option)); }

    void takeName()
    {
        const auto how = has("replace") ? QDBusConnectionInterface::ReplaceExistingService
                                        : QDBusConnectionInterface::DontQueueService;
        m_bus.interface()->registerService(name(), how, QDBusConnectionInterface::AllowReplacement);
        write({{QStringLiteral("ready"), true}});
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
        QJsonObject line{{QStringLiteral("call"), QStringLiteral("Notify")},
                         {QStringLiteral("sender"), call.service()},
                         {QStringLiteral("signature"), call.signature()},
                         {QStringLiteral("application"), arguments.value(0).toString()},
                         {QStringLiteral("replaces"), arguments.value(1).toInt()},
                         {QStringLiteral("icon"), arguments.value(2).toString()},
                         {QStringLiteral("summary"), arguments.value(3).toString()},
                         {QStringLiteral("body"), arguments.value(4).toString()},
                         {QStringLiteral("actions"), QJsonArray::fromStringList(arguments.value(5).toStringList())},
                         {QStringLiteral("hints"), types},
                         {QStringLiteral("values"), values},
                         {QStringLiteral("urgency"), hints.value(QStringLiteral("urgency")).toInt()},
                         {QStringLiteral("timeout"), arguments.value(7).toInt()}};
        if (hints.contains(QStringLiteral("image-data")))
            line[QStringLiteral("image")] = imageOf(hints.value(QStringLiteral("image-data")));
        const uint id = has("same-id") ? 1 : ++m_lastId;
        line[QStringLiteral("id")] = static_cast<int>(id);
        write(line);
        reply(call, id);
        return true;
    }

    void reply(const QDBusMessage& call, uint id)
    {
        if (has("mute") || has("mute-notify"))
            return;
        if (has("refuse")) {
            m_bus.send(call.createErrorReply(QStringLiteral("org.freedesktop.Notifications.Error"), QString()));
            return;
        }
        if (has("wrong-types")) {
            m_bus.send(call.createReply(QStringLiteral("1")));
            return;
        }
        if (has("close-first") || has("close-click-first"))
            emitClosed(id, 2);
        if (has("click-first") || has("close-click-first"))
            emitSignal("ActionInvoked", {id, QStringLiteral("default")});
        m_bus.send(call.createReply(id));
        if (has("merge") && id > 1)
            emitClosed(id - 1, 1);
        if (has("click-last"))
            emitSignal("ActionInvoked", {id, QStringLiteral("default")});
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
        if (option.startsWith(QStringLiteral("log=")))
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
    if (options.contains(QStringLiteral("portal")))
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
