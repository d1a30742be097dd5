// SPDX-License-Identifier: Apache-2.0
#include "client/instance/caller_policy.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa::instance;

/// What the system tells of processes, written by the test: of this process, and of a caller with its number.
class CallerPolicyTest : public testing::Test
{
protected:
    CallerPolicyTest()
    {
        link(u"self/ns/mnt"_s, "mnt:[1]");
        link(own(u"ns/mnt"_s), "mnt:[1]");
        link(own(u"root"_s), "/");
        write(own(u"attr/current"_s), "unconfined\n");
        write(own(u"cgroup"_s), "0::/user.slice/user-1000.slice/session-2.scope\n");
    }

    QString path(const QString& name) const { return m_folder.filePath(name); }
    static QString own(const QString& name) { return u"%1/%2"_s.arg(::getpid()).arg(name); }

    void write(const QString& name, const QByteArray& content) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void link(const QString& name, const char* target) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile::remove(path(name));
        ASSERT_EQ(::symlink(target, path(name).toLocal8Bit().constData()), 0);
    }
    /// Another view of the files: its root is a folder of the test's.
    void giveOwnFiles() const
    {
        QDir().mkpath(path(u"files"_s));
        link(own(u"ns/mnt"_s), "mnt:[2]");
        link(own(u"root"_s), path(u"files"_s).toLocal8Bit().constData());
    }

    CallerLook look() const { return CallerLook(m_caller, m_folder.path().toLocal8Bit()); }
    std::string problem() const { return look().problem().toStdString(); }
    bool isForeign() const { return problem() == "the running Zepa accepts no commands from sandboxed programs"; }
    bool isUnknown() const { return look().problem().contains(u"that it cannot identify"_s); }

    QTemporaryDir m_folder;
    Caller m_caller{::geteuid(), ::getpid(), nullptr, {}};
};

TEST_F(CallerPolicyTest, LetsTheUsersProgramsCall)
{
    EXPECT_EQ(problem(), "");
    // Their files need not be looked at.
    EXPECT_EQ(look().quickProblem(), QString());
    // Neither security module nor control groups.
    QFile::remove(path(own(u"attr/current"_s)));
    QFile::remove(path(own(u"cgroup"_s)));
    EXPECT_EQ(problem(), "");
}

TEST_F(CallerPolicyTest, LetsACallerWithFilesOfItsOwnCallWithoutASandboxsMark)
{
    giveOwnFiles();
    EXPECT_FALSE(look().quickProblem().has_value());
    EXPECT_EQ(problem(), "");
}

TEST_F(CallerPolicyTest, RefusesACallerWithASandboxsMark)
{
    giveOwnFiles();
    write(u"files/.flatpak-info"_s, "[Application]\n");
    EXPECT_TRUE(isForeign()) << problem();
    QFile::remove(path(u"files/.flatpak-info"_s));
    link(u"files/.flatpak-info"_s, "/nonexistent");
    EXPECT_TRUE(isForeign()) << problem();
}

TEST_F(CallerPolicyTest, LooksAtARootOfItsOwnAmongTheSameFiles)
{
    giveOwnFiles();
    link(own(u"ns/mnt"_s), "mnt:[1]");
    write(u"files/.flatpak-info"_s, "");
    EXPECT_TRUE(isForeign()) << problem();
}

TEST_F(CallerPolicyTest, RefusesSnaps)
{
    m_caller.label = "snap.chat.chat (enforce)";
    EXPECT_TRUE(isForeign()) << problem();
    m_caller.label = "unconfined";
    EXPECT_EQ(problem(), "");
    write(own(u"attr/current"_s), "snap.chat.chat (complain)\n");
    EXPECT_TRUE(isForeign()) << problem();
    write(own(u"attr/current"_s), "unconfined\n");
    write(own(u"cgroup"_s), "0::/user.slice/user-1000.slice/user@1000.service/snap.chat.chat-1f2e.scope\n");
    EXPECT_TRUE(isForeign()) << problem();
    write(own(u"cgroup"_s), "0::/system.slice/snapd.service\n");
    EXPECT_EQ(problem(), "");
}

TEST_F(CallerPolicyTest, RefusesAnotherUser)
{
    m_caller.user = ::geteuid() + 1;
    EXPECT_EQ(problem(), "the running Zepa accepts no commands from programs of other users");
}

TEST_F(CallerPolicyTest, RefusesWhatTheBusDoesNotKnow)
{
    m_caller.user.reset();
    EXPECT_TRUE(isUnknown()) << problem();
    m_caller.user = ::geteuid();
    m_caller.process = 0;
    EXPECT_TRUE(isUnknown()) << problem();
    m_caller.process = -1;
    EXPECT_TRUE(isUnknown()) << problem();
}

TEST_F(CallerPolicyTest, RefusesWhatCannotBeLookedUp)
{
    for (const char* link : {"ns/mnt", "root"}) {
        const QString name = path(own(QString::fromLatin1(link)));
        QFile::rename(name, name + u'x');
        EXPECT_TRUE(isUnknown()) << link << problem();
        QFile::rename(name + u'x', name);
    }
    for (const char* file : {"attr/current", "cgroup"}) {
        // A folder can be opened and not be read.
        const QString name = path(own(QString::fromLatin1(file)));
        QFile::rename(name, name + u'x');
        QDir().mkpath(name);
        EXPECT_TRUE(isUnknown()) << file << problem();
        QDir().rmdir(name);
        QFile::rename(name + u'x', name);
    }
    EXPECT_EQ(problem(), "");
    link(own(u"root"_s), "/nonexistent");
    EXPECT_TRUE(isUnknown()) << problem();
}

TEST_F(CallerPolicyTest, RefusesAProcessThatEndedWhileItWasLookedAt)
{
    const pid_t child = ::fork();
    if (child == 0) {
        ::pause();
        ::_exit(0);
    }
    const QString number = QString::number(child);
    QDir(m_folder.path()).rename(QString::number(::getpid()), number);
    m_caller.process = child;
    const CallerLook before = look();
    EXPECT_EQ(before.problem().toStdString(), "");
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    // What the system tells under that number may be another process's by now.
    EXPECT_TRUE(before.problem().contains(u"it has ended"_s));
    EXPECT_TRUE(isUnknown()) << problem();
}

TEST_F(CallerPolicyTest, FindsItselfInTheRealSystem)
{
    const CallerLook self(m_caller);
    EXPECT_EQ(self.quickProblem(), QString());
    EXPECT_EQ(self.problem(), QString());
}

} // namespace
