// SPDX-License-Identifier: Apache-2.0
#include "client/cli/commands.h"
#include "client/cli/lookup.h"
#include "client/cli/output.h"
#include "client/cli/poster.h"
#include "client/cli/user_action.h"
#include "client/client.h"
#include "client/posting/announce.h"
#include "client/posting/notification_service.h"

#include <QCommandLineParser>
#include <QEventLoop>
#include <QImageReader>
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
            "An action is run by the program that posted, so it takes --wait. An address opens with the desktop's\n"
            "program for it; a command is started without a shell, with XDG_ACTIVATION_TOKEN in its environment when\n"
            "the desktop gave one.");
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

    int run(const QCommandLineParser& line, Client& client) const override;

private:
    static std::optional<Event> readEvent(const QCommandLineParser& line, Client& client);
    /// `whyNot` is why there is no pop-up, as far as that is known.
    static int wait(const Report& report, const QString& whyNot, QEventLoop& answer);
};

/// The event on the command line; nothing, after a message, when something is wrong with it.
std::optional<Event> Post::readEvent(const QCommandLineParser& line, Client& client)
{
    const auto value = [&line](const QString& option) { return line.isSet(option) ? line.value(option) : QString(); };
    Event event;
    event.type = line.positionalArguments().constFirst();
    event.title = value(QStringLiteral("title"));
    event.text = value(QStringLiteral("text"));
    event.icon = value(QStringLiteral("icon"));
    event.buddy = value(QStringLiteral("buddy"));
    event.action = value(QStringLiteral("action"));

    if (!findType(client, event.type))
        return std::nullopt;
    if (!line.isSet(QStringLiteral("title"))) {
        complain(QStringLiteral("the title is missing; add --title T"));
        return std::nullopt;
    }
    if (line.isSet(QStringLiteral("action"))) {
        const QString problem = problemWithAction(event.action);
        if (!problem.isEmpty()) {
            complain(QStringLiteral("--action %1").arg(problem));
            return std::nullopt;
        }
    }
    return event;
}

int Post::run(const QCommandLineParser& line, Client& client) const
{
    const auto event = readEvent(line, client);
    if (!event)
        return WrongUsage;
    const bool waits = line.isSet(QStringLiteral("wait"));
    if (!event->icon.isEmpty() && !QImageReader(event->icon).canRead())
        complain(QStringLiteral("no picture can be read from %1: the pop-up is shown without it")
                     .arg(onOneLine(event->icon)));
    if (!event->action.isNull() && !waits)
        complain(QStringLiteral("without --wait nobody is left to run the action when the pop-up is clicked"));

    waitForNotificationService();
    QEventLoop answer;
    std::function<void(Answer)> answered;
    if (waits) {
        // The user may quit first: then the answer comes when the client ends, and the loop is gone.
        answered = [loop = QPointer<QEventLoop>(&answer)](Answer given) {
            if (loop)
                loop->exit(given == Answer::Clicked ? Success : NotClicked);
        };
    }
    const Report report =
        announce(client, postingOf(*event, waits ? Answers::Always : Answers::AsTheEventSays), answered);
    const QString reason = whyNoPopup(*event, report);
    if (report.fate == Fate::Repeat)
        complain(QStringLiteral("dropped as a repeat: the same type and title was announced at most %1 s ago")
                     .arg(report.repeatLimit));
    else if (report.calls.isEmpty())
        complain(
            QStringLiteral("no rule for %1: nothing was announced; zepa rule set %1 METHOD adds one").arg(event->type));
    else
        say(QStringLiteral("delivered by %1").arg(report.methods().join(QStringLiteral(", "))));

    int code = Success;
    if (waits)
        code = wait(report, reason, answer);
    else if (report.popup != PopupState::NotAsked && !reason.isEmpty())
        complain(QStringLiteral("%1: no pop-up shown").arg(reason));
    finishDelivering(client);
    return code;
}

int Post::wait(const Report& report, const QString& whyNot, QEventLoop& answer)
{
    if (!report.waits) {
        say(QStringLiteral("not shown: %1")
                .arg(whyNot.isEmpty() ? QStringLiteral("the notification service did not take it") : whyNot));
        return NotShown;
    }
    const int code = answer.exec();
    say(code == Success ? QStringLiteral("clicked") : QStringLiteral("timed out"));
    return code;
}

} // namespace

CommandPointer makePost()
{
    return std::make_unique<Post>();
}

} // namespace zepa::cli
