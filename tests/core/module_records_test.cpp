// SPDX-License-Identifier: Apache-2.0
#include "module_test.h"

#include "host/tray_icon.h"

#include <QDir>
#include <QPixmap>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString event = u"event"_s;

/// Opens one private member to this test, which cannot post four thousand million times.
template <auto member>
struct Opened
{
    friend unsigned int& sequenceOf(ZepaNotificationModule& module) { return module.*member; }
};
template struct Opened<&ZepaNotificationModule::sequence>;
unsigned int& sequenceOf(ZepaNotificationModule& module);

/// What the module makes of the records and methods that it is given.
using ModuleRecords = ModuleTest;

} // namespace

TEST_F(ModuleRecords, KeepAllFourTexts)
{
    module().registerNotification(event, u"name"_s, u"extra"_s, u"why"_s);
    EXPECT_EQ(type(event)->getId(), event);
    EXPECT_EQ(type(event)->getName(), u"name"_s);
    EXPECT_EQ(type(event)->getExtra(), u"extra"_s);
    EXPECT_EQ(type(event)->getDescription(), u"why"_s);
}

TEST_F(ModuleRecords, ArePairedWithAMethodByItsObjectAndNotByItsIdentifier)
{
    ProbeMethod installed;
    ProbeMethod twin;
    module().installNotificationMethod(&installed);
    registerType(event);
    const ZepaNotificationRule* own = addRule(event, installed);
    addRule(event, twin);
    EXPECT_EQ(module().getNotificationRule(event, installed.getId()), own);
    module().removeNotificationRule(event, installed.getId());
    EXPECT_EQ(module().getNotificationRule(event, installed.getId()), nullptr);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
}

TEST_F(ModuleRecords, LoseAMethodWhenAnotherObjectWithItsIdentifierIsUninstalled)
{
    ProbeMethod installed;
    ProbeMethod twin;
    module().installNotificationMethod(&installed);
    module().uninstallNotificationMethod(&twin);
    EXPECT_FALSE(module().getMethods().contains(installed.getId()));
    ProbeMethod stranger(u"stranger"_s);
    const qsizetype before = module().getMethods().size();
    module().uninstallNotificationMethod(&stranger);
    EXPECT_EQ(module().getMethods().size(), before);
}

TEST_F(ModuleRecords, OfTheCallersOwnGetRulesAndAFileToo)
{
    ProbeMethod probe;
    ZepaNotification foreign(u"foreign"_s, QString(), QString(), QString());
    QList<ZepaField> config;
    ZepaNotificationRule* rule = module().addNotificationRule(&foreign, &probe, config);
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(module().getRules(&foreign), QList<ZepaNotificationRule*>({rule}));
    EXPECT_TRUE(host.readRuleFile(u"foreign"_s).contains("<probe>"));
    EXPECT_TRUE(module().getNotifications().isEmpty());
    post(u"foreign"_s, u"title"_s);
    EXPECT_TRUE(probe.calls.isEmpty());
    module().removeNotificationRule(rule);
    EXPECT_TRUE(module().getRules(&foreign).isEmpty());
    EXPECT_FALSE(host.readRuleFile(u"foreign"_s).contains("<probe>"));
}

TEST_F(ModuleRecords, CountPostingsUpToTheLargestNumberAndBeginAgain)
{
    ProbeMethod probe;
    registerType(event);
    addRule(event, probe);
    sequenceOf(module()) = std::numeric_limits<unsigned int>::max();
    post(event, u"last"_s);
    post(event, u"first"_s);
    ASSERT_EQ(probe.calls.size(), 2);
    EXPECT_EQ(probe.calls[0].sequence, 4294967295U);
    EXPECT_EQ(probe.calls[1].sequence, 0U);
}

TEST_F(ModuleRecords, ShowThePictureWhosePathFollowsTheRosterFolderWithoutASeparatorOfItsOwn)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"rostericons"_s));
    QPixmap picture(5, 7);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(folder.filePath(u"rostericons/unavail.png"_s)));
    host.rosterThemeDir = folder.filePath(u"roster"_s);
    EXPECT_EQ(host.icons[module().getTrayIcon()].icon.availableSizes(), QList<QSize>({QSize(5, 7)}));
}

TEST_F(ModuleRecords, OfTheCatalogueAreFilledInWithoutASettingAnIconOrAFile)
{
    // Without a method that has defaults, nothing but init() itself could write.
    const QList<ZepaNotificationMethod*> builtIn = module().getMethods().values();
    for (ZepaNotificationMethod* method : builtIn)
        module().uninstallNotificationMethod(method);
    module().setTrayIcon(u"mail"_s, QIcon());
    const auto iconCalls = [this] {
        QStringList calls;
        for (const ZepaTrayIcon* icon : std::as_const(host.iconsMade))
            calls += host.icons[icon].calls;
        return calls;
    };
    const QStringList before = iconCalls();
    ZepaNotificationModule::init();
    EXPECT_EQ(module().getNotifications().size(), 18);
    EXPECT_TRUE(host.settingsRead.isEmpty());
    EXPECT_EQ(iconCalls(), before);
    EXPECT_TRUE(host.ruleFiles().isEmpty());
    EXPECT_TRUE(module().getMethods().isEmpty());
}
