// SPDX-License-Identifier: Apache-2.0
#include "rule_folder.h"

#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using zepa::RuleBackup;

class RuleBackupTest : public RuleFolderTest
{};

TEST_F(RuleBackupTest, ReadsEveryCutOffFileAsBrokenAndAnEmptyRulesElementAsGood)
{
    EXPECT_TRUE(RuleBackup::isGood(oneRule));
    EXPECT_TRUE(RuleBackup::isGood(noRule));
    EXPECT_TRUE(RuleBackup::isGood("<rules></rules>"));
    for (qsizetype length = 0; length < oneRule.size(); ++length)
        EXPECT_FALSE(RuleBackup::isGood(oneRule.first(length))) << length;
    EXPECT_FALSE(RuleBackup::isGood("<rule></rule>"));
    EXPECT_FALSE(RuleBackup::isGood(oneRule + QByteArray(4, '\0')));
    EXPECT_FALSE(RuleBackup::isGood(QByteArray(100, '\0')));
}

TEST_F(RuleBackupTest, PutsBackWhatACrashLeftEmptyOrCutOff)
{
    const QString cutOff = QStringLiteral("cut_off");
    write(rule(message), oneRule);
    write(rule(cutOff), otherRule);
    start();
    write(rule(message), {});
    write(rule(cutOff), oneRule.first(20));

    const auto backup = start();
    EXPECT_EQ(read(rule(message)), oneRule);
    EXPECT_EQ(read(rule(cutOff)), otherRule);
    EXPECT_EQ(backup->restored(), (QStringList{cutOff, message}));
    EXPECT_EQ(backup->news().size(), 1);
    // Told once.
    EXPECT_TRUE(start()->news().isEmpty());
}

TEST_F(RuleBackupTest, CallsTypesWhatTheUserCallsThem)
{
    write(rule(message), oneRule);
    start();
    write(rule(message), {});
    const auto backup = start();
    const QStringList news = backup->news([this](const QString& type) {
        EXPECT_EQ(type, message);
        return QStringLiteral("Message received");
    });
    ASSERT_EQ(news.size(), 1);
    EXPECT_TRUE(news.constFirst().endsWith(QStringLiteral(": Message received")));
}

TEST_F(RuleBackupTest, LeavesAnEmptyRulesElementAsItIs)
{
    write(rule(message), oneRule);
    start();
    write(rule(message), noRule);
    EXPECT_TRUE(start()->news().isEmpty());
    EXPECT_EQ(read(rule(message)), noRule);
    EXPECT_EQ(read(copy(message)), noRule);
}

TEST_F(RuleBackupTest, PutsBackTheNewestContentThatWasKept)
{
    write(rule(message), oneRule);
    const auto backup = start();
    write(rule(message), otherRule);
    EXPECT_TRUE(backup->keep(message));
    write(rule(message), {});
    start();
    EXPECT_EQ(read(rule(message)), otherRule);
}

TEST_F(RuleBackupTest, KeepsTheOlderCopyWhenTheFileIsBroken)
{
    write(rule(message), oneRule);
    const auto backup = start();
    write(rule(message), "<rules><m>");
    EXPECT_FALSE(backup->keep(message));
    EXPECT_EQ(read(copy(message)), oneRule);
}

TEST_F(RuleBackupTest, PrefersAGoodFileToItsCopy)
{
    write(rule(message), oneRule);
    start();
    write(rule(message), otherRule);
    EXPECT_TRUE(start()->news().isEmpty());
    EXPECT_EQ(read(rule(message)), otherRule);
    EXPECT_EQ(read(copy(message)), otherRule);
}

