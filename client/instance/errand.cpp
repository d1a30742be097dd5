// SPDX-License-Identifier: Apache-2.0
#include "client/instance/errand.h"

#include "client/cli/exit_code.h"
#include "client/cli/output.h"
#include "client/instance/names.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QTimer>

#include <utility>

namespace zepa::instance {

namespace {

constexpr int patience = 5000;

const QString ownErrors = interfaceName + QStringLiteral(".Error.");

constexpr int busPatience = 2000;

QDBusMessage busCall(const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = bus::busCall(method);
    call.setArguments(arguments);
    return call;
}

bool isNobodyThere(const QDBusMessage& answer)
{
    return answer.errorName() == QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown") ||
           answer.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
}

/// Why a client that is there did not do it; says it.
int tellFailure(const QDBusMessage& answer)
{
    if (answer.errorName().startsWith(ownErrors)) {
        const QStringList lines = answer.errorMessage().split(u'\n');
        for (const QString& line : lines)
            cli::complain(cli::onOneLine(line));
        const QString kind = answer.errorName().mid(ownErrors.size());
        if (kind == QStringLiteral("TooMuch"))
            return cli::Busy;
        return kind == QStringLiteral("AccessDenied") ? cli::Failure : cli::WrongUsage;
    }
    cli::complain(QStringLiteral("another Zepa with these settings is not responding (%1); nothing was done. Quit it, "
                                 "or choose another folder with --settings")
                      .arg(cli::onOneLine(answer.errorMessage())));
    return cli::Failure;
}

} // namespace

bool openBus(bus::SessionBus& bus)
{
    if (!bus.open())
        return false;
    if (bus.isOpening()) {
        QEventLoop loop;
        QObject::connect(&bus, &bus::SessionBus::opened, &loop, &QEventLoop::quit);
        QObject::connect(&bus, &bus::SessionBus::closed, &loop, &QEventLoop::quit);
        QTimer::singleShot(busPatience, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return bus.isOpen();
}

Errand::Errand(bus::SessionBus& bus, QString busName) : m_bus(bus), m_busName(std::move(busName))
{
    connect(&m_bus, &bus::SessionBus::closed, &m_loop, &QEventLoop::quit);
}

std::optional<int> Errand::handOver(const QStringList& arguments, const QString& folder, const QByteArray& input)
{
    // They come to us alone, so the bus need not be asked for them.
    QDBusConnection connection = m_bus.connection();
    for (const QString& signal : {QStringLiteral("Output"), QStringLiteral("Finished")})
        connection.connect(QString(), objectPath, interfaceName, signal, this, SLOT(hear(QDBusMessage)));
    const QDBusMessage answer = ask(callTo(QStringLiteral("Run"), {arguments, folder, input}));
    if (isNobodyThere(answer))
        return std::nullopt;
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != QStringLiteral("u"))
        return tellFailure(answer);
    return follow(answer.service(), answer.arguments().constFirst().toUInt());
}

/// From the client's answer to the end of the command.
int Errand::follow(const QString& owner, unsigned int job)
{
    m_owner = owner;
    m_job = job;
    m_bus.listen(bus::busName(), bus::busPath(), bus::busName(), QStringLiteral("NameOwnerChanged"), this,
                 SLOT(hearOfOwner(QDBusMessage)), owner);
    const auto early = std::exchange(m_heard, {});
    for (const QDBusMessage& signal : early)
        obey(signal);
    // It may have gone before it was watched.
    const bool isGone =
        !m_code && ask(busCall(QStringLiteral("GetNameOwner"), {owner})).type() == QDBusMessage::ErrorMessage;
    if (!m_code && !isGone && m_bus.isOpen())
        m_loop.exec();
    if (m_code)
        return *m_code;
    cli::complain(QStringLiteral("the running client ended before the command was done"));
    return cli::Failure;
}

void Errand::hear(const QDBusMessage& signal)
{
    // Its answer to the call names the client; its first words may be here before.
    if (m_owner.isEmpty())
        m_heard.append(signal);
    else
        obey(signal);
}

void Errand::hearOfOwner(const QDBusMessage& signal)
{
    // What it had to say before it went has arrived by now.
    if (signal.service() == bus::busName() && signal.arguments().value(0).toString() == m_owner)
        m_loop.quit();
}

void Errand::obey(const QDBusMessage& signal)
{
    const QVariantList arguments = signal.arguments();
    if (signal.service() != m_owner || arguments.value(0).toUInt() != m_job || m_code)
        return;
    if (signal.member() == QStringLiteral("Output") && signal.signature() == QStringLiteral("ubs")) {
        cli::passOn(arguments.at(1).toBool() ? cli::Stream::Errors : cli::Stream::Output,
                    arguments.at(2).toString().toUtf8());
    } else if (signal.member() == QStringLiteral("Finished") && signal.signature() == QStringLiteral("ui")) {
        m_code = arguments.at(1).toInt();
        m_loop.quit();
    }
}

Errand::Claim Errand::claim(const QString& token)
{
    // Whoever has the name may leave it in the moment in which it is asked.
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        constexpr uint doNotQueue = 4;
        constexpr uint isOwner = 1;
        constexpr uint isOwnerAlready = 4;
        const QDBusMessage owning = ask(busCall(QStringLiteral("RequestName"), {m_busName, doNotQueue}));
        const uint result = owning.arguments().value(0).toUInt();
        if (owning.type() != QDBusMessage::ReplyMessage || result == isOwner || result == isOwnerAlready)
            return Claim::First;
        const QDBusMessage answer = ask(callTo(QStringLiteral("Activate"), {token}));
        if (answer.type() == QDBusMessage::ReplyMessage)
            return Claim::Second;
        if (!isNobodyThere(answer)) {
            tellFailure(answer);
            return Claim::Failed;
        }
    }
    return Claim::First;
}

QDBusMessage Errand::callTo(const QString& method, const QVariantList& arguments) const
{
    QDBusMessage call = QDBusMessage::createMethodCall(m_busName, objectPath, interfaceName, method);
    call.setAutoStartService(false);
    call.setArguments(arguments);
    return call;
}

/// Asks and handles events until the answer is there. An error when there is none in time.
QDBusMessage Errand::ask(const QDBusMessage& question)
{
    if (!m_bus.isOpen())
        return QDBusMessage::createError(QDBusError::Disconnected, QStringLiteral("the session bus is gone"));
    QDBusPendingCallWatcher answer(m_bus.connection().asyncCall(question, patience));
    if (!answer.isFinished()) {
        QEventLoop loop;
        connect(&answer, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return answer.reply();
}

} // namespace zepa::instance
