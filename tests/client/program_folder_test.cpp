// SPDX-License-Identifier: Apache-2.0
// What the program makes of its settings folder, and shares it with others.
#include "program.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <fcntl.h>
#include <grp.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString typing = QStringLiteral("typing_started_notify");

QStringList words(const char* line)
{
    return QString::fromLatin1(line).split(u' ');
}

class ProgramFolder : public Program
{
protected:
    static unsigned int mode(const QString& path)
    {
        struct stat status = {};
        ::stat(QFile::encodeName(path).constData(), &status);
        return status.st_mode & 0777U;
    }
    /// Every file below the folder, with what tells that it was touched.
    QStringList inventory(const QString& folder) const
    {
        QStringList found;
        QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            struct stat status = {};
            ::lstat(QFile::encodeName(path).constData(), &status);
            found.append(QStringLiteral("%1 %2 %3 %4.%5")
                             .arg(path)
                             .arg(qulonglong(status.st_ino))
                             .arg(qulonglong(status.st_mode))
                             .arg(qlonglong(status.st_ctim.tv_sec))
                             .arg(qlonglong(status.st_ctim.tv_nsec)));
        }
        found.sort();
        return found;
    }
};

TEST_F(ProgramFolder, ThatIsNamedAndDoesNotExistIsSaidAndNotMadeByACommandThatReads)
{
    const QString folder = inFolder(QStringLiteral("nowhere"));
    for (const char* line : {"types", "rules", "methods", "setting get", "post message_sent --title T"}) {
        const Outcome outcome = runBare(words(line) + QStringList{QStringLiteral("--settings"), folder});
        EXPECT_EQ(outcome.code, 1) << line;
        EXPECT_EQ(outcome.out, QString());
        EXPECT_TRUE(outcome.err.contains(folder)) << outcome.err.toStdString();
        EXPECT_FALSE(QFileInfo::exists(folder)) << line;
    }
    EXPECT_EQ(runBare(words("setting set duplicated_notifications_time 30 --settings") + QStringList{folder}).code, 0);
    EXPECT_TRUE(QFileInfo::exists(folder));
}

TEST_F(ProgramFolder, OfANewUserIsForThemAloneWhateverTheUmask)
{
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), inFolder(QStringLiteral("config")));
    const mode_t before = umask(0);
    const Outcome reading = runBare(words("types"));
    const Outcome writing = runBare(words("rule set typing_started_notify zepa_hint_notification sticky=true"));
    const Outcome setting = runBare(words("setting set duplicated_notifications_time 30"));
    umask(before);
    ASSERT_EQ(reading.code + writing.code + setting.code, 0) << writing.err.toStdString();
    const QString config = inFolder(QStringLiteral("config/zepa"));
    EXPECT_EQ(mode(config), 0700U);
    int count = 0;
    QDirIterator files(config, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        EXPECT_EQ(mode(path), QFileInfo(path).isDir() ? 0700U : 0600U) << path.toStdString();
        ++count;
    }
    EXPECT_GT(count, 20);
}

TEST_F(ProgramFolder, ThatOthersMayReadIsTightenedOnceAndOneThatIsNamedKeepsItsMode)
{
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), inFolder(QStringLiteral("config")));
    const QString config = inFolder(QStringLiteral("config/zepa"));
    const QString notifications = config + QStringLiteral("/notifications");
    const auto open = [](const QString& path) { ::chmod(QFile::encodeName(path).constData(), 0755); };
    const auto change = [this](const QStringList& rest) {
        return runBare(words("rule set typing_started_notify zepa_hint_notification") + rest).code;
    };
    ASSERT_TRUE(QDir().mkpath(notifications));
    open(config);
    open(notifications);
    ASSERT_EQ(change({}), 0);
    EXPECT_EQ(mode(config), 0700U);
    EXPECT_EQ(mode(notifications), 0700U);
    open(config);
    open(notifications);
    ASSERT_EQ(change({}), 0);
    EXPECT_EQ(mode(config), 0755U);
    EXPECT_EQ(mode(notifications), 0755U);

    const QString named = inFolder(QStringLiteral("named"));
    ASSERT_TRUE(QDir().mkpath(named + QStringLiteral("/notifications")));
    open(named);
    open(named + QStringLiteral("/notifications"));
    ASSERT_EQ(change({QStringLiteral("--settings"), named}), 0);
    EXPECT_EQ(mode(named), 0755U);
    EXPECT_EQ(mode(named + QStringLiteral("/notifications")), 0700U);
}

