// SPDX-License-Identifier: Apache-2.0
#include "irregular_file.h"
#include "module_test.h"

#include "host/tray_icon.h"

#include <QDir>
#include <QFileInfo>
#include <QPixmap>

#include <dlfcn.h>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Called once after the library has looked at a file by its name, when set.
std::function<void()> whenLookedAt;

} // namespace

// The program's definition comes before those of its libraries.
extern "C" Q_DECL_EXPORT int stat(const char* path, struct stat* found) noexcept
{
    static const auto ask = reinterpret_cast<int (*)(const char*, struct stat*)>(dlsym(RTLD_NEXT, "stat"));
    const int result = ask(path, found);
    if (const auto work = std::exchange(whenLookedAt, nullptr))
        work();
    return result;
}

namespace {

const QString event = u"event"_s;
const QString other = u"other"_s;
const QByteArray oneRule = "<rules><probe><fields/></probe></rules>";

class IrregularRuleFiles : public ModuleTest
{
protected:
    IrregularRuleFiles()
    {
        probe.setDefaultNotificationConfig(event, {});
        module().installNotificationMethod(&probe);
    }
    ~IrregularRuleFiles() override { whenLookedAt = nullptr; }

    ProbeMethod probe;
};

class EachIrregularRuleFile : public IrregularRuleFiles, public testing::WithParamInterface<Irregular>
{
protected:
    void SetUp() override
    {
        if (!makeIrregular(GetParam(), host.ruleFile(event)))
            GTEST_SKIP() << "the path of the temporary folder is too long for a socket";
    }
};

} // namespace

TEST_P(EachIrregularRuleFile, GivesNoRulesAndNoDefaults)
{
    registerType(event);
    EXPECT_TRUE(module().getRules(type(event)).isEmpty());
}

TEST_P(EachIrregularRuleFile, IsPassedOverWhenRulesAreStoredAndTheOthersAreWritten)
{
    registerType(event);
    registerType(other);
    EXPECT_NE(addRule(event, probe), nullptr);
    addRule(other, probe);
    ASSERT_TRUE(QFile::remove(host.ruleFile(other)));
    module().storeNotificationRules(nullptr);
    EXPECT_FALSE(QFileInfo(host.ruleFile(event)).isFile());
    EXPECT_TRUE(host.readRuleFile(other).contains("probe"));
}

