// SPDX-License-Identifier: Apache-2.0
#include "client/instance/server.h"

#include "client/client.h"
#include "client/instance/handed_job.h"
#include "client/instance/names.h"
#include "client/services/client_requests.h"
#include "interface_xml.h"
#include "platform/bus/session_bus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <QDir>
#include <QRegularExpression>

#include <fcntl.h>

#include <chrono>
#include <memory>
#include <utility>

namespace zepa::instance {

namespace {

constexpr int mostAtOnce = 64;
constexpr int mostOfOneCaller = 16;
/// A caller gives up after five seconds: the answer, a refusal too, must be there before.
constexpr std::chrono::milliseconds lookUpLimit{2000};

QString tooMuch(const Quota& quota, Quota::Answer answer)
{
    return answer == Quota::Answer::TooManyOfCaller
               ? QStringLiteral("%1 commands of this caller are in progress; that is the limit for one caller")
                     .arg(quota.mostPerCaller())
               : QStringLiteral("%1 commands are in progress; that is the limit").arg(quota.most());
}

Caller callerOf(const QDBusMessage& answer)
{
    const auto facts = qdbus_cast<QVariantMap>(answer.arguments().value(0));
    Caller caller;
    if (const QVariant user = facts.value(QStringLiteral("UnixUserID")); user.isValid())
        caller.user = user.toUInt();
    caller.process = facts.value(QStringLiteral("ProcessID")).toInt();
    caller.label = facts.value(QStringLiteral("LinuxSecurityLabel")).toByteArray();
    const auto process = facts.value(QStringLiteral("ProcessFD")).value<QDBusUnixFileDescriptor>();
    if (process.isValid())
        caller.processDescriptor = shareDescriptor(::fcntl(process.fileDescriptor(), F_DUPFD_CLOEXEC, 0));
    return caller;
}

/// Keeps what is said.
class Ear final : public cli::OutputSink
{
public:
    void write(cli::Stream stream, const QByteArray& text) override { heard.append({stream, text}); }
    /// The complaints alone, without the program's name in front of each.
    QString complaints() const
    {
        QStringList lines;
        for (const auto& [stream, text] : heard) {
            if (stream == cli::Stream::Errors)
                lines.append(QString::fromUtf8(text).trimmed().remove(QRegularExpression(QStringLiteral("^zepa: "))));
        }
        return lines.join(u'\n');
    }

    QList<QPair<cli::Stream, QByteArray>> heard;
};

} // namespace

Server::Server(Client& client, bus::SessionBus& bus)
    : m_client(client)
    , m_bus(bus)
    , m_lookups(lookUpLimit)
    , m_calls(mostAtOnce, mostOfOneCaller)
    , m_commands(mostAtOnce, mostOfOneCaller)
{
    QDBusConnection connection = bus.connection();
    connection.connect(QString(), bus::busPath(), bus::busName(), QStringLiteral("NameOwnerChanged"), this,
                       SLOT(hearOfOwner(QDBusMessage)));
    connection.registerVirtualObject(objectPath, this);
}

Server::~Server()
{
    if (m_bus.isOpen())
        QDBusConnection(m_bus.connection()).unregisterObject(objectPath);
    const auto jobs = std::exchange(m_jobs, {});
    for (HandedJob* job : jobs)
        job->giveUp();
}

QString Server::introspect(const QString& path) const
{
    if (path != objectPath)
        return {};
    const QString xml = QString::fromUtf8(interfaceXml);
    const qsizetype from = xml.indexOf(QStringLiteral("<interface"));
    return xml.mid(from, xml.lastIndexOf(QStringLiteral("</node>")) - from);
}

bool Server::handleMessage(const QDBusMessage& message, const QDBusConnection& bus)
{
    if (message.interface() != interfaceName || message.type() != QDBusMessage::MethodCallMessage)
        return false;

    const QString sender = message.service();
    if (const auto taken = m_calls.take(sender); taken != Quota::Answer::Taken) {
        bus.send(message.createErrorReply(interfaceName + QStringLiteral(".Error.TooMuch"), tooMuch(m_calls, taken)));
        return true;
    }
    lookUp(sender, [this, message](const Caller& caller, const QString& problem) {
        m_calls.giveBack(message.service());
        answer(message, caller, problem);
    });
    return true;
}

void Server::lookUp(const QString& sender, const std::function<void(const Caller&, const QString& problem)>& done)
{
    QDBusMessage question = bus::busCall(QStringLiteral("GetConnectionCredentials"));
    question << sender;
    auto* watcher = new QDBusPendingCallWatcher(
        m_bus.connection().asyncCall(question, static_cast<int>(lookUpLimit.count())), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, done, watcher] {
        watcher->deleteLater();
        // An error leaves nothing known, which is refused.
        const Caller caller = callerOf(watcher->reply());
        const CallerLook look(caller);
        if (const auto problem = look.quickProblem())
            return done(caller, *problem);
        m_lookups.ask([look] { return look.problem(); },
                      [done, caller](const QString& problem) { done(caller, problem); });
    });
}