TEST_F(ProgramFolder, StaysAsItIsUnderCommandsThatRead)
{
    ASSERT_EQ(run(words("rule set typing_started_notify zepa_hint_notification")).code, 0);
    const QString folder = inFolder(QStringLiteral("settings"));
    // As a program that knew nothing of copies left it.
    ASSERT_TRUE(QDir(folder + QStringLiteral("/rules-backup")).removeRecursively());
    const QStringList before = inventory(folder);
    ASSERT_GT(before.size(), 10);
    for (const char* line : {"types", "rules", "methods", "setting get", "post message_sent --title T"}) {
        EXPECT_EQ(run(words(line)).code, 0) << line;
        EXPECT_EQ(inventory(folder), before) << line;
    }
}

TEST_F(ProgramFolder, InWhichAnotherProgramWorksIsAnErrorAfterTwoSeconds)
{
    ASSERT_EQ(run(words("rule set typing_started_notify zepa_hint_notification")).code, 0);
    const QByteArray before = read(QStringLiteral("settings/notifications/typing_started_notify"));
    const QString folder = inFolder(QStringLiteral("settings/notifications"));
    const int other = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    for (const char* line : {"rule set typing_started_notify zepa_hint_notification sticky=true", "rules"}) {
        const Outcome outcome = run(words(line));
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.out, QString());
        EXPECT_TRUE(outcome.err.contains(QStringLiteral("another program"))) << outcome.err.toStdString();
    }
    ::close(other);
    EXPECT_EQ(read(QStringLiteral("settings/notifications/typing_started_notify")), before);
    EXPECT_EQ(run(words("rules")).code, 0);
}

TEST_F(ProgramFolder, KeepsTheChangesOfTwoCommandsThatRunAtOnce)
{
    run(words("types"));
    for (int round = 0; round < 5; ++round) {
        const QString name = QStringLiteral("sound_file=%1.wav").arg(round);
        const QString sticky = round % 2 == 0 ? QStringLiteral("sticky=true") : QStringLiteral("sticky=false");
        const auto one =
            start(words("rule set typing_started_notify zepa_sound_notification_method") + QStringList{name});
        const auto two = start(words("rule set typing_started_notify zepa_hint_notification") + QStringList{sticky});
        EXPECT_EQ(finish(*one).code, 0);
        EXPECT_EQ(finish(*two).code, 0);
        const Outcome rules = run(words("rules typing_started_notify"));
        EXPECT_TRUE(rules.out.contains(name)) << rules.out.toStdString();
        EXPECT_TRUE(rules.out.contains(sticky)) << rules.out.toStdString();
        EXPECT_EQ(rules.err, QString());
    }
}

TEST_F(ProgramFolder, SaysWhichRuleFilesCannotBeUsed)
{
    ASSERT_TRUE(QDir().mkpath(ruleFile(typing)));
    write(QStringLiteral("settings/notifications/message_sent"),
          "<rules>" + QByteArray(5 * 1024 * 1024, ' ') + "</rules>");
    const Outcome outcome = run(words("types"));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.contains(typing)) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("message_sent"))) << outcome.err.toStdString();
    EXPECT_EQ(run(words("rule set message_sent zepa_hint_notification")).code, 1);
    EXPECT_EQ(QFileInfo(ruleFile(QStringLiteral("message_sent"))).size(), 5 * 1024 * 1024 + 15);
}

TEST_F(ProgramFolder, ThatCannotBeWrittenHasItsStoredRulesInUseAndSaysSo)
{
    ASSERT_EQ(run(words("rule set typing_started_notify zepa_hint_notification")).code, 0);
    // Somebody else's, which may be read by everybody.
    const QString folder = inFolder(QStringLiteral("settings"));
    QDirIterator files(folder, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    QStringList paths{inFolder(QString()), folder};
    while (files.hasNext())
        paths.append(files.next());
    for (const QString& path : std::as_const(paths))
        ::chmod(QFile::encodeName(path).constData(), QFileInfo(path).isDir() ? 0555 : 0444);

    QProcess process;
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] {
        // For the system's administrator nothing is read-only.
        if (geteuid() == 0 &&
            (setgroups(0, nullptr) != 0 || setresgid(65534, 65534, 65534) != 0 || setresuid(65534, 65534, 65534) != 0))
            _exit(127);
    });
    process.start(QStringLiteral(ZEPA_PROGRAM), words("rules typing_started_notify --settings") + QStringList{folder});
    const Outcome outcome = finish(process);
    for (const QString& path : std::as_const(paths))
        ::chmod(QFile::encodeName(path).constData(), QFileInfo(path).isDir() ? 0755 : 0644);
    if (process.error() == QProcess::FailedToStart || outcome.code == 127)
        GTEST_SKIP() << "the program cannot be run by another user here: " << process.errorString().toStdString();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out.contains(QStringLiteral("zepa_hint_notification"))) << outcome.out.toStdString();
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("your rules are in use as they are"))) << outcome.err.toStdString();
}

} // namespace
