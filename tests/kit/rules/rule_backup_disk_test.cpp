// SPDX-License-Identifier: Apache-2.0
#include "rule_folder.h"
#include "small_disk.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// The settings folder is a disk of its own that is soon full.
class RuleBackupDiskTest : public RuleFolderTest
{
protected:
    void SetUp() override
    {
        const QString problem = m_disk.mountAt(m_folder.path());
        if (!problem.isEmpty())
            GTEST_SKIP() << problem.toStdString();
        QDir(m_folder.path()).mkdir(u"notifications"_s);
    }

    SmallDisk m_disk;
};

TEST_F(RuleBackupDiskTest, KeepsTheOlderCopyAndSaysSoWhenThereIsNoRoomForANewOne)
{
    write(rule(message), oneRule);
    const auto backup = start();
    write(rule(message), otherRule);
    m_disk.fill();
    EXPECT_FALSE(backup->keep(message));
    EXPECT_EQ(read(copy(message)), oneRule);
    EXPECT_EQ(read(rule(message)), otherRule);
}

TEST_F(RuleBackupDiskTest, PutsRulesBackWhenThereIsRoomForOneOfFileAndCopy)
{
    write(rule(message), oneRule);
    start();
    write(rule(message), {});
    m_disk.fill();
    EXPECT_EQ(start()->restored(), QStringList{message});
    EXPECT_EQ(read(rule(message)), oneRule);
    // And has a copy again as soon as there is room.
    QFile::remove(path(u"filler"_s));
    start();
    EXPECT_EQ(read(copy(message)), oneRule);
}

TEST_F(RuleBackupDiskTest, TakesAwayAnEmptyFileWithoutACopy)
{
    m_disk.fill();
    write(rule(message), oneRule);
    ASSERT_EQ(QFileInfo(rule(message)).size(), 0);
    EXPECT_EQ(start()->reset(), QStringList{message});
    EXPECT_FALSE(QFileInfo::exists(rule(message)));
}

} // namespace
