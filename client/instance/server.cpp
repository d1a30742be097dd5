// SPDX-License-Identifier: Apache-2.0
#include "client/instance/server.h"

#include "client/client.h"
#include "client/instance/bus_name.h"
#include "client/instance/remote_command.h"
#include "client/window/client_requests.h"
#include "interface_xml.h"

#include <QDir>
#include <QRegularExpression>

#include <chrono>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa::instance {

namespace {

constexpr int mostAtOnce = 64;
constexpr int mostOfOneCaller = 16;
/// A caller gives up after five seconds: the answer, a refusal too, must be there before.
constexpr std::chrono::milliseconds lookUpLimit{2000};

QString tooMuch(const Quota& quota, Quota::Answer answer)
{
    return answer == Quota::Answer::TooManyOfCaller
               ? u"%1 commands of this caller are in progress; that is the limit for one caller"_s.arg(
                     quota.mostPerCaller())
               : u"%1 commands are in progress; that is the limit"_s.arg(quota.most());
}

/// Nothing is known where the bus does not say, and that is refused.
Caller callerOf(const std::optional<bus::Credentials>& credentials)
{
    Caller caller;
    if (!credentials)
        return caller;
    if (credentials->userId)
        caller.user = *credentials->userId;
    caller.process = static_cast<pid_t>(credentials->processId.value_or(0));
    caller.processDescriptor = credentials->processDescriptor;
    caller.label = credentials->securityLabel;
    return caller;
}

/// The <interface> element of zepa.Client1.xml.
QByteArray introspection()
{
    const QByteArray xml = interfaceXml;
    const qsizetype from = xml.indexOf("<interface");
    return xml.mid(from, xml.lastIndexOf("</node>") - from);
}

QByteArray senderOf(const bus::Message& call)
{
    return {call.sender().data(), call.sender().size()};
}

/// Keeps what is said.
class CapturedOutput final : public cli::OutputSink
{
public:
    void write(cli::Stream stream, const QByteArray& text) override { texts.append({stream, text}); }
    /// The errors alone, without the program's name in front of each.
    QString errors() const
    {
        QStringList lines;
        for (const auto& [stream, text] : texts) {
            if (stream == cli::Stream::Errors)
                lines.append(QString::fromUtf8(text).trimmed().remove(QRegularExpression(u"^zepa: "_s)));
        }
        return lines.join(u'\n');
    }

    QList<QPair<cli::Stream, QByteArray>> texts;
};

} // namespace

Server::Server(Client& client, bus::Connection& bus)
    : m_client(client)
    , m_bus(bus)
    , m_lookups(lookUpLimit)
    , m_calls(mostAtOnce, mostOfOneCaller)
    , m_commands(mostAtOnce, mostOfOneCaller)
    , m_object(bus.exportObject(objectPath, introspection(), [this](const bus::Message& call) { handleCall(call); }))
{
    connect(&m_bus, &bus::Connection::closed, this, [this] { ++m_busesLost; });
}

Server::~Server()
{
    const auto jobs = std::exchange(m_jobs, {});
    for (const Job& job : jobs)
        job.command->giveUp();
}

void Server::keepName(const QByteArray& busName)
{
    m_nameWatcher = std::make_unique<bus::ServiceWatcher>(m_bus, busName);
    connect(m_nameWatcher.get(), &bus::ServiceWatcher::changed, this, [this, busName] {
        // Who else gets it meanwhile is seen here, too.
        if (m_nameWatcher->isKnown() && m_nameWatcher->owner().isEmpty())
            m_bus.requestName(busName, this, [](bus::NameResult) {});
    });
}

void Server::handleCall(const bus::Message& call)
{
    if (call.interface() != QLatin1StringView(interfaceName)) {
        m_bus.send(m_bus.newError(call, "org.freedesktop.DBus.Error.UnknownInterface",
                                  u"No such interface '%1' at object path '%2'"_s.arg(call.interface(), call.path())));
        return;
    }
    const QString sender = call.sender();
    if (const auto taken = m_calls.take(sender); taken != Quota::Answer::Taken)
        return refuse(call, {u"TooMuch"_s, tooMuch(m_calls, taken)});
    lookUp(senderOf(call), [this, call, sender, busesLost = m_busesLost](const Caller& caller, const QString& problem) {
        m_calls.giveBack(sender);
        // On another bus, the sender is somebody else.
        if (busesLost == m_busesLost)
            answer(call, caller, problem);
    });
}

void Server::lookUp(const QByteArray& sender, const std::function<void(const Caller&, const QString& problem)>& done)
{
    const auto onCredentials = [this, done](const std::optional<bus::Credentials>& credentials) {
        const Caller caller = callerOf(credentials);
        const CallerLook look(caller);
        if (const auto problem = look.quickProblem())
            return done(caller, *problem);
        m_lookups.ask([look] { return look.problem(); },
                      [done, caller](const QString& problem) { done(caller, problem); });
    };
    m_bus.credentials(sender, this, onCredentials, static_cast<int>(lookUpLimit.count()));
}

