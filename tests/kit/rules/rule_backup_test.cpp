// SPDX-License-Identifier: Apache-2.0
#include "rule_folder.h"

#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

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
    // Someone else's document may stand there; the library reads no rules from it.
    EXPECT_TRUE(RuleBackup::isGood("<letter>Dear Ann</letter>"));
    EXPECT_FALSE(RuleBackup::isGood(oneRule + QByteArray(4, '\0')));
    EXPECT_FALSE(RuleBackup::isGood(QByteArray(100, '\0')));
}

TEST_F(RuleBackupTest, PutsBackWhatACrashLeftEmptyOrCutOff)
{
    const QString cutOff = u"cut_off"_s;
    types.append(cutOff);
    write(rule(message), oneRule);
    write(rule(cutOff), otherRule);
    start();
    write(rule(message), {});
    write(rule(cutOff), oneRule.first(20));

    const auto backup = start();
    EXPECT_EQ(read(rule(message)), oneRule);
    EXPECT_EQ(read(rule(cutOff)), otherRule);
    EXPECT_EQ(backup->restored(), (QStringList{message, cutOff}));
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
        return u"Message received"_s;
    });
    ASSERT_EQ(news.size(), 1);
    EXPECT_TRUE(news.constFirst().endsWith(u": Message received"_s));
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
    ASSERT_EQ(aside(), QStringList{u"1-message_received"_s});
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

TEST_F(RuleBackupTest, LeavesADamagedFileWhereItIsAndSaysSoWhenAsMuchIsSetAsideAsThereIsRoomFor)
{
    for (int i = 0; i < 64; ++i) {
        write(rule(message), "<rules>" + QByteArray::number(i));
        start();
    }
    ASSERT_EQ(aside().size(), 64);
    const QStringList before = aside();
    for (const bool hasCopy : {false, true}) {
        if (hasCopy)
            write(copy(message), oneRule);
        write(rule(message), "<rules>the last");
        const auto backup = start();
        EXPECT_EQ(aside(), before);
        EXPECT_EQ(read(rule(message)), "<rules>the last");
        EXPECT_EQ(backup->withoutRoomAside(), QStringList{message});
        ASSERT_EQ(backup->news().size(), 1);
        EXPECT_TRUE(backup->news().constFirst().contains(backup->asideFolder()));
        EXPECT_TRUE(backup->news().constFirst().contains(u"64"_s));
    }
    // What the library left half written says nothing that the copy does not.
    write(rule(message), oneRule.first(10));
    EXPECT_EQ(start()->restored(), QStringList{message});
    EXPECT_EQ(read(rule(message)), oneRule);
}

TEST_F(RuleBackupTest, TouchesOnlyFilesOfItsTypesAndThoseThatHaveACopy)
{
    QStringList letters;
    for (int i = 0; i < 300; ++i) {
        letters.append(u"letter%1"_s.arg(i));
        write(rule(letters.constLast()), "Dear Ann");
    }
    write(rule(message), "<rules>");
    start();
    for (const QString& letter : std::as_const(letters))
        ASSERT_EQ(read(rule(letter)), "Dear Ann") << letter.toStdString();
    EXPECT_EQ(aside(), QStringList{u"1-message_received"_s});
    EXPECT_TRUE(QDir(path(u"rules-backup/copies"_s)).isEmpty());

    // A type that an embedding client had once.
    write(rule(u"lunch"_s), {});
    write(copy(u"lunch"_s), oneRule);
    start();
    EXPECT_EQ(read(rule(u"lunch"_s)), oneRule);
}

TEST_F(RuleBackupTest, LeavesADocumentThatIsNoneOfRulesAsItIs)
{
    write(rule(message), "<letter>Dear Ann</letter>");
    EXPECT_TRUE(start()->news().isEmpty());
    EXPECT_EQ(read(rule(message)), "<letter>Dear Ann</letter>");
    EXPECT_TRUE(aside().isEmpty());
}

TEST_F(RuleBackupTest, NumbersWhatItSetsAsideAlsoWhenTheNumbersThereAreHuge)
{
    start();
    const QString folder = path(u"rules-backup/set-aside/"_s);
    for (const char* name : {"2147483647-x", "999999999-x", "18446744073709551615-x", "-5-x", "letter"})
        write(folder + QString::fromLatin1(name), "x");
    for (int i = 0; i < 2; ++i) {
        write(rule(message), "<rules>" + QByteArray::number(i));
        start();
    }
    EXPECT_EQ(read(folder + u"1-message_received"_s), "<rules>0");
    EXPECT_EQ(read(folder + u"2-message_received"_s), "<rules>1");
    EXPECT_EQ(aside().size(), 7);
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
    EXPECT_EQ(read(path(u"rules-backup/set-aside/"_s) + aside().constFirst()), oneRule);
}

