// SPDX-License-Identifier: Apache-2.0
#include "kit/files/file_lock.h"
#include "kit/files/private_folder.h"
#include "kit/files/regular_file.h"
#include "qt_printers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::FileLock;
using zepa::Links;
using zepa::RegularFile;
using State = RegularFile::State;

class RegularFileTest : public testing::Test
{
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QByteArray nameOf(const QString& name) const { return QFile::encodeName(path(name)); }

    void write(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    mode_t modeOf(const QString& name) const
    {
        struct stat status = {};
        return ::lstat(nameOf(name).constData(), &status) == 0 ? status.st_mode & 07777U : 0U;
    }
    State read(const QString& name, qint64 most = 100, Links links = Links::Follow) const
    {
        return RegularFile::openToRead(path(name), most, links).state();
    }
    State append(const QString& name, Links links = Links::Follow) const
    {
        return RegularFile::openToAppend(path(name), links).state();
    }

    const QTemporaryDir m_folder;
    const QString a = u"a"_s;
    const QString b = u"b"_s;
};

TEST_F(RegularFileTest, IsReadUpToTheLimit)
{
    write(a, QByteArray(100, 'x'));
    EXPECT_EQ(RegularFile::openToRead(path(a), 100).readAll(), QByteArray(100, 'x'));
    const RegularFile tooLarge = RegularFile::openToRead(path(a), 99);
    EXPECT_EQ(tooLarge.state(), State::TooLarge);
    EXPECT_EQ(tooLarge.reason(), u"larger than 99 bytes"_s);
    EXPECT_EQ(tooLarge.descriptor(), -1);
    EXPECT_EQ(tooLarge.readAll(), std::nullopt);
    EXPECT_EQ(tooLarge.status().st_size, 100);
}

TEST_F(RegularFileTest, ThatGrowsPastTheLimitIsNotReadOn)
{
    write(a, QByteArray(100, 'x'));
    const RegularFile file = RegularFile::openToRead(path(a), 100);
    write(a, QByteArray(101, 'x'));
    EXPECT_EQ(file.readAll(), std::nullopt);
}

TEST_F(RegularFileTest, WhatIsNoneIsNeitherReadNorWritten)
{
    ASSERT_EQ(::mkfifo(nameOf(u"pipe"_s).constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkpath(path(u"folder"_s)));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, nameOf(u"socket"_s).constData(), sizeof address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, path(u"device"_s)));
    for (const QString& name : {u"pipe"_s, u"folder"_s, u"socket"_s, u"device"_s}) {
        EXPECT_EQ(read(name), State::NotRegular) << name.toStdString();
        EXPECT_EQ(append(name), State::NotRegular) << name.toStdString();
    }
    // With somebody at its other end a pipe could be opened at once.
    const int reader = ::open(nameOf(u"pipe"_s).constData(), O_RDWR | O_CLOEXEC);
    EXPECT_EQ(append(u"pipe"_s), State::NotRegular);
    EXPECT_EQ(read(u"pipe"_s), State::NotRegular);
    ::close(reader);
    ::close(socket);
}

TEST_F(RegularFileTest, AHugeFileWithoutContentIsLeftAlone)
{
    write(a, {});
    ASSERT_EQ(::truncate(nameOf(a).constData(), off_t{2} * 1024 * 1024 * 1024), 0);
    EXPECT_EQ(read(a), State::TooLarge);
}

TEST_F(RegularFileTest, AMissingOneIsToldFromOneThatCannotBeOpened)
{
    EXPECT_EQ(read(a), State::Missing);
    write(a, {});
    EXPECT_EQ(read(u"a/x"_s), State::Failed);
    EXPECT_EQ(read(QString(QChar::Null)), State::Failed);
    EXPECT_EQ(RegularFile::openToRead(QString(), 1).state(), State::Failed);
    EXPECT_FALSE(RegularFile::openToRead(path(u"a/x"_s), 1).reason().isEmpty());
    EXPECT_TRUE(RegularFile::openToRead(path(a), 1).reason().isEmpty());
}