void Server::answer(const QDBusMessage& message, const Caller& caller, const QString& problem)
{
    if (!m_bus.isOpen())
        return;
    QVariantList values;
    std::optional<Refusal> refusal;
    if (!problem.isEmpty())
        refusal = Refusal{QStringLiteral("AccessDenied"), problem};
    else if (message.member() == QStringLiteral("Run"))
        refusal = run(message, caller, values);
    else if (message.member() == QStringLiteral("Cancel"))
        refusal = cancel(message);
    else if (message.member() == QStringLiteral("Activate"))
        refusal = activate(message);
    else
        refusal = Refusal{
            QStringLiteral("UnknownMethod"),
            QStringLiteral("there is no method \"%1\"; there are: Run, Cancel, Activate").arg(message.member())};

    const QDBusConnection bus = m_bus.connection();
    if (refusal)
        bus.send(message.createErrorReply(interfaceName + QStringLiteral(".Error.") + refusal->kind, refusal->text));
    else
        bus.send(message.createReply(values));
}

std::optional<Refusal> Server::run(const QDBusMessage& message, const Caller& caller, QVariantList& answer)
{
    RunRequest request;
    if (auto refusal = read(message, request))
        return refusal;

    Ear ear;
    std::unique_ptr<cli::CommandLine> line;
    {
        const cli::OutputTo here(&ear);
        line = std::make_unique<cli::CommandLine>(request.arguments);
    }
    if (line->opensWindow())
        return Refusal{QStringLiteral("WrongArgument"),
                       QStringLiteral("the arguments hold no verb; Activate brings the window to the front")};
    if (!line->command() && line->code() != cli::Success)
        return Refusal{line->isVerbUnknown() ? QStringLiteral("UnknownVerb") : QStringLiteral("WrongUsage"),
                       ear.complaints()};
    if (line->command() && line->parser().isSet(QStringLiteral("settings")) &&
        busName(QDir(request.folder).absoluteFilePath(line->settingsFolder())) !=
            busName(m_client.settings().getSettingsDir()))
        return Refusal{QStringLiteral("WrongFolder"),
                       QStringLiteral("this client has the settings in %1").arg(m_client.settings().getSettingsDir())};

    const QString process = QString::number(caller.process);
    if (const auto taken = m_commands.take(process); taken != Quota::Answer::Taken)
        return Refusal{QStringLiteral("TooMuch"), tooMuch(m_commands, taken)};
    const unsigned int number = ++m_lastNumber;
    auto* job = new HandedJob(m_bus, number, message.service(), std::move(line), {request.folder, request.input, true});
    for (const auto& [stream, text] : std::as_const(ear.heard))
        job->sayFirst(stream, text);
    connect(job, &HandedJob::ended, this, &Server::forget);
    connect(job, &HandedJob::ended, &ClientRequests::instance(), &ClientRequests::commandCarriedOut);
    m_jobs.insert(number, job);
    m_processes.insert(number, process);
    follow(QStringLiteral("AddMatch"), message.service());
    // The caller learns the number before anything else, and at once, whatever the command does. Then the bus is asked:
    // a caller that gave up while we were busy has said that nothing was done, and does not leave the bus any more.
    QDBusMessage question = bus::busCall(QStringLiteral("GetNameOwner"));
    question << message.service();
    auto* watcher = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, number, watcher] {
        watcher->deleteLater();
        if (watcher->isError())
            drop(number);
        else
            start(number);
    });
    answer = {number};
    return std::nullopt;
}

std::optional<Refusal> Server::cancel(const QDBusMessage& message)
{
    unsigned int number = 0;
    if (auto refusal = readCancel(message, number))
        return refusal;
    const HandedJob* job = m_jobs.value(number);
    if (!job || job->caller() != message.service())
        return Refusal{QStringLiteral("UnknownJob"), QStringLiteral("there is no job %1 of this caller").arg(number)};
    drop(number);
    return std::nullopt;
}

std::optional<Refusal> Server::activate(const QDBusMessage& message)
{
    QString token;
    if (auto refusal = readActivate(message, token))
        return refusal;
    // Where Qt looks for it when a window is brought to the front.
    if (!token.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", token.toLatin1());
    Q_EMIT ClientRequests::instance().show();
    return std::nullopt;
}

void Server::start(unsigned int number)
{
    if (!m_jobs.contains(number))
        return;
    // This may handle events, in which the job is given up.
    m_client.whenStarted(this, [this, number] {
        if (HandedJob* job = m_jobs.value(number))
            job->start(m_client);
    });
}

void Server::drop(unsigned int number)
{
    HandedJob* job = m_jobs.value(number);
    forget(number);
    if (job)
        job->giveUp();
}

void Server::forget(unsigned int number)
{
    const HandedJob* job = m_jobs.take(number);
    if (!job)
        return;
    m_commands.giveBack(m_processes.take(number));
    follow(QStringLiteral("RemoveMatch"), job->caller());
}

/// AddMatch or RemoveMatch: whether the bus tells us that the caller left. It counts equal rules.
void Server::follow(const QString& method, const QString& caller)
{
    if (!m_bus.isOpen())
        return;
    QDBusMessage call = bus::busCall(method);
    call << QStringLiteral("type='signal',sender='%1',interface='%1',member='NameOwnerChanged',arg0='%2'")
                .arg(bus::busName(), caller);
    m_bus.connection().send(call);
}

void Server::hearOfOwner(const QDBusMessage& signal)
{
    if (signal.service() != bus::busName() || !signal.arguments().value(2).toString().isEmpty())
        return;
    const QString gone = signal.arguments().value(0).toString();
    const QList<unsigned int> numbers = m_jobs.keys();
    for (const unsigned int number : numbers) {
        const HandedJob* job = m_jobs.value(number);
        if (job && job->caller() == gone)
            drop(number);
    }
}

} // namespace zepa::instance
