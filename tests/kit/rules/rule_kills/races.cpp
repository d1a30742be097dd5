// SPDX-License-Identifier: Apache-2.0
// rule_races [--rounds N | --seconds S] FOLDER
//
// Several clients on one settings folder: commands that each change one rule, one after the other, in three lines side
// by side; a client that stays, as a window does, and changes rules, too; commands that only read. Counts changes that
// were acknowledged and are gone, changes that were refused, alarms about damage, and at the end the types whose rules
// are exactly what they must be. Ends with 1 unless nothing was lost, refused or alarmed.
//
// With --rounds, a client that was told that the folder is busy asks again: how often nobody gives the lock back within
// its timeout is a matter of the machine. With --seconds, which wants a machine of its own, that counts as refused.
#include "client/client.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/rule_state.h"
#include "kit/rules/safe_change.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QDir>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using zepa::RuleState;

constexpr int commandLines = 3;
/// The client that stays is the last one.
constexpr int writers = commandLines + 1;
/// A type that everybody changes, and one for each writer alone.
const std::array<QString, writers + 1> editedTypes{u"message_received"_s, u"email_notify"_s, u"logged_in"_s,
                                                   u"typing_started_notify"_s, u"error_notify"_s};

/// What all processes see.
struct Shared
{
    std::atomic<int> acknowledged = 0;
    std::atomic<int> lost = 0;
    std::atomic<int> refused = 0;
    /// Refused, clearly and rightly, because others had the lock for too long.
    std::atomic<int> busy = 0;
    std::atomic<int> alarms = 0;
    std::atomic<int> reads = 0;
    std::atomic<int> wrongReads = 0;
    std::atomic<int> whole = 0;
    std::atomic<bool> isOver = false;
    /// By writer, and by its own (0) or the common type (1): the number of its last change that was acknowledged.
    std::array<std::array<std::atomic<int>, 2>, writers> last = {};
};

Shared* shared = nullptr;
QString folder;

QString valueOf(int writer, int number)
{
    return u"%1-%2 ä.wav"_s.arg(writer).arg(number);
}

bool hasText(const ZepaNotificationMethod& method)
{
    return std::any_of(method.fields.cbegin(), method.fields.cend(), [](const ZepaField& field) {
        return field.getType() == ZepaField::SoundEdit || field.getType() == ZepaField::TextEdit;
    });
}

/// A method for each writer: in the common type they change rules of different methods.
QString methodOf(const ZepaNotificationModule& module, int writer)
{
    QStringList ids = module.getMethods().keys();
    ids.removeIf([&module](const QString& id) { return !hasText(*module.getMethods().value(id)); });
    ids.sort();
    return ids.value(writer % static_cast<int>(ids.size()));
}

void setText(QList<ZepaField>& fields, const QString& value)
{
    for (ZepaField& field : fields) {
        if (field.getType() == ZepaField::SoundEdit || field.getType() == ZepaField::TextEdit)
            field.setText(value);
    }
}

/// What the type must have: its defaults, and the last acknowledged changes.
QList<RuleState> expectedRules(const ZepaNotificationModule& module, const QString& type)
{
    QList<RuleState> rules = zepa::defaultRulesOf(module, type);
    for (int writer = 0; writer < writers; ++writer) {
        const std::size_t which = type == editedTypes[0] ? 1 : 0;
        const int last = shared->last[static_cast<std::size_t>(writer)][which];
        if (last == 0 || (which == 0 && type != editedTypes[static_cast<std::size_t>(writer) + 1]))
            continue;
        const QString method = methodOf(module, writer);
        RuleState rule{method, zepa::initialFields(module, type, method)};
        rules.removeIf([&method](const RuleState& other) { return other.method == method; });
        setText(rule.fields, valueOf(writer, last));
        rules.append(rule);
    }
    return rules;
}

bool isWhole(const ZepaNotificationModule& module, const QString& type)
{
    const QList<RuleState> found = zepa::rulesOf(module, type);
    const QList<RuleState> expected = expectedRules(module, type);
    return std::is_permutation(found.cbegin(), found.cend(), expected.cbegin(), expected.cend());
}

bool isUnedited(const QString& type)
{
    return std::find(editedTypes.cbegin(), editedTypes.cend(), type) == editedTypes.cend();
}

/// Whether the last acknowledged change of that writer is there.
bool hasLast(ZepaNotificationModule& module, int writer, int which, const QString& type)
{
    const int last = shared->last[static_cast<std::size_t>(writer)][static_cast<std::size_t>(which)];
    if (last == 0)
        return true;
    const QString method = methodOf(module, writer);
    const QList<RuleState> rules = zepa::rulesOf(module, type);
    QList<ZepaField> fields = zepa::initialFields(module, type, method);
    setText(fields, valueOf(writer, last));
    return std::count(rules.cbegin(), rules.cend(), RuleState{method, fields}) == 1;
}

/// What became of a start or of a change. Also how a process ends, so unlike what a crash or a sanitizer ends with.
enum class Outcome { Done = 0, Busy = 100, Refused = 101 };

