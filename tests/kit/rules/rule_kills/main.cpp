// SPDX-License-Identifier: Apache-2.0
// rule_kills [--kills N] [--small-disk] [--seed N] FOLDER
//
// Starts a client that changes rules without a pause, kills it at a random moment, starts the next one on what is
// left, and so on; counts the rules that were stored and are gone. With --small-disk the settings folder is a disk of
// 64 KiB that is full most of the time. Ends with 1 when a rule was lost, with 77 when the disk cannot be had.
#include "../small_disk.h"
#include "editor.h"
#include "kit/rules/rule_backup.h"
#include "ledger.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <poll.h>
#include <random>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int skipped = 77;
/// Microseconds.
constexpr int slice = 2000;

class Killer
{
public:
    Killer(QString folder, unsigned int seed) : m_folder(std::move(folder)), m_random(seed) {}

    enum class From { Start, Ready };
    /// Starts an editor and kills it, at most `limit` microseconds after its start or after it began to edit.
    void killOne(Ledger& ledger, From from, int limit);
    /// Starts one that only looks.
    void look(Ledger& ledger);
    /// A first start, killed, and what the next start makes of it.
    void killFirstStart(const QHash<QString, QStringList>& defaults, int limit);

    /// Files that a kill left empty or cut off.
    int broken = 0;
    int lostDefaults = 0;
    int kills = 0;

    bool fewTypes = false;
    int mostRules = 6;
    /// Called every now and then while an editor works; may be empty.
    std::function<void()> meanwhile;

private:
    void begin(bool editsNothing, const QString& folder);
    bool readFor(Ledger& ledger, qint64 microseconds, const std::function<bool()>& enough);
    void end(Ledger& ledger, bool kills);
    void countBroken();

    const QString m_folder;
    std::mt19937 m_random;
    pid_t m_editor = -1;
    int m_report = -1;
};

void Killer::begin(bool editsNothing, const QString& folder)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        qFatal("pipe: %s", strerror(errno));
    EditorPlan plan;
    plan.folder = folder;
    plan.report = ends[1];
    plan.seed = static_cast<unsigned int>(m_random());
    plan.fewTypes = fewTypes;
    plan.mostRules = mostRules;
    plan.editsNothing = editsNothing;
    // A fork, not a new program: most of a start would be loading libraries, a thousand times.
    m_editor = fork();
    if (m_editor == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        close(ends[0]);
        runEditor(plan);
        _exit(0);
    }
    if (m_editor < 0)
        qFatal("fork: %s", strerror(errno));
    close(ends[1]);
    m_report = ends[0];
}

/// Reads the report until the time is over, there is enough, or the editor ended; false for the last.
bool Killer::readFor(Ledger& ledger, qint64 microseconds, const std::function<bool()>& enough)
{
    QElapsedTimer clock;
    clock.start();
    while (!enough()) {
        const qint64 left = microseconds * 1000 - clock.nsecsElapsed();
        if (left <= 0)
            return true;
        const timespec limit{left / 1'000'000'000, left % 1'000'000'000};
        pollfd report{m_report, POLLIN, 0};
        if (ppoll(&report, 1, &limit, nullptr) <= 0)
            return true;
        char block[65536];
        const ssize_t count = read(m_report, block, sizeof block);
        if (count <= 0)
            return false;
        ledger.read(QByteArray(block, count));
    }
    return true;
}

void Killer::end(Ledger& ledger, bool isKill)
{
    if (isKill) {
        kill(m_editor, SIGKILL);
        ++kills;
    }
    int status = 0;
    waitpid(m_editor, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) != SIGKILL)
        qFatal("the editor crashed: signal %d", WTERMSIG(status));
    readFor(ledger, 60'000'000, [] { return false; });
    close(m_report);
    ledger.endOfReport();
}

void Killer::killOne(Ledger& ledger, From from, int limit)
{
    begin(false, m_folder);
    if (from == From::Ready)
        readFor(ledger, 60'000'000, [&ledger] { return ledger.isReady(); });
    for (int left = std::uniform_int_distribution<int>(0, limit)(m_random); left > 0; left -= slice) {
        if (!readFor(ledger, std::min(left, slice), [] { return false; }))
            break;
        if (meanwhile)
            meanwhile();
    }
    end(ledger, true);
    countBroken();
}

void Killer::look(Ledger& ledger)
{
    begin(true, m_folder);
    end(ledger, false);
}

void Killer::killFirstStart(const QHash<QString, QStringList>& defaults, int limit)
{
    const QTemporaryDir folder(QFileInfo(m_folder).path() + u"/first"_s);
    Ledger ledger;
    ledger.expectDefaults(defaults);
    begin(true, folder.path());
    readFor(ledger, std::uniform_int_distribution<int>(0, limit)(m_random), [] { return false; });
    end(ledger, true);
    begin(true, folder.path());
    end(ledger, false);
    lostDefaults += ledger.lost;
}

