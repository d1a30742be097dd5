// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// The real program and files that others left for it.
class ProgramFiles : public Program
{
protected:
    QByteArray nameOf(const QString& name) const { return QFile::encodeName(inFolder(name)); }

    mode_t modeOf(const QString& name) const
    {
        struct stat status = {};
        return ::lstat(nameOf(name).constData(), &status) == 0 ? status.st_mode : 0;
    }

    Outcome setLimit(const QString& value) { return run({u"setting"_s, u"set"_s, m_limit, value}); }

    const QString m_limit = u"duplicated_notifications_time"_s;
    const QString m_ini = u"settings/settings.ini"_s;
};

/// Something under the name of settings.ini that is not to be opened.
struct Foreign
{
    const char* name;
    bool (*make)(const QByteArray& path);
};

void PrintTo(const Foreign& foreign, std::ostream* stream)
{
    *stream << foreign.name;
}

class ForeignSettings : public ProgramFiles, public testing::WithParamInterface<Foreign>
{};

const Foreign pipeWithoutWriter{"pipe", [](const QByteArray& path) { return ::mkfifo(path.constData(), 0600) == 0; }};
/// To a device of the test's own where one can be made: a program that writes where the link leads, as an
/// administrator, would replace the machine's. Who can make none cannot write there either.
bool linkToDevice(const QByteArray& path)
{
    const QByteArray device = path + ".device";
    const bool isOwn = ::mknod(device.constData(), S_IFCHR | 0600, makedev(1, 5)) == 0;
    if (!isOwn && ::access("/dev", W_OK) == 0)
        return false;
    return ::symlink(isOwn ? device.constData() : "/dev/zero", path.constData()) == 0;
}

const Foreign sparseFile{"sparse", [](const QByteArray& path) {
                             const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
                             const bool isMade = ::ftruncate(file, off_t{2} * 1024 * 1024 * 1024) == 0;
                             return ::close(file) == 0 && isMade;
                         }};
const Foreign emptyFolder{"folder", [](const QByteArray& path) { return ::mkdir(path.constData(), 0700) == 0; }};

TEST_P(ForeignSettings, StopNothingAndAreLeftAsTheyAre)
{
    ASSERT_TRUE(QDir().mkpath(inFolder(u"settings"_s)));
    if (!GetParam().make(nameOf(m_ini)))
        GTEST_SKIP() << "it cannot be made here";
    const mode_t before = modeOf(m_ini);
    const Outcome get = run({u"setting"_s, u"get"_s, m_limit});
    EXPECT_EQ(get.code, 0);
    EXPECT_EQ(get.out, u"5\n"_s);
    EXPECT_TRUE(get.err.contains(u"cannot read the settings file"_s)) << get.err.toStdString();
    const Outcome set = setLimit(u"9"_s);
    EXPECT_EQ(set.code, 1);
    EXPECT_TRUE(set.err.contains(u"nothing was changed"_s)) << set.err.toStdString();
    EXPECT_EQ(modeOf(m_ini), before);
}

INSTANTIATE_TEST_SUITE_P(AllKinds, ForeignSettings,
                         testing::Values(pipeWithoutWriter, Foreign{"device", linkToDevice}, sparseFile, emptyFolder));

TEST_F(ProgramFiles, AForeignLockFileStopsNoChangeAndStays)
{
    ASSERT_TRUE(QDir().mkpath(inFolder(u"settings"_s)));
    write(m_ini + u".lock"_s, "");
    EXPECT_EQ(setLimit(u"9"_s).code, 0);
    EXPECT_TRUE(read(m_ini).contains("duplicated_notifications_time=9"));
    EXPECT_TRUE(QFileInfo::exists(inFolder(m_ini + u".lock"_s)));
}

TEST_F(ProgramFiles, ALockThatIsNotGivenBackIsAClearErrorAndNothingIsChanged)
{
    ASSERT_EQ(setLimit(u"8"_s).code, 0);
    const QByteArray before = read(m_ini);
    const int lock = ::open(nameOf(u"settings/settings.lock"_s).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_EQ(::flock(lock, LOCK_EX), 0);
    const Outcome outcome = setLimit(u"9"_s);
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(u"another program"_s)) << outcome.err.toStdString();
    EXPECT_EQ(read(m_ini), before);
    ::close(lock);
    EXPECT_EQ(setLimit(u"9"_s).code, 0);
}

TEST_F(ProgramFiles, WhatIsMadeIsTheUsersAloneWhateverTheUmask)
{
    for (const mode_t mask : {0000U, 0077U, 0777U}) {
        const mode_t before = ::umask(mask);
        const QString home = u"home-%1"_s.arg(mask);
        environment.insert(u"XDG_CONFIG_HOME"_s, inFolder(home + u"/config"_s));
        const Outcome outcome = runBare({u"setting"_s, u"set"_s, m_limit, u"9"_s});
        ::umask(before);
        EXPECT_EQ(outcome.code, 0) << mask << outcome.err.toStdString();
        for (const char* name : {"", "/config", "/config/zepa", "/config/zepa/notifications"})
            EXPECT_EQ(modeOf(home + QString::fromLatin1(name)) & 07777U, 0700U) << mask << name;
        EXPECT_EQ(modeOf(home + u"/config/zepa/settings.ini"_s) & 07777U, 0600U) << mask;
    }
}

TEST_F(ProgramFiles, WhatExistsKeepsItsMode)
{
    ASSERT_TRUE(QDir().mkpath(inFolder(u"settings"_s)));
    write(m_ini, "[General]\nalerts=never\n");
    ASSERT_EQ(::chmod(nameOf(m_ini).constData(), 0640), 0);
    ASSERT_EQ(::chmod(nameOf(u"settings"_s).constData(), 0750), 0);
    ASSERT_EQ(setLimit(u"9"_s).code, 0);
    EXPECT_EQ(modeOf(m_ini) & 07777U, 0640U);
    EXPECT_EQ(modeOf(u"settings"_s) & 07777U, 0750U);
    EXPECT_TRUE(read(m_ini).contains("alerts=never"));
}

TEST_F(ProgramFiles, SettingsBehindALinkAreReadAndWrittenThere)
{
    ASSERT_TRUE(QDir().mkpath(inFolder(u"settings"_s)));
    write(u"elsewhere.ini"_s, "[General]\nalerts=never\n");
    ASSERT_TRUE(QFile::link(inFolder(u"elsewhere.ini"_s), inFolder(m_ini)));
    EXPECT_EQ(run({u"setting"_s, u"get"_s, u"alerts"_s}).out, u"never\n"_s);
    ASSERT_EQ(setLimit(u"9"_s).code, 0);
    EXPECT_TRUE(S_ISLNK(modeOf(m_ini)));
    EXPECT_TRUE(read(u"elsewhere.ini"_s).contains("duplicated_notifications_time=9"));
}

} // namespace
