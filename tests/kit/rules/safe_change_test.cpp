// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/rule_state.h"
#include "safe_change_fixture.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

using zepa::RuleBackup;
using zepa::SafeChange;

/// What this process has written so far, in bytes.
qint64 writtenBytes()
{
    QFile io(u"/proc/self/io"_s);
    if (!io.open(QIODevice::ReadOnly))
        return -1;
    const QByteArrayList lines = io.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("wchar: "))
            return line.mid(7).toLongLong();
    }
    return -1;
}

TEST_F(SafeChangeTest, SaysThatAChangeIsStoredAndItIsThereAfterTheFileBroke)
{
    start();
    const qsizetype before = count();
    EXPECT_EQ(add(), SafeChange::Stored);
    EXPECT_TRUE(zepa::problemWith(SafeChange::Stored, type).isEmpty());
    QFile::resize(file(), 0);
    start();
    EXPECT_EQ(count(), before + 1);
    EXPECT_EQ(m_backup->restored(), QStringList{type});
}

TEST_F(SafeChangeTest, MakesManyStepsOneForWhoeverComesAfterACrash)
{
    start();
    add();
    const QByteArray before = content();
    const qsizetype rules = count();
    change([&] {
        while (m_module->getNotificationRule(type, sound))
            m_module->removeNotificationRule(type, sound);
        EXPECT_NE(content(), before);
        // Here the client dies: the next one starts on what is there now.
        RuleBackup next(m_settings->getSettingsDir(), {type});
        next.restore();
        EXPECT_EQ(content(), before);
    });
    EXPECT_LT(count(), rules);
}

TEST_F(SafeChangeTest, RefusesAChangeOfAFileThatCannotBeWritten)
{
    start();
    QFile::remove(file());
    QDir().mkdir(file());
    const qsizetype before = count();
    EXPECT_EQ(add(), SafeChange::Refused);
    EXPECT_EQ(count(), before);
    EXPECT_FALSE(zepa::problemWith(SafeChange::Refused, type).isEmpty());
}

TEST_F(SafeChangeTest, LosesNoStoredRuleOnADiskThatGetsFull)
{
    const QString problem = m_disk.mountAt(m_folder.path());
    if (!problem.isEmpty())
        GTEST_SKIP() << problem.toStdString();
    start();
    qsizetype stored = 0;
    SafeChange last = add();
    while (last == SafeChange::Stored || last == SafeChange::StoredWithoutCopy) {
        ++stored;
        last = add();
    }
    // And again and again, also with the last block taken.
    for (int i = 0; i < 10; ++i) {
        m_disk.fill();
        const SafeChange outcome = add();
        EXPECT_TRUE(outcome == SafeChange::NotStored || outcome == SafeChange::Refused);
        start();
        EXPECT_EQ(count(), stored);
    }
    QFile::remove(m_folder.filePath(u"filler"_s));
    EXPECT_GT(stored, 10);
}

TEST_F(SafeChangeTest, ChangesNothingMoreAsLongAsThereIsNoRoomForACopy)
{
    const QString problem = m_disk.mountAt(m_folder.path());
    if (!problem.isEmpty())
        GTEST_SKIP() << problem.toStdString();
    start();
    ASSERT_EQ(add(), SafeChange::Stored);
    ASSERT_EQ(add(), SafeChange::Stored);
    // The file has its block; another one for the copy is not to be had.
    const SafeChange withoutCopy = change([&] {
        m_module->removeNotificationRule(type, sound);
        m_disk.fill();
    });
    EXPECT_EQ(withoutCopy, SafeChange::StoredWithoutCopy);
    const qsizetype stored = count();
    EXPECT_EQ(add(), SafeChange::Refused);
    EXPECT_EQ(count(), stored);
    start();
    EXPECT_EQ(count(), stored);
}

TEST_F(SafeChangeTest, WritesAFileOfManyRulesAFewTimesAndNotOnceForEachOfThem)
{
    if (writtenBytes() < 0)
        GTEST_SKIP() << "/proc/self/io cannot be read";
    start();
    add();
    const QByteArray one = content();
    const qsizetype from = one.indexOf("<zepa_sound");
    const qsizetype to = one.lastIndexOf("</rules");
    constexpr qsizetype many = 1000;
    QFile open(file());
    ASSERT_TRUE(open.open(QIODevice::WriteOnly));
    open.write(one.first(from) + one.sliced(from, to - from).repeated(many) + one.sliced(to));
    open.close();
    start();
    ASSERT_GE(count(), many);
    const qint64 size = content().size();

    const qint64 before = writtenBytes();
    EXPECT_EQ(change([&] {
                  QList<ZepaField> fields = m_module->getMethods().value(sound)->fields;
                  fields.first().setText(u"other.wav"_s);
                  zepa::updateRule(*m_module, type, sound, fields);
              }),
              SafeChange::Stored);
    // The file, its copy, and once more when its order is another one.
    EXPECT_LT(writtenBytes() - before, 4 * size);
    EXPECT_TRUE(content().contains("other.wav"));
}

TEST_F(SafeChangeTest, CreatesFilesForItsUserAloneAndLeavesTheUmaskAsItWas)
{
    const mode_t before = umask(0);
    start();
    add();
    EXPECT_EQ(umask(before), 0U);
    const auto mode = [](const QString& path) {
        struct stat status = {};
        ::stat(QFile::encodeName(path).constData(), &status);
        return status.st_mode & 0777U;
    };
    EXPECT_EQ(mode(file()), 0600U);
    EXPECT_EQ(mode(QFileInfo(file()).path()), 0700U);
    EXPECT_EQ(mode(m_folder.filePath(u"rules-backup"_s)), 0700U);
    EXPECT_EQ(mode(m_folder.filePath(u"rules-backup/copies"_s)), 0700U);
    EXPECT_EQ(mode(m_folder.filePath(u"rules-backup/copies/"_s + type)), 0600U);
}

TEST_F(SafeChangeTest, ChangesNothingWhileAnotherClientHasTheFiles)
{
    start();
    add();
    const QByteArray before = content();
    const qsizetype rules = count();
    zepa::RuleLock other(m_backup->ruleFolder());
    ASSERT_TRUE(other.tryNow());
    EXPECT_EQ(add(), SafeChange::Busy);
    EXPECT_EQ(count(), rules);
    EXPECT_EQ(content(), before);
    EXPECT_FALSE(zepa::problemWith(SafeChange::Busy, type).isEmpty());
}

} // namespace