INSTANTIATE_TEST_SUITE_P(Kind, EachIrregularRuleFile,
                         testing::Values(Irregular::Pipe, Irregular::LinkToPipe, Irregular::Device, Irregular::Socket,
                                         Irregular::Folder),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_F(IrregularRuleFiles, AreNeitherReadFromNorWrittenToThoughSomebodyHoldsTheOtherEnd)
{
    const FilledPipe pipe(host.ruleFile(event), oneRule);
    registerType(event);
    EXPECT_TRUE(module().getRules(type(event)).isEmpty());
    addRule(event, probe);
    EXPECT_EQ(pipe.takeText(), oneRule);
}

TEST_F(IrregularRuleFiles, AreNotReadWhenTheyTakeTheFilesPlaceInBetween)
{
    host.writeRuleFile(event, oneRule);
    whenLookedAt = [this] {
        QFile::remove(host.ruleFile(event));
        makeIrregular(Irregular::Pipe, host.ruleFile(event));
    };
    registerType(event);
    EXPECT_EQ(whenLookedAt, nullptr);
    EXPECT_TRUE(module().getRules(type(event)).isEmpty());
}

TEST_F(IrregularRuleFiles, AreNotReadWhenTheyTakeTheFilesPlaceInBetweenAndSomebodyHoldsTheOtherEnd)
{
    host.writeRuleFile(event, "<rules/>");
    std::unique_ptr<FilledPipe> pipe;
    whenLookedAt = [&] {
        QFile::remove(host.ruleFile(event));
        pipe = std::make_unique<FilledPipe>(host.ruleFile(event), oneRule);
    };
    registerType(event);
    EXPECT_TRUE(module().getRules(type(event)).isEmpty());
    ASSERT_NE(pipe, nullptr);
    EXPECT_EQ(pipe->takeText(), oneRule);
}

TEST_F(IrregularRuleFiles, AreNotWrittenToWhenTheyTakeTheFilesPlaceInBetween)
{
    registerType(event);
    std::unique_ptr<FilledPipe> pipe;
    whenLookedAt = [&] {
        QFile::remove(host.ruleFile(event));
        pipe = std::make_unique<FilledPipe>(host.ruleFile(event), "waits");
    };
    module().storeNotificationRules(type(event));
    ASSERT_NE(pipe, nullptr);
    EXPECT_EQ(pipe->takeText(), "waits");
}

TEST_F(IrregularRuleFiles, WithoutAnEndOfTheirOwnAreNotReadWithoutEnd)
{
    // A regular file without a size, of which some 256 gigabytes can be read.
    if (!QFile::link(u"/proc/self/pagemap"_s, host.ruleFile(event)) || !QFileInfo(host.ruleFile(event)).isFile())
        GTEST_SKIP() << "the system has no /proc/self/pagemap";
    registerType(event);
    EXPECT_TRUE(module().getRules(type(event)).isEmpty());
}

TEST_F(IrregularRuleFiles, OfTwoGigabytesGiveNoRulesAndAreReplacedByTheNextStore)
{
    constexpr qint64 twoGigabytes = qint64{2} * 1024 * 1024 * 1024;
    host.writeRuleFile(event, oneRule);
    if (!QFile::resize(host.ruleFile(event), twoGigabytes))
        GTEST_SKIP() << "the file system has no room for a file of two gigabytes with a hole";
    registerType(event);
    EXPECT_TRUE(module().getRules(type(event)).isEmpty());
    EXPECT_EQ(QFileInfo(host.ruleFile(event)).size(), twoGigabytes);
    addRule(event, probe);
    EXPECT_TRUE(host.readRuleFile(event).endsWith("</rules>") || host.readRuleFile(event).endsWith("</rules>\n"));
}

TEST_F(IrregularRuleFiles, AreNotTheLinksThatLeadToARegularFile)
{
    const QString target = host.settings.filePath(u"elsewhere"_s);
    QFile file(target);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(oneRule) > 0);
    file.close();
    ASSERT_TRUE(QFile::link(target, host.ruleFile(event)));
    registerType(event);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
    for (ZepaNotificationRule* rule : module().getRules(type(event)))
        module().removeNotificationRule(rule);
    EXPECT_TRUE(QFileInfo(host.ruleFile(event)).isSymLink());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_FALSE(file.readAll().contains("probe"));
}

TEST_F(IrregularRuleFiles, AreNotThoseThatAreNotThereYet)
{
    ASSERT_TRUE(QFile::link(host.settings.filePath(u"later"_s), host.ruleFile(event)));
    registerType(event);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
    EXPECT_TRUE(QFileInfo(host.settings.filePath(u"later"_s)).isFile());
}

class IrregularMainIcon : public ModuleTest, public testing::WithParamInterface<Irregular>
{};

TEST_P(IrregularMainIcon, IsShownWithoutAPicture)
{
    QTemporaryDir theme;
    ASSERT_TRUE(QDir(theme.path()).mkdir(u"icons"_s));
    if (!makeIrregular(GetParam(), theme.filePath(u"icons/unavail.png"_s)))
        GTEST_SKIP() << "the path of the temporary folder is too long for a socket";
    host.rosterThemeDir = theme.path() + QLatin1Char('/');
    const TrayIconRecord& record = host.icons[module().getTrayIcon()];
    EXPECT_TRUE(record.icon.availableSizes().isEmpty());
    EXPECT_TRUE(record.visible);
}

INSTANTIATE_TEST_SUITE_P(Kind, IrregularMainIcon,
                         testing::Values(Irregular::Pipe, Irregular::LinkToPipe, Irregular::Device, Irregular::Socket,
                                         Irregular::Folder),
                         [](const auto& kind) { return nameOf(kind.param); });