/// One change by the client.
Outcome change(zepa::Client& client, int writer, int number)
{
    const int which = number % 2;
    const QString type = which == 1 ? editedTypes[0] : editedTypes[static_cast<std::size_t>(writer) + 1];
    ZepaNotificationModule& module = client.module();
    zepa::RuleLock lock(client.ruleBackup().ruleFolder());
    const zepa::SafeChange outcome = changeSafely(module, client.ruleBackup(), lock, type, [&] {
        if (!hasLast(module, writer, which, type))
            ++shared->lost;
        const QString method = methodOf(module, writer);
        QList<ZepaField> fields = zepa::initialFields(module, type, method);
        setText(fields, valueOf(writer, number));
        zepa::updateRule(module, type, method, fields);
    });
    if (outcome == zepa::SafeChange::Busy) {
        ++shared->busy;
        return Outcome::Busy;
    }
    if (outcome != zepa::SafeChange::Stored) {
        std::fprintf(stderr, "REFUSED: %s\n", qPrintable(problemWith(outcome, type)));
        ++shared->refused;
        return Outcome::Refused;
    }
    ++shared->acknowledged;
    shared->last[static_cast<std::size_t>(writer)][static_cast<std::size_t>(which)] = number;
    return Outcome::Done;
}

/// A client as a command starts it; its complaints are false ones. Gives nullptr when the folder was busy.
std::unique_ptr<zepa::Client> startClient()
{
    auto client = std::make_unique<zepa::Client>(folder);
    if (!client->hasStarted()) {
        ++shared->busy;
        return nullptr;
    }
    const QStringList news = client->ruleBackup().news();
    for (const QString& sentence : news)
        std::fprintf(stderr, "ALARM: %s\n", qPrintable(sentence));
    shared->alarms += static_cast<int>(news.size());
    return client;
}

int readOnce()
{
    const auto client = startClient();
    if (!client)
        return 0;
    ++shared->reads;
    const QStringList types = client->module().getNotifications().keys();
    for (const QString& type : types) {
        if (isUnedited(type) && !isWhole(client->module(), type)) {
            std::fprintf(stderr, "WRONG: %s\n", qPrintable(type));
            ++shared->wrongReads;
        }
    }
    return 0;
}

int readFinally()
{
    auto client = startClient();
    // Nobody else is left, so nobody has the lock for long.
    if (!client && !(client = startClient()))
        return 0;
    const QStringList types = client->module().getNotifications().keys();
    for (const QString& type : types) {
        if (isWhole(client->module(), type))
            ++shared->whole;
        else
            std::fprintf(stderr, "NOT WHOLE: %s\n", qPrintable(type));
    }
    return 0;
}

/// A fork, not a new program: most of a start would be loading libraries.
pid_t inChild(const std::function<int()>& work)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0)
        qFatal("fork: %s", strerror(errno));
    if (child == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        _exit(work());
    }
    return child;
}

/// Gives what its work gave.
int finish(pid_t child)
{
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status))
        qFatal("a client crashed");
    const int code = WEXITSTATUS(status);
    if (code != 0 && code != static_cast<int>(Outcome::Busy) && code != static_cast<int>(Outcome::Refused))
        qFatal("a client ended with %d", code);
    return code;
}

/// Starts a client of its own for one change, as a command does.
Outcome changeByCommand(int writer, int round)
{
    return static_cast<Outcome>(finish(inChild([&] {
        const auto client = startClient();
        return static_cast<int>(client ? change(*client, writer, round) : Outcome::Busy);
    })));
}

void race(int rounds, int seconds)
{
    const QDeadlineTimer end(std::chrono::seconds{seconds});
    const auto goesOn = [rounds, &end](int round) { return rounds > 0 ? round <= rounds : !end.hasExpired(); };
    const auto asksAgain = [rounds](Outcome outcome) { return rounds > 0 && outcome == Outcome::Busy; };
    std::vector<pid_t> lines;
    for (int writer = 0; writer < commandLines; ++writer) {
        lines.push_back(inChild([&, writer] {
            for (int round = 1; goesOn(round); ++round) {
                while (asksAgain(changeByCommand(writer, round))) {
                }
            }
            return 0;
        }));
    }
    lines.push_back(inChild([&] {
        auto client = startClient();
        while (!client && rounds > 0)
            client = startClient();
        for (int round = 1; client && goesOn(round); ++round) {
            while (asksAgain(change(*client, commandLines, round))) {
            }
        }
        return 0;
    }));
    const pid_t reader = inChild([] {
        while (!shared->isOver)
            finish(inChild(readOnce));
        return 0;
    });
    for (const pid_t line : lines)
        finish(line);
    shared->isOver = true;
    finish(reader);
    finish(inChild(readFinally));
}

} // namespace

int main(int argc, char** argv)
{
    QCommandLineParser line;
    line.addOptions({{u"rounds"_s, {}, u"N"_s, u"0"_s}, {u"seconds"_s, {}, u"S"_s, u"20"_s}});
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    line.process(arguments);

    const QTemporaryDir temporary(line.positionalArguments().value(0, QDir::tempPath()) + u"/rule-races"_s);
    folder = temporary.path();
    // Nothing of the desktop takes part.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(temporary.path()));
    int count = 1;
    const QApplication app(count, argv);
    void* memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        qFatal("mmap: %s", strerror(errno));
    shared = new (memory) Shared;

    const int rounds = line.value(u"rounds"_s).toInt();
    race(rounds, line.value(u"seconds"_s).toInt());
    std::printf("%d changes acknowledged, %d of them lost; %d refused; %d times busy; %d false alarms; %d reads, %d "
                "wrong; %d of 18 types whole\n",
                int(shared->acknowledged), int(shared->lost), int(shared->refused), int(shared->busy),
                int(shared->alarms), int(shared->reads), int(shared->wrongReads), int(shared->whole));
    const bool hasWorked = shared->reads > 0 && shared->acknowledged >= std::max(1, rounds * writers);
    const bool wasRefused = shared->refused > 0 || (rounds == 0 && shared->busy > 0);
    return hasWorked && shared->lost == 0 && !wasRefused && shared->alarms == 0 && shared->wrongReads == 0 &&
                   shared->whole == 18
               ? 0
               : 1;
}