void Killer::countBroken()
{
    const QDir rules(m_folder + u"/notifications"_s);
    const QStringList names = rules.entryList(QDir::Files);
    for (const QString& name : names) {
        QFile file(rules.filePath(name));
        broken += file.open(QIODevice::ReadOnly) && !zepa::RuleBackup::isGood(file.readAll()) ? 1 : 0;
    }
}

void tell(const Killer& killer, const Ledger& ledger, double seconds)
{
    std::printf("%d kills in %.1f s: %d changes of rules stored, %d not stored and said so, %d refused; %d rule files "
                "left broken by a kill or by the disk; %d stored rules looked for after a start, %d lost\n",
                killer.kills, seconds, ledger.stored, ledger.unstored, ledger.refused, killer.broken,
                ledger.checkedRules, ledger.lost);
}

/// While rules are edited, and now and then while the client starts; and on a folder of their own, first starts.
int killAtRandom(Killer& killer, int count)
{
    QElapsedTimer clock;
    clock.start();
    Ledger ledger;
    ledger.learnDefaults();
    killer.look(ledger);
    const auto defaults = ledger.known();
    const int longestEdit = 20000;
    const int longestStart = 40000;
    for (int i = 0; i < count; ++i) {
        // Where clients are slow, those that are killed soon have changed nothing.
        const int slowness = ledger.stored < i ? 10 : 1;
        killer.killOne(ledger, i % 10 == 9 ? Killer::From::Start : Killer::From::Ready,
                       slowness * (i % 10 == 9 ? longestStart : longestEdit));
    }
    for (int i = 0; i < count / 10; ++i)
        killer.killFirstStart(defaults, longestStart);
    killer.look(ledger);
    tell(killer, ledger, static_cast<double>(clock.elapsed()) / 1000);
    std::printf("of these, %d kills during a first start: %d default rules lost\n", count / 10, killer.lostDefaults);
    const bool hasWorked = ledger.stored >= count / 2 && ledger.checkedRules > count && !defaults.isEmpty();
    if (!hasWorked)
        std::printf("The editors stored too little for this to say anything.\n");
    return ledger.lost == 0 && killer.lostDefaults == 0 && hasWorked ? 0 : 1;
}

int fillSmallDisk(Killer& killer, const SmallDisk& disk, const QString& folder, int count)
{
    QElapsedTimer clock;
    clock.start();
    killer.fewTypes = true;
    // As many as it takes to fill the disk.
    killer.mostRules = 1000;
    // Somebody else uses the disk, too.
    std::mt19937 random(static_cast<unsigned int>(count));
    killer.meanwhile = [&] {
        const auto dice = random() % 8;
        if (dice == 0)
            QFile::remove(folder + u"/filler"_s);
        else if (dice < 4)
            disk.fill();
    };
    Ledger ledger;
    for (int i = 0; i < count; ++i) {
        killer.killOne(ledger, Killer::From::Ready, i % 2 == 0 ? 400'000 : 30'000);
    }
    killer.look(ledger);
    tell(killer, ledger, static_cast<double>(clock.elapsed()) / 1000);
    const bool hasWorked = ledger.stored > count && ledger.unstored + ledger.refused > 0;
    if (!hasWorked)
        std::printf("The disk was never in use, or never full.\n");
    return ledger.lost == 0 && hasWorked ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    QCommandLineParser line;
    line.addOptions({{u"kills"_s, {}, u"N"_s, u"1000"_s},
                     {u"seed"_s, {}, u"N"_s, QString::number(std::random_device()())},
                     {u"small-disk"_s, {}}});
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    line.process(arguments);

    const QTemporaryDir temporary(line.positionalArguments().value(0, QDir::tempPath()) + u"/rule-kills"_s);
    const QString folder = temporary.filePath(u"settings"_s);
    QDir().mkpath(folder);
    SmallDisk disk;
    if (line.isSet(u"small-disk"_s)) {
        const QString problem = disk.mountAt(folder);
        if (!problem.isEmpty()) {
            std::printf("SKIPPED: %s\n", qPrintable(problem));
            return skipped;
        }
    }
    // Nothing of the desktop takes part.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(temporary.path()));
    int count = 1;
    const QApplication app(count, argv);
    if (QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size() != 1)
        qFatal("there are threads already: a fork would be half a program");

    const auto seed = line.value(u"seed"_s).toUInt();
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    Killer killer(folder, seed);
    const int kills = line.value(u"kills"_s).toInt();
    return line.isSet(u"small-disk"_s) ? fillSmallDisk(killer, disk, folder, kills) : killAtRandom(killer, kills);
}