TEST_F(RuleBackupTest, TakesAwayDefaultsThatWereCutOffHalfWay)
{
    const QString half = u"half"_s;
    types.append(half);
    write(rule(message), oneRule);
    startAndDie({half});
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
    const QStringList odd{u".hidden"_s,      u"with blank"_s, u"line\nbreak"_s,
                          u"größe-\u2603"_s, u"5-copies"_s,   QString(255, u'x')};
    types = odd;
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
    write(path(u"settings.ini"_s), {});
    const auto backup = start();
    for (const QString& type : {u"../settings.ini"_s, u".."_s, QString()}) {
        EXPECT_TRUE(backup->keep(type));
        EXPECT_FALSE(backup->putBack(type, oneRule));
    }
    EXPECT_EQ(read(path(u"settings.ini"_s)), QByteArray(""));
}

TEST_F(RuleBackupTest, LeavesAloneWhatIsNoOrdinaryFileAndSaysThatItCannotBeUsed)
{
    types = QStringList{u"pipe"_s, u"folder"_s, u"huge"_s};
    ASSERT_EQ(mkfifo(QFile::encodeName(rule(u"pipe"_s)).constData(), 0600), 0);
    QDir().mkdir(rule(u"folder"_s));
    write(rule(u"huge"_s), QByteArray(5 * 1024 * 1024, 'x'));
    const auto backup = start();
    EXPECT_EQ(backup->unreadable(), types.first(2));
    EXPECT_EQ(backup->tooLarge(), types.last(1));
    ASSERT_EQ(backup->news().size(), 2);
    EXPECT_TRUE(backup->news()[0].endsWith(u": pipe, folder"_s));
    EXPECT_TRUE(backup->news()[1].endsWith(u"4 MiB: huge"_s));
    EXPECT_TRUE(backup->keepAll());
    EXPECT_EQ(QFileInfo(rule(u"huge"_s)).size(), 5 * 1024 * 1024);
    EXPECT_TRUE(QDir(path(u"rules-backup/copies"_s)).isEmpty());
}

TEST_F(RuleBackupTest, MendsTheFileBehindALinkAndLeavesTheLink)
{
    const QString elsewhere = path(u"elsewhere"_s);
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
    const QString elsewhere = path(u"elsewhere"_s);
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

TEST_F(RuleBackupTest, MarksAStartAndDoesNotWriteThroughALink)
{
    start();
    const QString letter = path(u"letter"_s);
    write(letter, "Dear Ann");
    const QString mark = path(u"rules-backup/starting"_s);
    ASSERT_TRUE(QFile::link(letter, mark));
    startAndDie({message});
    EXPECT_EQ(read(letter), "Dear Ann");
    EXPECT_TRUE(QFileInfo(mark).isFile());
    EXPECT_FALSE(QFileInfo(mark).isSymLink());
    start();
    EXPECT_FALSE(QFileInfo::exists(mark));
    EXPECT_EQ(read(letter), "Dear Ann");
}

TEST_F(RuleBackupTest, WritesNothingWhenNothingIsWrong)
{
    write(rule(message), oneRule);
    const auto backup = make();
    backup->restore({message});
    backup->started();
    EXPECT_EQ(backup->loaded(message), oneRule);
    EXPECT_FALSE(QFileInfo::exists(path(u"rules-backup"_s)));
}

TEST_F(RuleBackupTest, TakesRightsOfOthersAwayOnce)
{
    types.append(u"link"_s);
    const QString elsewhere = path(u"elsewhere"_s);
    write(elsewhere, oneRule);
    ASSERT_TRUE(QFile::link(elsewhere, rule(u"link"_s)));
    write(rule(message), oneRule);
    write(rule(u"letter"_s), "Dear Ann");
    const auto backup = start();
    const auto open = [this](const QString& name) { ::chmod(QFile::encodeName(path(name)).constData(), 0755); };
    const auto mode = [this](const QString& name) {
        struct stat status = {};
        ::stat(QFile::encodeName(path(name)).constData(), &status);
        return status.st_mode & 0777U;
    };
    const QStringList ours{u"notifications"_s, u"notifications/message_received"_s, u"rules-backup"_s,
                           u"rules-backup/copies"_s, u"rules-backup/copies/message_received"_s};
    const QStringList others{u"."_s, u"elsewhere"_s, u"notifications/letter"_s};
    for (const QString& name : ours + others)
        open(name);
    backup->makePrivate();
    for (const QString& name : ours)
        EXPECT_EQ(mode(name), 0700U) << name.toStdString();
    for (const QString& name : others)
        EXPECT_EQ(mode(name), 0755U) << name.toStdString();

    // Whoever gives the rights again means it.
    for (const QString& name : ours)
        open(name);
    make()->makePrivate();
    for (const QString& name : ours)
        EXPECT_EQ(mode(name), 0755U) << name.toStdString();

    QFile::remove(path(u"rules-backup/private"_s));
    const auto owner = make();
    owner->ownSettingsFolder();
    owner->makePrivate();
    EXPECT_EQ(mode(u"."_s), 0700U);
}

TEST_F(RuleBackupTest, LeavesNoScrapsOfACopyThatWasCutOff)
{
    write(rule(message), oneRule);
    start();
    const QString scrap = path(u"rules-backup/new/scrap"_s);
    write(scrap, "<rul");
    write(rule(message), {});
    start();
    EXPECT_FALSE(QFileInfo::exists(scrap));
}

} // namespace
