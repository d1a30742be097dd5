// SPDX-License-Identifier: Apache-2.0
#include "service_fixture.h"

#include "event_loop.h"

#include <zepa_platform/popups.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonDocument>

#include <algorithm>
#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

CFStringRef cfString(const QString& text)
{
    return CFStringCreateWithBytes(nullptr, reinterpret_cast<const UInt8*>(text.utf16()), text.size() * 2,
                                   kCFStringEncodingUnicode, false);
}

CFStringRef cfString(const std::optional<QString>& text)
{
    return text ? cfString(*text) : nullptr;
}

void release(CFTypeRef object)
{
    if (object != nullptr)
        CFRelease(object);
}

CFArrayRef cfArray(const QStringList& names)
{
    std::vector<const void*> values;
    for (const QString& name : names)
        values.push_back(cfString(name));
    const CFArrayRef array =
        CFArrayCreate(nullptr, values.data(), static_cast<CFIndex>(values.size()), &kCFTypeArrayCallBacks);
    for (const void* value : values)
        CFRelease(value);
    return array;
}

std::string textOf(CFPropertyListRef context)
{
    const auto string = static_cast<CFStringRef>(context);
    QString text(CFStringGetLength(string), Qt::Uninitialized);
    CFStringGetCharacters(string, {0, text.size()}, reinterpret_cast<UniChar*>(text.data()));
    return text.toStdString();
}

void tell(const std::string& what, CFPropertyListRef context, std::vector<std::string>& answers, bool inside)
{
    EXPECT_FALSE(inside) << "a call-back came from inside one of Growl's functions";
    answers.push_back(what + ' ' + textOf(context));
}

/// A process that does not outlive this one, however this one ends.
void start(QProcess& process, const QString& program, const QStringList& arguments)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
    ASSERT_TRUE(process.waitForStarted()) << program.toStdString() << " is not installed";
}

CFDataRef cfData(const QByteArray& bytes)
{
    if (bytes.isNull())
        return nullptr;
    return CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(bytes.constData()), bytes.size());
}

} // namespace

ServiceProcess::ServiceProcess(const QStringList& options, const QByteArray& bus)
{
    if (!bus.isEmpty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, QString::fromLocal8Bit(bus));
        m_process.setProcessEnvironment(environment);
    }
    start(m_process, QString::fromUtf8(SCRIPTED_SERVICE), options);
}

ServiceProcess::~ServiceProcess()
{
    kill();
}

void ServiceProcess::tell(const QString& command)
{
    m_process.write(command.toUtf8() + '\n');
    m_process.waitForBytesWritten();
}

void ServiceProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

void ServiceProcess::stop() const
{
    ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP);
}

void ServiceProcess::resume() const
{
    ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT);
}

const QList<QJsonObject>& ServiceProcess::lines()
{
    m_rest += m_process.readAllStandardOutput();
    for (qsizetype end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        m_lines.append(QJsonDocument::fromJson(m_rest.left(end)).object());
        m_rest.remove(0, end + 1);
    }
    return m_lines;
}

bool ServiceProcess::wrote(const QString& key)
{
    for (const QJsonObject& line : lines()) {
        if (line.contains(key))
            return true;
    }
    return false;
}

QList<QJsonObject> ServiceProcess::calls(const QString& method)
{
    QList<QJsonObject> result;
    for (const QJsonObject& line : lines()) {
        if (line[u"call"_s] == method)
            result.append(line);
    }
    return result;
}

ServiceTest::ServiceTest()
{
    QDir().mkpath(path("services"));
    // With the defaults, a bus has no place for bursts of others.
    setBusLimits(R"(
  <limit name="max_incoming_bytes">1000000000</limit>
  <limit name="max_incoming_unix_fds">250000000</limit>
  <limit name="max_outgoing_bytes">1000000000</limit>
  <limit name="max_outgoing_unix_fds">250000000</limit>
  <limit name="max_message_size">1000000000</limit>
  <limit name="service_start_timeout">120000</limit>
  <limit name="auth_timeout">240000</limit>
  <limit name="pending_fd_timeout">150000</limit>
  <limit name="max_completed_connections">100000</limit>
  <limit name="max_incomplete_connections">10000</limit>
  <limit name="max_connections_per_user">100000</limit>
  <limit name="max_pending_service_starts">10000</limit>
  <limit name="max_names_per_connection">50000</limit>
  <limit name="max_match_rules_per_connection">50000</limit>
  <limit name="max_replies_per_connection">50000</limit>
)");
    qputenv("DBUS_SESSION_BUS_ADDRESS", startedBusAddress());
    directBusAddress() = m_bus.directAddress();
    if (!TestBus::whatIsMissing().isEmpty())
        return;
    startBus();
    registerNames({u"Message"_s, u"Mail"_s});
}

