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

using namespace Qt::StringLiterals;

namespace {

const QString typing = u"typing_started_notify"_s;

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
            found.append(u"%1 %2 %3 %4.%5"_s.arg(path)
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
    const QString folder = inFolder(u"nowhere"_s);
    for (const char* line : {"types", "rules", "methods", "setting get", "post message_sent --title T"}) {
        const Outcome outcome = runBare(words(line) + QStringList{u"--settings"_s, folder});
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
    environment.insert(u"XDG_CONFIG_HOME"_s, inFolder(u"config"_s));
    const mode_t before = umask(0);
    const Outcome reading = runBare(words("types"));
    const Outcome writing = runBare(words("rule set typing_started_notify zepa_hint_notification sticky=true"));
    const Outcome setting = runBare(words("setting set duplicated_notifications_time 30"));
    umask(before);
    ASSERT_EQ(reading.code + writing.code + setting.code, 0) << writing.err.toStdString();
    const QString config = inFolder(u"config/zepa"_s);
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
    environment.insert(u"XDG_CONFIG_HOME"_s, inFolder(u"config"_s));
    const QString config = inFolder(u"config/zepa"_s);
    const QString notifications = config + u"/notifications"_s;
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

    const QString named = inFolder(u"named"_s);
    ASSERT_TRUE(QDir().mkpath(named + u"/notifications"_s));
    open(named);
    open(named + u"/notifications"_s);
    ASSERT_EQ(change({u"--settings"_s, named}), 0);
    EXPECT_EQ(mode(named), 0755U);
    EXPECT_EQ(mode(named + u"/notifications"_s), 0700U);
}

TEST_F(ProgramFolder, StaysAsItIsUnderCommandsThatRead)
{
    ASSERT_EQ(run(words("rule set typing_started_notify zepa_hint_notification")).code, 0);
    const QString folder = inFolder(u"settings"_s);
    // As a program that knew nothing of copies left it.
    ASSERT_TRUE(QDir(folder + u"/rules-backup"_s).removeRecursively());
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
    const QByteArray before = read(u"settings/notifications/typing_started_notify"_s);
    const QString folder = inFolder(u"settings/notifications"_s);
    const int other = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    for (const char* line : {"rule set typing_started_notify zepa_hint_notification sticky=true", "rules"}) {
        const Outcome outcome = run(words(line));
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.out, QString());
        EXPECT_TRUE(outcome.err.contains(u"another program"_s)) << outcome.err.toStdString();
    }
    ::close(other);
    EXPECT_EQ(read(u"settings/notifications/typing_started_notify"_s), before);
    EXPECT_EQ(run(words("rules")).code, 0);
}

TEST_F(ProgramFolder, KeepsTheChangesOfTwoCommandsThatRunAtOnce)
{
    run(words("types"));
    for (int round = 0; round < 5; ++round) {
        const QString name = u"sound_file=%1.wav"_s.arg(round);
        const QString sticky = round % 2 == 0 ? u"sticky=true"_s : u"sticky=false"_s;
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
    write(u"settings/notifications/message_sent"_s, "<rules>" + QByteArray(5 * 1024 * 1024, ' ') + "</rules>");
    const Outcome outcome = run(words("types"));
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.err.contains(typing)) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains(u"message_sent"_s)) << outcome.err.toStdString();
    EXPECT_EQ(run(words("rule set message_sent zepa_hint_notification")).code, 1);
    EXPECT_EQ(QFileInfo(ruleFile(u"message_sent"_s)).size(), 5 * 1024 * 1024 + 15);
}

TEST_F(ProgramFolder, ThatCannotBeWrittenHasItsStoredRulesInUseAndSaysSo)
{
    ASSERT_EQ(run(words("rule set typing_started_notify zepa_hint_notification")).code, 0);
    // Somebody else's, which may be read by everybody.
    const QString folder = inFolder(u"settings"_s);
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
    process.start(QString::fromUtf8(ZEPA_PROGRAM),
                  words("rules typing_started_notify --settings") + QStringList{folder});
    const Outcome outcome = finish(process);
    for (const QString& path : std::as_const(paths))
        ::chmod(QFile::encodeName(path).constData(), QFileInfo(path).isDir() ? 0755 : 0644);
    if (process.error() == QProcess::FailedToStart || outcome.code == 127)
        GTEST_SKIP() << "the program cannot be run by another user here: " << process.errorString().toStdString();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out.contains(u"zepa_hint_notification"_s)) << outcome.out.toStdString();
    EXPECT_TRUE(outcome.err.contains(u"your rules are in use as they are"_s)) << outcome.err.toStdString();
}

} // namespace
