// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/job.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/cli/poster.h"
#include "client/cli/user_action.h"
#include "client/client.h"
#include "client/posting/announce.h"
#include "client/posting/notification_service.h"

#include <QCommandLineParser>
#include <QPointer>

#include <functional>
#include <optional>

namespace zepa::cli {

namespace {

class Post final : public Command
{
public:
    QString name() const override { return QStringLiteral("post"); }
    QString arguments() const override
    {
        return QStringLiteral(
            "TYPE --title T [--text X] [--icon PNG] [--buddy NAME] [--action COMMAND-OR-URL] [--wait]");
    }
    QString summary() const override { return QStringLiteral("Announces one event."); }
    QString example() const override
    {
        return QStringLiteral("zepa post message_received --title Anna --text \"Lunch?\" --action https://example.org "
                              "--wait");
    }
    QString details() const override
    {
        return QStringLiteral(
            "Prints which methods were called. With --wait it stays until the pop-up is answered and prints\n"
            "\"clicked\", \"timed out\" (closed without a click counts as that) or \"not shown: REASON\"; the exit\n"
            "code is 0, 3 or 4 then.\n\n"
            "The action is run by the running Zepa or, where none runs, by this command, which then needs --wait:\n"
            "without it the pop-up is not clickable. An address opens with the desktop's program for it; a command\n"
            "is started without a shell, with XDG_ACTIVATION_TOKEN in its environment if the desktop provided one.\n"
            "Single and double quotes group words.");
    }
    QList<QCommandLineOption> options() const override
    {
        return {
            {QStringLiteral("title"), QStringLiteral("heading of the pop-up; must be given"), QStringLiteral("T")},
            {QStringLiteral("text"), QStringLiteral("the message"), QStringLiteral("X")},
            {QStringLiteral("icon"), QStringLiteral("picture for the pop-up"), QStringLiteral("PNG")},
            {QStringLiteral("buddy"), QStringLiteral("whom the event is about"), QStringLiteral("NAME")},
            {QStringLiteral("action"), QStringLiteral("what a click starts"), QStringLiteral("COMMAND-OR-URL")},
            {QStringLiteral("wait"), QStringLiteral("stay until the pop-up is answered")},
        };
    }
    qsizetype fewestArguments() const override { return 1; }
    qsizetype mostArguments() const override { return 1; }
    bool reachesTheUser() const override { return true; }

    void start(const QCommandLineParser& line, Client& client, Job& job) const override;

private:
    static std::optional<Event> readEvent(const QCommandLineParser& line, Client& client, const Job& job);
    static void tell(const Event& event, const Report& report);
    static void answer(Job& job, bool isClicked);
};

/// The event on the command line; nothing, after a message, when something is wrong with it.
std::optional<Event> Post::readEvent(const QCommandLineParser& line, Client& client, const Job& job)
{
    const auto value = [&line](const QString& option) { return line.isSet(option) ? line.value(option) : QString(); };
    Event event;
    event.type = line.positionalArguments().constFirst();
    event.title = value(QStringLiteral("title"));
    event.text = value(QStringLiteral("text"));
    event.icon = job.path(value(QStringLiteral("icon")));
    event.buddy = value(QStringLiteral("buddy"));
    event.action = value(QStringLiteral("action"));

    if (!findType(client, event.type))
        return std::nullopt;
    if (!line.isSet(QStringLiteral("title"))) {
        complain(QStringLiteral("the title is missing; add --title T"));
        return std::nullopt;
    }
    if (line.isSet(QStringLiteral("action"))) {
        const QString problem = problemWithAction(event.action, job.folder());
        if (!problem.isEmpty()) {
            complain(QStringLiteral("--action: %1").arg(problem));
            return std::nullopt;
        }
    }
    return event;
}

void Post::start(const QCommandLineParser& line, Client& client, Job& job) const
{
    auto event = readEvent(line, client, job);
    if (!event)
        return job.finish(WrongUsage);
    const bool waits = line.isSet(QStringLiteral("wait"));
    if (!event->action.isNull() && !waits && !job.isElsewhere())
        complain(QStringLiteral("without --wait nobody is left to run the action when the pop-up is clicked"));

    // So the pop-up must not invite a click.
    if (!waits && !job.isElsewhere())
        event->action = QString();

    waitForNotificationService();
    std::function<void(Answer)> answered;
    if (waits) {
        // Whoever waits may give up first, and the answer come when the client ends.
        answered = [job = QPointer<Job>(&job)](Answer given) {
            if (job)
                answer(*job, given == Answer::Clicked);
        };
    }
    const Report report =
        announce(client, postingOf(*event, waits ? Answers::Always : Answers::AsTheEventSays, job.folder()), answered);
    tell(*event, report);
    if (const QString complaint = pictureComplaint(line.value(QStringLiteral("icon")), report); !complaint.isEmpty())
        complain(complaint);
    const QString reason = whyNoPopup(*event, report);
    if (!waits) {
        if (report.popup != PopupState::NotAsked && !reason.isEmpty())
            complain(QStringLiteral("%1: no pop-up shown").arg(reason));
        return job.finish(Success);
    }
    if (!report.waits) {
        say(QStringLiteral("not shown: %1")
                .arg(reason.isEmpty() ? QStringLiteral("the notification service did not take it") : reason));
        return job.finish(NotShown);
    }
    QObject::connect(&job, &Job::hurried, &job, [&job] { answer(job, false); });
}

void Post::tell(const Event& event, const Report& report)
{
    if (report.fate == Fate::Repeat)
        complain(QStringLiteral("dropped as a repeat: the same type and title was announced at most %1 s ago")
                     .arg(report.repeatLimit));
    else if (report.calls.isEmpty())
        complain(
            QStringLiteral("no rule for %1: nothing was announced; zepa rule set %1 METHOD adds one").arg(event.type));
    else
        say(QStringLiteral("delivered by %1").arg(report.methods().join(QStringLiteral(", "))));
}

void Post::answer(Job& job, bool isClicked)
{
    if (job.code())
        return;
    job.speak([isClicked] { say(isClicked ? QStringLiteral("clicked") : QStringLiteral("timed out")); });
    job.finish(isClicked ? Success : NotClicked);
}

} // namespace

CommandPointer makePost()
{
    return std::make_unique<Post>();
}

} // namespace zepa::cli