TEST_F(RuleBackupTest, GivesATypeItsDefaultsWhenItsFileIsBrokenWithoutACopyAndLosesNoByte)
{
    write(rule(message), "<rules><m>");
    const auto backup = start();
    EXPECT_FALSE(QFileInfo::exists(rule(message)));
    EXPECT_EQ(backup->reset(), QStringList{message});
    ASSERT_EQ(aside(), QStringList{QStringLiteral("1-message_received")});
    EXPECT_EQ(read(backup->asideFolder() + aside().constFirst()), "<rules><m>");
    EXPECT_TRUE(backup->news().constFirst().contains(message));
}

TEST_F(RuleBackupTest, DoesNotRelyOnABrokenCopy)
{
    write(rule(message), oneRule);
    start();
    write(rule(message), {});
    write(copy(message), "<rules>");
    EXPECT_EQ(start()->reset(), QStringList{message});
    EXPECT_FALSE(QFileInfo::exists(rule(message)));
}

TEST_F(RuleBackupTest, SetsTheBytesAsideThatACopyReplaces)
{
    write(rule(message), oneRule);
    start();
    write(rule(message), "<rules><m>typed by hand</rules>");
    const auto backup = start();
    EXPECT_EQ(read(rule(message)), oneRule);
    ASSERT_EQ(aside().size(), 1);
    EXPECT_EQ(read(backup->asideFolder() + aside().constFirst()), "<rules><m>typed by hand</rules>");
}

TEST_F(RuleBackupTest, KeepsTheNewestOfWhatItSetAside)
{
    for (int i = 0; i < 70; ++i) {
        write(rule(message), "<rules>" + QByteArray::number(i));
        start();
    }
    EXPECT_EQ(aside().size(), 64);
    EXPECT_FALSE(aside().contains(QStringLiteral("6-message_received")));
    EXPECT_TRUE(aside().contains(QStringLiteral("70-message_received")));
}

TEST_F(RuleBackupTest, LetsAMissingFileMeanTheDefaults)
{
    write(rule(message), oneRule);
    start();
    QFile::remove(rule(message));
    EXPECT_TRUE(start()->news().isEmpty());
    EXPECT_FALSE(QFileInfo::exists(rule(message)));
    EXPECT_FALSE(QFileInfo::exists(copy(message)));
    ASSERT_EQ(aside().size(), 1);
    EXPECT_EQ(read(path(QStringLiteral("rules-backup/set-aside/")) + aside().constFirst()), oneRule);
}

TEST_F(RuleBackupTest, TakesAwayDefaultsThatWereCutOffHalfWay)
{
    write(rule(message), oneRule);
    startAndDie();
    const QString half = QStringLiteral("half");
    write(rule(half), oneRule);
    start();
    EXPECT_FALSE(QFileInfo::exists(rule(half)));
    EXPECT_EQ(read(rule(message)), oneRule);

    // After a start that got through, a new file is somebody's.
    write(rule(half), oneRule);
    start();
    EXPECT_EQ(read(rule(half)), oneRule);
}

TEST_F(RuleBackupTest, TakesBackAChangeThatWasCutOffHalfWay)
{
    write(rule(message), oneRule);
    const auto backup = start();
    ASSERT_TRUE(backup->beginChange(message));
    write(rule(message), noRule);
    EXPECT_EQ(start()->restored(), QStringList{message});
    EXPECT_EQ(read(rule(message)), oneRule);
    // Only once.
    write(rule(message), noRule);
    start();
    EXPECT_EQ(read(rule(message)), noRule);
}

TEST_F(RuleBackupTest, LeavesAChangeThatWasKeptAndCutOffRightAfter)
{
    write(rule(message), oneRule);
    const auto backup = start();
    ASSERT_TRUE(backup->beginChange(message));
    write(rule(message), otherRule);
    ASSERT_TRUE(backup->keep(message));
    EXPECT_TRUE(start()->news().isEmpty());
    EXPECT_EQ(read(rule(message)), otherRule);
}