void ServiceTest::setBusLimits(const QByteArray& limits)
{
    QFile configuration(path("bus.conf"));
    configuration.open(QIODevice::WriteOnly);
    configuration.write(R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=)" + path("bus").toUtf8() +
                        R"(</listen>
  <auth>EXTERNAL</auth>
  <servicedir>)" + path("services").toUtf8() +
                        R"(</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
)" + limits + "</busconfig>\n");
}

ServiceTest::~ServiceTest()
{
    Growl_SetDelegate(nullptr);
    answers().clear();
    QDBusConnection::disconnectFromBus(u"forger"_s);
    killBus();
}

void ServiceTest::SetUp()
{
    if (!TestBus::whatIsMissing().isEmpty())
        GTEST_SKIP() << TestBus::whatIsMissing().toStdString();
}

void ServiceTest::startBus(const QStringList& brokerLimits)
{
    ASSERT_TRUE(m_bus.start(brokerLimits));
}

void ServiceTest::stopBus() const
{
    m_bus.stop();
}

void ServiceTest::killBus()
{
    m_bus.kill();
}

QString ServiceTest::makeActivatable(const QStringList& options)
{
    QFile file(path("services/org.freedesktop.Notifications.service"));
    file.open(QIODevice::WriteOnly);
    file.write("[D-BUS Service]\nName=org.freedesktop.Notifications\nExec=" SCRIPTED_SERVICE " log=" +
               path("activated.log").toUtf8() + ' ' + options.join(u' ').toUtf8() + '\n');
    file.close();
    if (!m_bus.isRunning())
        return path("activated.log");
    // A bus looks at its folder when it has heard that a file is new: not at once, and not while it starts itself.
    EXPECT_TRUE(waitFor([this] {
        const QDBusConnection bus =
            QDBusConnection::connectToBus(QString::fromLocal8Bit(directBusAddress()), u"asking"_s);
        bus.call(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                u"org.freedesktop.DBus"_s, u"ReloadConfig"_s));
        return bus.interface()->activatableServiceNames().value().contains(u"org.freedesktop.Notifications"_s);
    }));
    QDBusConnection::disconnectFromBus(u"asking"_s);
    return path("activated.log");
}

std::unique_ptr<ServiceProcess> ServiceTest::startService(const QStringList& options)
{
    auto service =
        std::make_unique<ServiceProcess>(options, TestBus::isBehindAProxy() ? directBusAddress() : QByteArray());
    EXPECT_TRUE(waitFor([&] { return service->wrote(u"ready"_s); }));
    return service;
}

