// SPDX-License-Identifier: Apache-2.0
#include "client/cli/chats.h"
#include "client/cli/commands.h"
#include "client/cli/job.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/cli/player.h"
#include "client/cli/script.h"
#include "client/client.h"
#include "kit/journal/notification_service.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QPointer>
#include <QTimer>

#include <optional>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

/// How long a bare --wait waits, in seconds: as good as for ever.
constexpr int longPatience = latestTime;

bool isNumber(const QString& text)
{
    bool isOne = false;
    text.toDouble(&isOne);
    return isOne;
}

/// Reads a job's script and has it played; a child of the job.
class ScriptPlay final : public QObject
{
public:
    ScriptPlay(Client& client, Job& job, const QString& name, PlayLog::Form form, bool showsChats,
               std::optional<double> patience)
        : QObject(&job)
        , m_client(client)
        , m_job(job)
        , m_form(form)
        , m_showsChats(showsChats)
        , m_patience(patience)
        , m_reader(job.takeInput(), name == u"-"_s ? u"standard input"_s : name,
                   {name == u"-"_s ? job.folder() : QFileInfo(job.path(name)).absolutePath(), job.folder()},
                   typeIds(client))
    {}

    /// Reads a piece at each turn of the event loop, and plays the script when it has been read.
    void readOn()
    {
        if (m_reader.readOn())
            QTimer::singleShot(0, this, &ScriptPlay::readOn);
        else
            play();
    }

private:
    void play();

    Client& m_client;
    Job& m_job;
    const PlayLog::Form m_form;
    const bool m_showsChats;
    const std::optional<double> m_patience;
    ScriptReader m_reader;
};

void ScriptPlay::play()
{
    const Script script = m_reader.take();
    if (!script.problems.isEmpty()) {
        m_job.speak([&script] {
            for (const QString& problem : script.problems)
                printError(problem);
        });
        return m_job.finish(WrongUsage);
    }

    // Handles events, in which the job may be given up.
    const QPointer<ScriptPlay> self(this);
    waitForNotificationService();
    if (!self)
        return;
    if (m_showsChats)
        openChats(script.events);
    auto* player = new Player(m_client, m_job, script.events, m_form, m_showsChats ? showInChat : nullptr);
    player->play(m_patience);
}

class Play final : public Command
{
public:
    QString name() const override { return u"play"_s; }
    QString arguments() const override { return u"SCRIPT [--wait [SECONDS]] [--chats] [--json]"_s; }
    QString summary() const override
    {
        return u"Plays a script of events, one JSON object a line; - reads standard input."_s;
    }
    QString example() const override
    {
        return u"echo '{\"at\":0.5,\"type\":\"message_received\",\"title\":\"Anna\",\"text\":\"Lunch?\"}' | "
               u"zepa play -"_s;
    }
    QString details() const override
    {
        return u"Fields of a line: \"type\" and \"title\" (required), \"text\", \"icon\", \"buddy\", \"action\" "
               u"as "
               u"for\n"
               u"zepa post, and \"at\", the time in seconds from the start (default: that of the line above). When a "
               u"line\n"
               u"is wrong, every problem is named with file, line and field, and nothing is played.\n\n"
               u"Prints a line for each event: posted, then delivered with the methods that were called or dropped "
               u"with "
               u"the\n"
               u"reason, and answered once its pop-up is clicked or goes away. Only events with an action have an answer."_s;
    }
    QList<QCommandLineOption> options() const override
    {
        return {{u"wait"_s, u"when done, wait up to SECONDS for outstanding answers"_s, u"[SECONDS]"_s},
                {u"chats"_s, u"open chats with all contacts in the script"_s},
                {u"json"_s, u"for programs: one JSON object a line"_s}};
    }
    qsizetype fewestArguments() const override { return 1; }
    qsizetype mostArguments() const override { return 1; }
    bool reachesTheUser() const override { return true; }
    QStringList normalised(const QStringList& arguments) const override;

    QString inputFile(const QCommandLineParser& line) const override { return line.positionalArguments().constFirst(); }
    void start(const QCommandLineParser& line, Client& client, Job& job) const override;
};

/// A --wait without a number behind it gets one: the option parser knows no optional values.
QStringList Play::normalised(const QStringList& arguments) const
{
    const QString wait = u"--wait"_s;
    QStringList result;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const bool isBare = arguments[i] == wait && (i + 1 == arguments.size() || !isNumber(arguments[i + 1]));
        result.append(isBare ? wait + u'=' + QString::number(longPatience) : arguments[i]);
    }
    return result;
}

void Play::start(const QCommandLineParser& line, Client& client, Job& job) const
{
    std::optional<double> patience;
    if (line.isSet(u"wait"_s)) {
        patience = line.value(u"wait"_s).toDouble();
        if (!isNumber(line.value(u"wait"_s)) || !(*patience >= 0 && *patience <= latestTime)) {
            printError(u"--wait takes a number of seconds from 0 to %1"_s.arg(latestTime));
            return job.finish(WrongUsage);
        }
    }
    const auto form = line.isSet(u"json"_s) ? PlayLog::Form::Json : PlayLog::Form::ForPeople;
    auto* play =
        new ScriptPlay(client, job, line.positionalArguments().constFirst(), form, line.isSet(u"chats"_s), patience);
    play->readOn();
}

} // namespace

CommandPointer makePlay()
{
    return std::make_unique<Play>();
}

} // namespace zepa::cli