void Server::answer(const bus::Message& call, const Caller& caller, const QString& problem)
{
    const QLatin1StringView method = call.member();
    std::optional<Refusal> refusal;
    if (!problem.isEmpty())
        refusal = Refusal{u"AccessDenied"_s, problem};
    else if (method == QLatin1StringView("Run"))
        refusal = run(call, caller);
    else if (method == QLatin1StringView("Cancel"))
        refusal = cancel(call);
    else if (method == QLatin1StringView("Activate"))
        refusal = activate(call);
    else
        refusal =
            Refusal{u"UnknownMethod"_s, u"unknown method \"%1\"; methods are: Run, Cancel, Activate"_s.arg(method)};
    if (refusal)
        refuse(call, *refusal);
}

void Server::refuse(const bus::Message& call, const Refusal& refusal)
{
    m_bus.send(m_bus.newError(call, (errorPrefix + refusal.kind.toLatin1()).constData(), refusal.text));
}

std::optional<Refusal> Server::run(const bus::Message& call, const Caller& caller)
{
    RunRequest request;
    if (auto refusal = readRun(call, request))
        return refusal;

    CapturedOutput captured;
    std::unique_ptr<cli::CommandLine> line;
    {
        const cli::OutputTo here(&captured);
        line = std::make_unique<cli::CommandLine>(request.arguments);
    }
    if (line->opensWindow())
        return Refusal{u"WrongArgument"_s,
                       u"the arguments contain no command; Activate brings the window to the front"_s};
    if (!line->command() && line->code() != cli::Success)
        return Refusal{line->isVerbUnknown() ? u"UnknownVerb"_s : u"WrongUsage"_s, captured.errors()};
    if (line->command() && line->parser().isSet(u"settings"_s) &&
        busName(QDir(request.folder).absoluteFilePath(line->settingsFolder())) !=
            busName(m_client.settings().getSettingsDir()))
        return Refusal{u"WrongFolder"_s,
                       u"the settings folder of this Zepa is %1"_s.arg(m_client.settings().getSettingsDir())};

    const QString process = QString::number(caller.process);
    if (const auto taken = m_commands.take(process); taken != Quota::Answer::Taken)
        return Refusal{u"TooMuch"_s, tooMuch(m_commands, taken)};
    const unsigned int number = ++m_lastNumber;
    auto* command =
        new RemoteCommand(m_bus, number, senderOf(call), std::move(line), {request.folder, request.input, true});
    for (const auto& [stream, text] : std::as_const(captured.texts))
        command->sayFirst(stream, text);
    connect(command, &RemoteCommand::ended, this, &Server::forget);
    connect(command, &RemoteCommand::ended, &ClientRequests::instance(), &ClientRequests::commandCarriedOut);
    m_jobs.insert(number, {command, process, new bus::ServiceWatcher(m_bus, command->caller(), command)});
    // The caller learns the number before anything else, and at once, whatever the command does.
    m_bus.send(m_bus.newReply(call).append(number));
    watchCaller(number);
    return std::nullopt;
}

/// The command starts when the bus has said that its caller is still there: one that gave up while we were busy has
/// said that nothing was done, and does not leave the bus any more.
void Server::watchCaller(unsigned int number)
{
    const auto look = [this, number] { onCallerChanged(number); };
    const bus::ServiceWatcher* caller = m_jobs.value(number).caller;
    // Queued: the watcher goes with the command.
    connect(caller, &bus::ServiceWatcher::changed, this, look, Qt::QueuedConnection);
    if (caller->isKnown())
        QMetaObject::invokeMethod(this, look, Qt::QueuedConnection);
}

void Server::onCallerChanged(unsigned int number)
{
    const Job job = m_jobs.value(number);
    if (!job.command)
        return;
    if (job.caller->owner().isEmpty())
        return drop(number);
    // This may handle events, in which the job is given up.
    m_client.whenStarted(this, [this, number] {
        if (RemoteCommand* command = m_jobs.value(number).command)
            command->start(m_client);
    });
}

std::optional<Refusal> Server::cancel(const bus::Message& call)
{
    unsigned int number = 0;
    if (auto refusal = readCancel(call, number))
        return refusal;
    const RemoteCommand* command = m_jobs.value(number).command;
    if (!command || command->caller() != senderOf(call))
        return Refusal{u"UnknownJob"_s, u"this caller has no job %1"_s.arg(number)};
    drop(number);
    m_bus.send(m_bus.newReply(call));
    return std::nullopt;
}

std::optional<Refusal> Server::activate(const bus::Message& call)
{
    QString token;
    if (auto refusal = readActivate(call, token))
        return refusal;
    // Where Qt looks for it when a window is brought to the front.
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toLatin1());
    Q_EMIT ClientRequests::instance().show();
    m_bus.send(m_bus.newReply(call));
    return std::nullopt;
}

void Server::drop(unsigned int number)
{
    RemoteCommand* command = m_jobs.value(number).command;
    forget(number);
    if (command)
        command->giveUp();
}

void Server::forget(unsigned int number)
{
    const Job job = m_jobs.take(number);
    if (job.command)
        m_commands.giveBack(job.process);
}

} // namespace zepa::instance