void ServiceTest::registerNames(const QStringList& all, const std::optional<QStringList>& enabled)
{
    const CFArrayRef allNames = cfArray(all);
    const CFArrayRef enabledNames = enabled ? cfArray(*enabled) : nullptr;
    const void* keys[] = {CFSTR("AllNotifications"), CFSTR("DefaultNotifications")};
    const void* values[] = {allNames, enabledNames};
    const CFDictionaryRef dictionary = CFDictionaryCreate(
        nullptr, keys, values, enabled ? 2 : 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
    // Gone when the call returns: what is touched later, the address sanitizer sees.
    auto delegate = std::make_unique<Growl_Delegate>();
    delegate->size = sizeof(Growl_Delegate);
    delegate->applicationName = CFSTR("Test application");
    delegate->registrationDictionary = dictionary;
    const CFDataRef icon = cfData(applicationIcon());
    delegate->applicationIconData = icon;
    delegate->growlNotificationWasClicked = onClicked;
    delegate->growlNotificationTimedOut = onTimedOut;
    insideGrowl() = true;
    EXPECT_TRUE(Growl_SetDelegate(delegate.get()));
    insideGrowl() = false;
    release(icon);
    release(dictionary);
    release(enabledNames);
    release(allNames);
}

CFStringRef ServiceTest::newString(const QString& text)
{
    return cfString(text);
}

void ServiceTest::post(const TestPosting& posting)
{
    Growl_Notification notification{};
    notification.size = sizeof notification;
    notification.name = cfString(posting.name);
    notification.title = cfString(posting.title);
    notification.description = cfString(posting.text);
    notification.iconData = cfData(posting.icon);
    notification.priority = posting.priority;
    notification.isSticky = posting.sticky ? 1 : 0;
    if (posting.ownContext != nullptr)
        notification.clickContext = CFRetain(posting.ownContext);
    else if (!posting.context.empty())
        notification.clickContext = cfString(QString::fromStdString(posting.context));
    notification.clickCallback = posting.clickCallBack;
    insideGrowl() = true;
    Growl_PostNotification(&notification);
    insideGrowl() = false;
    release(notification.name);
    release(notification.title);
    release(notification.description);
    release(notification.iconData);
    release(notification.clickContext);
}

QByteArray ServiceTest::pictureFile(QSize size, const QColor& colour)
{
    QImage image(size, QImage::Format_RGB888);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

void ServiceTest::postClickable(const std::string& context)
{
    TestPosting posting;
    posting.context = context;
    post(posting);
}

bool ServiceTest::waitFor(const std::function<bool()>& condition, int patience)
{
    return runUntil(condition, patience);
}

bool ServiceTest::waitUntilAcquainted(ServiceProcess& service)
{
    post({});
    return waitForPopups(service, 1);
}

bool ServiceTest::waitUntilSettled()
{
    return waitFor([] { return zepaPopupsOnTheirWay() == 0; });
}

bool ServiceTest::waitForAnswers(std::size_t count)
{
    return waitFor([count] { return answers().size() >= count; });
}

bool ServiceTest::waitForPopups(ServiceProcess& service, int count)
{
    return waitFor([&] { return service.calls().size() >= count; });
}

void ServiceTest::letEverythingArrive(ServiceProcess& service)
{
    static int count = 0;
    TestPosting posting;
    posting.title = u"last %1"_s.arg(++count);
    posting.context = "last";
    post(posting);
    const auto isIt = [&](const QJsonObject& call) { return call[u"summary"_s] == *posting.title; };
    ASSERT_TRUE(waitFor([&] {
        const QList<QJsonObject> calls = service.calls();
        return std::any_of(calls.begin(), calls.end(), isIt);
    }));
    const QList<QJsonObject> calls = service.calls();
    const QJsonObject call = *std::find_if(calls.begin(), calls.end(), isIt);
    service.tell(u"click %1"_s.arg(call[u"id"_s].toInt()));
    ASSERT_TRUE(waitFor([] { return !answers().empty() && answers().back() == "clicked last"; }));
    answers().pop_back();
}

void ServiceTest::forge(const QString& signal, const QVariantList& arguments, const QString& receiver)
{
    const QString path = u"/org/freedesktop/Notifications"_s;
    const QString interface = u"org.freedesktop.Notifications"_s;
    emitFromAStranger(QDBusMessage::createTargetedSignal(receiver, path, interface, signal), arguments);
}

void ServiceTest::forgeOfTheBus(const QString& signal, const QVariantList& arguments, const QString& receiver)
{
    const QString path = u"/org/freedesktop/DBus"_s;
    const QString interface = u"org.freedesktop.DBus"_s;
    emitFromAStranger(QDBusMessage::createTargetedSignal(receiver, path, interface, signal), arguments);
}

QByteArray& ServiceTest::directBusAddress()
{
    static QByteArray address;
    return address;
}

void ServiceTest::emitFromAStranger(QDBusMessage message, const QVariantList& arguments)
{
    QDBusConnection bus = QDBusConnection::connectToBus(QString::fromLocal8Bit(directBusAddress()), u"forger"_s);
    ASSERT_TRUE(bus.isConnected());
    message.setArguments(arguments);
    ASSERT_TRUE(bus.send(message));
    // A reply of the bus comes after it has passed on everything before the call.
    const QDBusMessage ping =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    ASSERT_EQ(bus.call(ping).type(), QDBusMessage::ReplyMessage);
}

QByteArray& ServiceTest::applicationIcon()
{
    static QByteArray bytes;
    return bytes;
}

ServiceTest::Answers& ServiceTest::answers()
{
    static Answers list;
    return list;
}

bool& ServiceTest::insideGrowl()
{
    static bool inside = false;
    return inside;
}

void ServiceTest::onClicked(CFPropertyListRef context)
{
    tell("clicked", context, answers(), insideGrowl());
}

void ServiceTest::onTimedOut(CFPropertyListRef context)
{
    tell("timed out", context, answers(), insideGrowl());
}

void ServiceTest::onOwnClick(CFPropertyListRef context)
{
    tell("own", context, answers(), insideGrowl());
}

QByteArray& ServiceTest::notedToken()
{
    static QByteArray token;
    return token;
}

void ServiceTest::noteToken(CFPropertyListRef /*context*/)
{
    notedToken() = qgetenv("XDG_ACTIVATION_TOKEN");
}
