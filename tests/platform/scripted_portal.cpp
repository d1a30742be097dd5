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

using namespace Qt::StringLiterals;

namespace {

const QString& name()
{
    static const QString text = u"org.freedesktop.portal.Desktop"_s;
    return text;
}

const QString& path()
{
    static const QString text = u"/org/freedesktop/portal/desktop"_s;
    return text;
}

QString typeOf(const QVariant& value)
{
    if (value.metaType() == QMetaType::fromType<QDBusArgument>())
        return value.value<QDBusArgument>().currentSignature();
    if (value.metaType() == QMetaType::fromType<QStringList>())
        return u"as"_s;
    return value.metaType() == QMetaType::fromType<QString>() ? u"s"_s : QString::fromLatin1(value.metaType().name());
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
    return {{u"kind"_s, kind}, {u"width"_s, image.width()}, {u"height"_s, image.height()}};
}

} // namespace

ScriptedPortal::ScriptedPortal(const QStringList& options, QFile& log)
    : m_bus(QDBusConnection::sessionBus()), m_options(options), m_log(log)
{
    m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s,
                  QCoreApplication::instance(), SLOT(quit()));
    m_bus.registerVirtualObject(path(), this);
    m_bus.interface()->registerService(name(), QDBusConnectionInterface::DontQueueService,
                                       QDBusConnectionInterface::AllowReplacement);
    write({{u"ready"_s, true}});
}

bool ScriptedPortal::handleMessage(const QDBusMessage& call, const QDBusConnection& /*connection*/)
{
    if (call.member() == u"AddNotification"_s) {
        onAdd(call);
        return true;
    }
    write({{u"call"_s, call.member()}, {u"id"_s, call.arguments().value(0).toString()}});
    if (call.member() == u"GetAll"_s)
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
    QVariantMap properties{{u"version"_s, has("version-2") ? 2U : 1U}};
    if (has("version-2")) {
        properties.insert(u"SupportedOptions"_s, QVariantMap{{u"category"_s, QStringList{u"im.received"_s}}});
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
    QJsonObject line{{u"call"_s, call.member()},
                     {u"sender"_s, call.service()},
                     {u"signature"_s, call.signature()},
                     {u"id"_s, call.arguments().value(0).toString()},
                     {u"types"_s, types},
                     {u"values"_s, values}};
    if (data.contains(u"icon"_s))
        line[u"icon"_s] = iconOf(data.value(u"icon"_s));
    m_shown.append({call.arguments().value(0).toString(), call.service()});
    write(line);
    if (has("mute"))
        return;
    if (has("refuse")) {
        m_bus.send(call.createErrorReply(u"org.freedesktop.portal.Error.InvalidArgument"_s, QString()));
        return;
    }
    if (has("click-first"))
        invoke(m_shown.size(), u"default"_s, {});
    m_bus.send(call.createReply());
}

void ScriptedPortal::invoke(qsizetype number, const QString& action, const QVariantList& parameters)
{
    const Shown shown = m_shown.value(number - 1);
    QDBusMessage message = QDBusMessage::createTargetedSignal(
        shown.sender, path(), u"org.freedesktop.portal.Notification"_s, u"ActionInvoked"_s);
    message.setArguments({shown.id, action, QVariant(parameters)});
    m_bus.send(message);
}

void ScriptedPortal::command(const QString& line)
{
    const QStringList words = line.split(u' ');
    const QString verb = words.value(0);
    const qsizetype number = words.value(1).toInt();
    const QString click = u"default"_s;
    if (verb == u"click"_s) {
        invoke(number, click, {});
    } else if (verb == u"invoke"_s) {
        invoke(number, words.value(2), {});
    } else if (verb == u"token"_s) {
        const QVariantMap platform{{u"activation-token"_s, words.value(2)}, {u"another"_s, 1}};
        invoke(number, click, {u"target"_s, platform});
    } else if (verb == u"odd-token"_s) {
        invoke(number, click, {42, QVariantMap{{u"activation-token"_s, 42}}});
    } else if (verb == u"sleep"_s) {
        write({{u"asleep"_s, true}});
        QThread::msleep(words.value(1).toULong());
    } else if (verb == u"release"_s) {
        m_bus.unregisterService(name());
        write({{u"released"_s, true}});
    }
}

void ScriptedPortal::write(const QJsonObject& line)
{
    m_log.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    m_log.flush();
}
