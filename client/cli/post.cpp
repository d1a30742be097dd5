// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/job.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/cli/poster.h"
#include "client/cli/user_action.h"
#include "client/client.h"
#include "kit/journal/announce.h"
#include "kit/journal/notification_service.h"

#include <QCommandLineParser>
#include <QPointer>

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

class Post final : public Command
{
public:
    QString name() const override { return u"post"_s; }
    QString arguments() const override
    {
        return u"TYPE --title T [--text X] [--icon PNG] [--buddy NAME] [--action COMMAND-OR-URL] [--wait]"_s;
    }
    QString summary() const override { return u"Announces one event."_s; }
    QString example() const override
    {
        return u"zepa post message_received --title Anna --text \"Lunch?\" --action https://example.org "
               u"--wait"_s;
    }
    QString details() const override
    {
        return u"Prints which methods were called. With --wait it stays until the pop-up is answered and prints\n"
               u"\"clicked\", \"timed out\" (also if closed without a click) or \"not shown: REASON\"; the "
               u"exit\n"
               u"code is 0, 3 or 4 then.\n\n"
               u"The action is run by the running Zepa or, where none runs, by this command, which then needs --wait:\n"
               u"without it the pop-up is not clickable. An address opens with the desktop's program for it; a "
               u"command\n"
               u"is started without a shell, with XDG_ACTIVATION_TOKEN in its environment if the desktop provided "
               u"one.\n"
               u"Single and double quotes group words."_s;
    }
    QList<QCommandLineOption> options() const override
    {
        return {
            {u"title"_s, u"title of the pop-up (required)"_s, u"T"_s},
            {u"text"_s, u"the message"_s, u"X"_s},
            {u"icon"_s, u"image for the pop-up"_s, u"PNG"_s},
            {u"buddy"_s, u"contact that the event concerns"_s, u"NAME"_s},
            {u"action"_s, u"what a click starts"_s, u"COMMAND-OR-URL"_s},
            {u"wait"_s, u"stay until the pop-up is answered"_s},
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
    event.title = value(u"title"_s);
    event.text = value(u"text"_s);
    event.icon = job.path(value(u"icon"_s));
    event.buddy = value(u"buddy"_s);
    event.action = value(u"action"_s);

    if (!findType(client, event.type))
        return std::nullopt;
    if (!line.isSet(u"title"_s)) {
        printError(u"missing option: --title T"_s);
        return std::nullopt;
    }
    if (line.isSet(u"action"_s)) {
        const QString problem = problemWithAction(event.action, job.folder());
        if (!problem.isEmpty()) {
            printError(u"--action: %1"_s.arg(problem));
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
    const bool waits = line.isSet(u"wait"_s);
    if (!event->action.isNull() && !waits && !job.isElsewhere())
        printError(u"--action has no effect without --wait, because no running Zepa can run it"_s);

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
        announce(client.recorder(), postingOf(*event, waits ? Answers::Always : Answers::AsTheEventSays, job.folder()),
                 answered);
    tell(*event, report);
    if (const QString problem = pictureProblemText(line.value(u"icon"_s), report); !problem.isEmpty())
        printError(problem);
    const QString reason = whyNoPopup(*event, report);
    if (!waits) {
        if (report.hasPopupFailed())
            printError(u"no pop-up shown: %1"_s.arg(reason));
        return job.finish(Success);
    }
    if (!report.waits) {
        say(u"not shown: %1"_s.arg(reason.isEmpty() ? u"the notification service did not accept it"_s : reason));
        return job.finish(NotShown);
    }
    QObject::connect(&job, &Job::hurried, &job, [&job] { answer(job, false); });
}

void Post::tell(const Event& event, const Report& report)
{
    if (report.fate == Fate::Repeat)
        printError(u"skipped as a repeat: same type and title within the last %1 s"_s.arg(report.repeatLimit));
    else if (report.calls.isEmpty())
        printError(
            u"no rule for %1: nothing was announced; add a rule with \"zepa rule set %1 METHOD\""_s.arg(event.type));
    else
        say(u"handed to: %1"_s.arg(report.methods().join(u", "_s)));
}

void Post::answer(Job& job, bool isClicked)
{
    if (job.code())
        return;
    job.speak([isClicked] { say(isClicked ? u"clicked"_s : u"timed out"_s); });
    job.finish(isClicked ? Success : NotClicked);
}

} // namespace

CommandPointer makePost()
{
    return std::make_unique<Post>();
}

} // namespace zepa::cli
