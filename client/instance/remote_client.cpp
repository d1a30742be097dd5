// SPDX-License-Identifier: Apache-2.0
#include "client/instance/remote_client.h"

#include "client/cli/exit_code.h"
#include "client/cli/output.h"
#include "client/instance/bus_name.h"

#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::instance {

namespace {

constexpr int answerLimit = 5000;
constexpr int openingLimit = 2000;

bool isNobodyThere(const bus::Message& answer)
{
    return answer.errorName() == QLatin1StringView("org.freedesktop.DBus.Error.ServiceUnknown") ||
           answer.errorName() == QLatin1StringView("org.freedesktop.DBus.Error.NameHasNoOwner");
}

/// Why a client that is there did not do it; says it.
int tellFailure(const bus::Message& answer)
{
    const QLatin1StringView prefix(errorPrefix);
    if (answer.errorName().startsWith(prefix)) {
        const QStringList lines = answer.errorText().split(u'\n');
        for (const QString& line : lines)
            cli::printError(cli::onOneLine(line));
        const QLatin1StringView kind = answer.errorName().mid(prefix.size());
        if (kind == QLatin1StringView("TooMuch"))
            return cli::Busy;
        return kind == QLatin1StringView("AccessDenied") ? cli::Failure : cli::WrongUsage;
    }
    const QString text = answer.errorText();
    cli::printError(u"another Zepa with these settings is not responding (%1); nothing was done. Quit it, "
                    u"or choose another folder with --settings"_s.arg(
                        cli::onOneLine(text.isEmpty() ? QString(answer.errorName()) : text)));
    return cli::Failure;
}

} // namespace

bool openBus(bus::Connection& bus)
{
    bus.open();
    if (bus.state() == bus::Connection::State::Opening) {
        QEventLoop loop;
        QObject::connect(&bus, &bus::Connection::opened, &loop, &QEventLoop::quit);
        QObject::connect(&bus, &bus::Connection::closed, &loop, &QEventLoop::quit);
        QTimer::singleShot(openingLimit, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return bus.isOpen();
}

RemoteClient::RemoteClient(bus::Connection& bus, QByteArray busName) : m_bus(bus), m_busName(std::move(busName))
{
    QObject::connect(&m_bus, &bus::Connection::closed, &m_loop, &QEventLoop::quit);
}

std::optional<int> RemoteClient::handOver(const QStringList& arguments, const QString& folder, const QByteArray& input)
{
    // They come to us alone, so the bus need not be asked for them.
    bus::SignalMatch match;
    match.sender = m_busName;
    match.path = objectPath;
    match.interface = interfaceName;
    match.isDirected = true;
    const auto registration = m_bus.subscribe(match, [this](const bus::Message& signal) { handleSignal(signal); });
    const bus::Message answer = call(newCall("Run").append(arguments).append(folder).append(input));
    if (isNobodyThere(answer))
        return std::nullopt;
    unsigned int job = 0;
    if (answer.isError() || answer.signature() != QLatin1StringView("u") || !bus::MessageReader(answer).read(job))
        return tellFailure(answer);
    return waitForResult(QByteArray(answer.sender().data(), answer.sender().size()), job);
}

/// From the client's answer to the end of the command.
int RemoteClient::waitForResult(const QByteArray& client, unsigned int job)
{
    m_client = client;
    m_job = job;
    const bus::ServiceWatcher watcher(m_bus, client);
    // What it had to say before it went has arrived by then.
    QObject::connect(&watcher, &bus::ServiceWatcher::changed, &m_loop, [this, &watcher] {
        if (watcher.isKnown() && watcher.owner().isEmpty())
            m_loop.quit();
    });
    const auto early = std::exchange(m_early, {});
    for (const bus::Message& signal : early)
        handleSignal(signal);
    if (!m_code && m_bus.isOpen())
        m_loop.exec();
    if (m_code)
        return *m_code;
    cli::printError(u"the running Zepa quit before the command finished"_s);
    return cli::Failure;
}

void RemoteClient::handleSignal(const bus::Message& signal)
{
    // Its answer to the call names the client; its first words may be here before.
    if (m_client.isEmpty()) {
        m_early.append(signal);
        return;
    }
    if (signal.sender() != QLatin1StringView(m_client) || m_code)
        return;
    bus::MessageReader reader(signal);
    unsigned int job = 0;
    if (signal.member() == QLatin1StringView("Output") && signal.signature() == QLatin1StringView("ubs")) {
        bool isError = false;
        QString text;
        if (reader.read(job, isError, text) && job == m_job)
            cli::passOn(isError ? cli::Stream::Errors : cli::Stream::Output, text.toUtf8());
    } else if (signal.member() == QLatin1StringView("Finished") && signal.signature() == QLatin1StringView("ui")) {
        int code = 0;
        if (!reader.read(job, code) || job != m_job)
            return;
        m_code = code;
        m_loop.quit();
    }
}

RemoteClient::Claim RemoteClient::claim(const QString& token)
{
    // The owner of the name may give it up just as it is asked.
    constexpr int attempts = 3;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (requestName() != bus::NameResult::Taken)
            return Claim::First;
        const bus::Message answer = call(newCall("Activate").append(token));
        if (!answer.isError())
            return Claim::Second;
        if (!isNobodyThere(answer)) {
            tellFailure(answer);
            return Claim::Failed;
        }
    }
    return Claim::First;
}

bus::NameResult RemoteClient::requestName()
{
    bus::NameResult result = bus::NameResult::Failed;
    QEventLoop loop;
    m_bus.requestName(m_busName, &loop, [&](bus::NameResult given) {
        result = given;
        loop.quit();
    });
    loop.exec();
    return result;
}

bus::Message RemoteClient::newCall(const char* method)
{
    return m_bus.newCall(m_busName.constData(), objectPath, interfaceName, method).setAutoStart(false);
}

/// Handles events until the answer is there: an error when there is none in time.
bus::Message RemoteClient::call(const bus::Message& question)
{
    bus::Message answer;
    QEventLoop loop;
    const auto take = [&](const bus::Message& given) {
        answer = given;
        loop.quit();
    };
    m_bus.call(question, &loop, take, {.limit = answerLimit});
    loop.exec();
    return answer;
}

} // namespace zepa::instance
