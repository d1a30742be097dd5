// SPDX-License-Identifier: Apache-2.0
#include "scripted_portal.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QImage>
#include <QJsonDocument>
#include <QThread>
#include <QTimer>

namespace {

const QString& name()
{
    static const QString text = QStringLiteral("org.freedesktop.portal.Desktop");
    return text;
}

const QString& path()
{
    static const QString text = QStringLiteral("/org/freedesktop/portal/desktop");
    return text;
}

QString typeOf(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<QDBusArgument>())
        return value.value<QDBusArgument>().currentSignature();
    if (value.metaType() == QMetaType::fromType<QStringList>())
        return QStringLiteral("as");
    return value.metaType() == QMetaType::fromType<QString>() ? QStringLiteral("s")
                                                              : QString::fromLatin1(value.metaType().name());
}

/// A serialised icon: its kind, and the size of the picture where that is bytes.
QJsonObject iconOf(const QVariant& value)
{
    const auto argument = value.value<QDBusArgument>();
    QString kind;
    QDBusVariant contents;
    argument.beginStructure();
    argument >> kind >> contents;
    argument.endStructure();
    const QImage image = QImage::fromData(contents.variant().toByteArray(), "PNG");
    return {{QStringLiteral("kind"), kind},
            {QStringLiteral("width"), image.width()},
            {QStringLiteral("height"), image.height()}};
}

} // namespace

ScriptedPortal::ScriptedPortal(const QStringList& options, QFile& log)
    : m_bus(QDBusConnection::sessionBus()), m_options(options), m_log(log)
{
    m_bus.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                  QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                  QCoreApplication::instance(), SLOT(quit()));
    m_bus.registerVirtualObject(path(), this);
    m_bus.interface()->registerService(name(), QDBusConnectionInterface::DontQueueService,
                                       QDBusConnectionInterface::AllowReplacement);
    write({{QStringLiteral("ready"), true}});
}

bool ScriptedPortal::handleMessage(const QDBusMessage& call, const QDBusConnection& /*connection*/)
{
    if (call.member() == QStringLiteral("AddNotification")) {
        onAdd(call);
        return true;
    }
    write({{QStringLiteral("call"), call.member()}, {QStringLiteral("id"), call.arguments().value(0).toString()}});
    if (call.member() == QStringLiteral("GetAll"))
        onProperties(call);
    else if (call.isReplyRequired())
        m_bus.send(call.createReply());
    return true;
}

void ScriptedPortal::onProperties(const QDBusMessage& call)
{
    if (has("mute") || has("mute-version"))
        return;
    if (has("no-version")) {
        m_bus.send(call.createErrorReply(QDBusError::UnknownInterface, QString()));
        return;
    }
    QVariantMap properties{{QStringLiteral("version"), has("version-2") ? 2U : 1U}};
    if (has("version-2")) {
        properties.insert(QStringLiteral("SupportedOptions"),
                          QVariantMap{{QStringLiteral("category"), QStringList{QStringLiteral("im.received")}}});
    }
    m_bus.send(call.createReply(properties));
}

void ScriptedPortal::onAdd(const QDBusMessage& call)
{
    QVariantMap data;
    call.arguments().value(1).value<QDBusArgument>() >> data;
    QJsonObject types;
    QJsonObject values;
    for (auto entry = data.cbegin(); entry != data.cend(); ++entry) {
        types[entry.key()] = typeOf(entry.value());
        values[entry.key()] = QJsonValue::fromVariant(entry.value());
    }
    QJsonObject line{{QStringLiteral("call"), call.member()},
                     {QStringLiteral("sender"), call.service()},
                     {QStringLiteral("signature"), call.signature()},
                     {QStringLiteral("id"), call.arguments().value(0).toString()},
                     {QStringLiteral("types"), types},
                     {QStringLiteral("values"), values}};
    if (data.contains(QStringLiteral("icon")))
        line[QStringLiteral("icon")] = iconOf(data.value(QStringLiteral("icon")));
    m_shown.append({call.arguments().value(0).toString(), call.service()});
    write(line);
    if (has("mute"))
        return;
    if (has("refuse")) {
        m_bus.send(call.createErrorReply(QStringLiteral("org.freedesktop.portal.Error.InvalidArgument"), QString()));
        return;
    }
    if (has("click-first"))
        invoke(m_shown.size(), QStringLiteral("default"), {});
    m_bus.send(call.createReply());
}

void ScriptedPortal::invoke(qsizetype number, const QString& action, const QVariantList& parameters)
{
    const Shown shown = m_shown.value(number - 1);
    QDBusMessage message = QDBusMessage::createTargetedSignal(
        shown.sender, path(), QStringLiteral("org.freedesktop.portal.Notification"), QStringLiteral("ActionInvoked"));
    message.setArguments({shown.id, action, QVariant(parameters)});
    m_bus.send(message);
}

void ScriptedPortal::command(const QString& line)
{
    const QStringList words = line.split(u' ');
    const QString verb = words.value(0);
    const qsizetype number = words.value(1).toInt();
    const QString click = QStringLiteral("default");
    if (verb == QStringLiteral("click")) {
        invoke(number, click, {});
    } else if (verb == QStringLiteral("invoke")) {
        invoke(number, words.value(2), {});
    } else if (verb == QStringLiteral("token")) {
        const QVariantMap platform{{QStringLiteral("activation-token"), words.value(2)},
                                   {QStringLiteral("another"), 1}};
        invoke(number, click, {QStringLiteral("target"), platform});
    } else if (verb == QStringLiteral("odd-token")) {
        invoke(number, click, {42, QVariantMap{{QStringLiteral("activation-token"), 42}}});
    } else if (verb == QStringLiteral("sleep")) {
        write({{QStringLiteral("asleep"), true}});
        QThread::msleep(words.value(1).toULong());
    } else if (verb == QStringLiteral("release")) {
        m_bus.unregisterService(name());
        write({{QStringLiteral("released"), true}});
    }
}

void ScriptedPortal::write(const QJsonObject& line)
{
    m_log.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    m_log.flush();
}