TEST_F(RegularFileTest, ALinkIsFollowedUnlessItIsRefused)
{
    write(a, "x");
    ASSERT_TRUE(QFile::link(path(a), path(b)));
    EXPECT_EQ(RegularFile::openToRead(path(b), 9).readAll(), QByteArray("x"));
    EXPECT_EQ(append(b), State::Open);
    EXPECT_EQ(read(b, 9, Links::Refuse), State::Link);
    EXPECT_EQ(append(b, Links::Refuse), State::Link);
    EXPECT_EQ(read(a, 9, Links::Refuse), State::Open);
}

TEST_F(RegularFileTest, NothingIsMadeWhereALinkLeads)
{
    ASSERT_TRUE(QFile::link(path(a), path(b)));
    EXPECT_EQ(read(b), State::Missing);
    EXPECT_EQ(append(b), State::Missing);
    EXPECT_EQ(append(b, Links::Refuse), State::Link);
    EXPECT_FALSE(QFile::exists(path(a)));
}

TEST_F(RegularFileTest, IsAppendedToAndMadeForItsOwnerWhateverTheUmask)
{
    int number = 0;
    for (const mode_t mask : {0000U, 0077U, 0777U}) {
        const QString name = QString::number(++number);
        const mode_t before = ::umask(mask);
        const State made = append(name);
        ::umask(before);
        EXPECT_EQ(made, State::Open);
        EXPECT_EQ(modeOf(name), 0600U) << mask;
    }
    write(a, "one");
    ASSERT_EQ(::chmod(nameOf(a).constData(), 0644), 0);
    const RegularFile file = RegularFile::openToAppend(path(a));
    ASSERT_EQ(::write(file.descriptor(), "two", 3), 3);
    EXPECT_EQ(RegularFile::openToRead(path(a), 9).readAll(), QByteArray("onetwo"));
    EXPECT_EQ(modeOf(a), 0644U) << "what exists keeps its mode";
}

TEST_F(RegularFileTest, GivesItsDescriptorToADevice)
{
    write(a, "content");
    QFile device(path(a));
    RegularFile file = RegularFile::openToRead(path(a), 100);
    const int descriptor = file.descriptor();
    ASSERT_TRUE(file.moveTo(device));
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(device.readAll(), QByteArray("content"));
    EXPECT_TRUE(device.seek(0));
    device.close();
    EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1) << "closed with the device";
    EXPECT_FALSE(RegularFile::openToRead(path(b), 100).moveTo(device));
}

TEST_F(RegularFileTest, AFolderIsMadeForItsOwnerWithAllOnTheWayToIt)
{
    ASSERT_TRUE(QDir().mkpath(path(a)));
    ASSERT_EQ(::chmod(nameOf(a).constData(), 0755), 0);
    for (const mode_t mask : {0000U, 0777U}) {
        const QString first = u"a/%1"_s.arg(mask);
        const mode_t before = ::umask(mask);
        const bool isMade = zepa::makePrivateFolder(path(first) + u"/two/"_s);
        ::umask(before);
        EXPECT_TRUE(isMade);
        EXPECT_EQ(modeOf(first), 0700U) << mask;
        EXPECT_EQ(modeOf(first + u"/two"_s), 0700U) << mask;
    }
    EXPECT_EQ(modeOf(a), 0755U) << "what exists keeps its mode";
    EXPECT_TRUE(zepa::makePrivateFolder(path(a)));
    write(b, {});
    EXPECT_FALSE(zepa::makePrivateFolder(path(b)));
    EXPECT_FALSE(zepa::makePrivateFolder(path(u"b/x"_s)));
    ASSERT_TRUE(QFile::link(path(u"nowhere"_s), path(u"link"_s)));
    EXPECT_FALSE(zepa::makePrivateFolder(path(u"link/x"_s)));
    EXPECT_FALSE(zepa::makePrivateFolder(QString()));
}

TEST_F(RegularFileTest, ALockIsHeldByOneAtATime)
{
    {
        const FileLock first(path(a));
        EXPECT_TRUE(first.isHeld());
        EXPECT_EQ(FileLock(path(a)).state(), FileLock::State::Busy);
        EXPECT_TRUE(FileLock(path(b)).isHeld());
    }
    EXPECT_TRUE(FileLock(path(a)).isHeld());
    EXPECT_EQ(FileLock(path(u"no/folder"_s)).state(), FileLock::State::Failed);
    ASSERT_TRUE(QFile::link(path(a), path(u"link"_s)));
    EXPECT_EQ(FileLock(path(u"link"_s)).state(), FileLock::State::Failed);
}

} // namespace