TEST_F(RuleBackupTest, ProtectsTypesWithOddNames)
{
    const QStringList odd{QStringLiteral(".hidden"),      QStringLiteral("with blank"), QStringLiteral("line\nbreak"),
                          QStringLiteral("größe-\u2603"), QStringLiteral("5-copies"),   QString(255, u'x')};
    for (const QString& type : odd)
        write(rule(type), oneRule);
    start();
    for (const QString& type : odd)
        write(rule(type), "<rules>");
    EXPECT_EQ(start()->restored().size(), odd.size());
    for (const QString& type : odd)
        EXPECT_EQ(read(rule(type)), oneRule) << type.toStdString();
}

TEST_F(RuleBackupTest, TouchesNothingOutsideOfItsFolders)
{
    write(path(QStringLiteral("settings.ini")), {});
    const auto backup = start();
    for (const QString& type : {QStringLiteral("../settings.ini"), QStringLiteral(".."), QString()}) {
        EXPECT_TRUE(backup->keep(type));
        EXPECT_FALSE(backup->putBack(type, oneRule));
    }
    EXPECT_EQ(read(path(QStringLiteral("settings.ini"))), QByteArray(""));
}

TEST_F(RuleBackupTest, LeavesAloneWhatIsNoOrdinaryFile)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(rule(QStringLiteral("pipe"))).constData(), 0600), 0);
    QDir().mkdir(rule(QStringLiteral("folder")));
    write(rule(QStringLiteral("huge")), QByteArray(5 * 1024 * 1024, 'x'));
    const auto backup = start();
    EXPECT_TRUE(backup->news().isEmpty());
    EXPECT_TRUE(backup->keepAll());
    EXPECT_EQ(QFileInfo(rule(QStringLiteral("huge"))).size(), 5 * 1024 * 1024);
    EXPECT_TRUE(QDir(path(QStringLiteral("rules-backup/copies"))).isEmpty());
}

TEST_F(RuleBackupTest, MendsTheFileBehindALinkAndLeavesTheLink)
{
    const QString elsewhere = path(QStringLiteral("elsewhere"));
    write(elsewhere, oneRule);
    ASSERT_TRUE(QFile::link(elsewhere, rule(message)));
    start();
    write(elsewhere, {});
    EXPECT_EQ(start()->restored(), QStringList{message});
    EXPECT_EQ(read(elsewhere), oneRule);
    EXPECT_TRUE(QFileInfo(rule(message)).isSymLink());
    // Without the file behind it, a link means that nothing is mounted there, perhaps.
    QFile::remove(elsewhere);
    start();
    EXPECT_EQ(read(copy(message)), oneRule);
}

TEST_F(RuleBackupTest, NeitherFollowsNorWritesThroughACopyThatIsALink)
{
    const QString elsewhere = path(QStringLiteral("elsewhere"));
    write(rule(message), oneRule);
    start();
    write(elsewhere, otherRule);
    QFile::remove(copy(message));
    ASSERT_TRUE(QFile::link(elsewhere, copy(message)));
    start();
    EXPECT_EQ(read(elsewhere), otherRule);
    EXPECT_FALSE(QFileInfo(copy(message)).isSymLink());
    EXPECT_EQ(read(copy(message)), oneRule);
}

TEST_F(RuleBackupTest, KeepsWhoMayReadARuleFile)
{
    write(rule(message), oneRule);
    QFile::setPermissions(rule(message), QFile::ReadOwner | QFile::WriteOwner);
    start();
    write(rule(message), {});
    start();
    const auto forOthers = QFile::ReadGroup | QFile::ReadOther;
    EXPECT_FALSE(QFile::permissions(rule(message)) & forOthers);
    EXPECT_FALSE(QFile::permissions(copy(message)) & forOthers);
}

TEST_F(RuleBackupTest, LeavesNoScrapsOfACopyThatWasCutOff)
{
    start();
    const QString scrap = path(QStringLiteral("rules-backup/new/scrap"));
    write(scrap, "<rul");
    start();
    EXPECT_FALSE(QFileInfo::exists(scrap));
}

} // namespace
