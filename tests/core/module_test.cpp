// SPDX-License-Identifier: Apache-2.0
#include "module_test.h"

#include "host/tray_icon.h"
#include "listening_translator.h"

using namespace Qt::StringLiterals;

namespace {

const QString event = u"event"_s;
const QString other = u"other"_s;

using Module = ModuleTest;

} // namespace

TEST_F(Module, IsMadeOnceAndAfreshAfterItsEnd)
{
    ZepaNotificationModule* first = &module();
    EXPECT_EQ(ZepaNotificationModule::getInstance(), first);
    registerType(event);
    closeModule();
    EXPECT_TRUE(module().getNotifications().isEmpty());
}

TEST_F(Module, ShowsTheMainIconWithTheRosterThemesPicture)
{
    QTemporaryDir theme;
    QDir(theme.path()).mkdir(u"icons"_s);
    QPixmap picture(5, 7);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(theme.filePath(u"icons/unavail.png"_s)));
    host.rosterThemeDir = theme.path() + QLatin1Char('/');

    const ZepaTrayIcon* icon = module().getTrayIcon();
    const TrayIconRecord& record = host.icons[icon];
    EXPECT_EQ(record.calls, QStringList({u"made"_s, u"icon"_s, u"visible"_s}));
    EXPECT_EQ(record.icon.availableSizes().value(0), QSize(5, 7));
    EXPECT_EQ(icon->parent(), nullptr);
}

TEST_F(Module, InstallsTheFourBuiltInMethods)
{
    QStringList ids = module().getMethods().keys();
    ids.sort();
    EXPECT_EQ(ids, QStringList({u"zepa_chat_window_notification_method"_s, u"zepa_dock_bounce_notification_method"_s,
                                u"zepa_hint_notification"_s, u"zepa_sound_notification_method"_s}));
}

TEST_F(Module, KeepsTheFirstOfTwoTypesWithOneIdentifier)
{
    ProbeMethod probe;
    probe.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&probe);
    module().registerNotification(event, u"first"_s, QString(), QString());
    probe.registered.clear();
    module().registerNotification(event, u"second"_s, QString(), QString());
    EXPECT_EQ(type(event)->getName(), u"first"_s);
    EXPECT_TRUE(probe.registered.isEmpty());
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
}

TEST_F(Module, TellsAMethodOfTheTypesBeforeAndAfterItsInstallation)
{
    registerType(event);
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    registerType(other);
    EXPECT_EQ(probe.lists, QList<QStringList>({{event}}));
    EXPECT_EQ(probe.registered, QStringList({other}));
}

TEST_F(Module, IgnoresASecondMethodWithAnInstalledIdentifier)
{
    registerType(event);
    ProbeMethod first;
    ProbeMethod second;
    second.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&first);
    module().installNotificationMethod(&second);
    EXPECT_EQ(module().getMethods().value(first.getId()), &first);
    EXPECT_TRUE(second.lists.isEmpty());
    EXPECT_TRUE(module().getRules(type(event)).isEmpty());
}

TEST_F(Module, GivesNoRuleToAMethodWhoseDefaultWasNeverSet)
{
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    registerType(event);
    EXPECT_EQ(module().getNotificationRule(event, probe.getId()), nullptr);
    EXPECT_TRUE(host.ruleFiles().isEmpty());
}

TEST_F(Module, GivesARuleWithTheMethodsOwnFieldsWhenItsDefaultIsAnEmptyList)
{
    ProbeMethod probe;
    probe.fields = {ProbeMethod::box(u"box"_s, true)};
    probe.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&probe);
    registerType(event);
    ASSERT_NE(module().getNotificationRule(event, probe.getId()), nullptr);
    EXPECT_EQ(textOf(module().getNotificationRule(event, probe.getId())->getConfig(), u"box"_s), u"true"_s);
}

TEST_F(Module, GivesADefaultRuleToEveryMethodOfAFirstRegistration)
{
    ProbeMethod first(u"first"_s);
    ProbeMethod second(u"second"_s);
    for (ProbeMethod* probe : {&first, &second}) {
        probe->setDefaultNotificationConfig(event, {});
        module().installNotificationMethod(probe);
    }
    registerType(event);
    EXPECT_NE(module().getNotificationRule(event, u"first"_s), nullptr);
    EXPECT_NE(module().getNotificationRule(event, u"second"_s), nullptr);
}

TEST_F(Module, GivesDefaultRulesForKnownTypesToAMethodThatIsInstalledLater)
{
    registerType(event);
    registerType(other);
    ProbeMethod probe;
    probe.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&probe);
    EXPECT_NE(module().getNotificationRule(event, probe.getId()), nullptr);
    EXPECT_EQ(module().getNotificationRule(other, probe.getId()), nullptr);
}

TEST_F(Module, CreatesARuleForAOneFieldDefaultOfAnotherType)
{
    ProbeMethod probe;
    probe.fields = {ProbeMethod::box(u"box"_s)};
    probe.setDefaultNotificationConfig(event, {ProbeMethod::box(u"box"_s, true)});
    module().installNotificationMethod(&probe);
    registerType(event);
    ASSERT_NE(module().getNotificationRule(event, probe.getId()), nullptr);
    EXPECT_EQ(textOf(module().getNotificationRule(event, probe.getId())->getConfig(), u"box"_s), u"true"_s);
}

TEST_F(Module, CreatesARuleForALongerDefaultThatBeginsWithAFieldWithoutAType)
{
    ProbeMethod probe;
    probe.setDefaultNotificationConfig(event, {ZepaField(), ZepaField()});
    probe.setDefaultNotificationConfig(other, {ZepaField()});
    registerType(event);
    registerType(other);
    module().installNotificationMethod(&probe);
    EXPECT_NE(module().getNotificationRule(event, probe.getId()), nullptr);
    EXPECT_EQ(module().getNotificationRule(other, probe.getId()), nullptr);
}

TEST_F(Module, StillPostsThroughAMethodThatWasUninstalledButFindsItNoMore)
{
    ProbeMethod probe;
    probe.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&probe);
    registerType(event);
    const QByteArray stored = host.readRuleFile(event);
    module().uninstallNotificationMethod(&probe);

    QList<ZepaField> config;
    EXPECT_EQ(module().getNotificationRule(event, probe.getId()), nullptr);
    EXPECT_EQ(module().addNotificationRule(event, probe.getId(), config), nullptr);
    EXPECT_EQ(module().updateNotificationRule(event, probe.getId(), config), nullptr);
    module().removeNotificationRule(event, probe.getId());
    EXPECT_EQ(host.readRuleFile(event), stored);
    post(event, u"title"_s);
    EXPECT_EQ(probe.calls.size(), 1);
}

TEST_F(Module, FindsNoRuleForUnknownIdentifiers)
{
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    registerType(event);
    EXPECT_EQ(module().getNotificationRule(u"unknown"_s, probe.getId()), nullptr);
    EXPECT_EQ(module().getNotificationRule(event, u"unknown"_s), nullptr);
    EXPECT_EQ(module().getNotificationRule(event, probe.getId()), nullptr);
}

TEST_F(Module, FindsNoRuleOfAnotherMethod)
{
    ProbeMethod probe;
    ProbeMethod without(u"without"_s);
    module().installNotificationMethod(&probe);
    module().installNotificationMethod(&without);
    registerType(event);
    addRule(event, probe);
    EXPECT_EQ(module().getNotificationRule(event, without.getId()), nullptr);
}

TEST_F(Module, AddsNoRuleForUnknownIdentifiersAndWritesNothing)
{
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    registerType(event);
    QList<ZepaField> config;
    EXPECT_EQ(module().addNotificationRule(u"unknown"_s, probe.getId(), config), nullptr);
    EXPECT_EQ(module().addNotificationRule(event, u"unknown"_s, config), nullptr);
    EXPECT_EQ(module().updateNotificationRule(u"unknown"_s, probe.getId(), config), nullptr);
    EXPECT_TRUE(host.ruleFiles().isEmpty());
}

TEST_F(Module, KeepsBothOfTwoRulesForOnePairFindsTheNewerAndFiresBoth)
{
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    registerType(event);
    QList<ZepaField> config;
    ZepaNotificationRule* older = module().addNotificationRule(event, probe.getId(), config);
    ZepaNotificationRule* newer = module().addNotificationRule(event, probe.getId(), config);
    EXPECT_NE(older, newer);
    EXPECT_EQ(module().getNotificationRule(event, probe.getId()), newer);
    EXPECT_EQ(module().getRules(type(event)), QList<ZepaNotificationRule*>({newer, older}));
    post(event, u"title"_s);
    EXPECT_EQ(probe.calls.size(), 2);
}

TEST_F(Module, AddsARuleForAMethodThatIsNotInstalledWhenGivenTheObjects)
{
    ProbeMethod probe;
    registerType(event);
    EXPECT_NE(addRule(event, probe), nullptr);
    post(event, u"title"_s);
    EXPECT_EQ(probe.calls.size(), 1);
}

TEST_F(Module, UpdateAddsARuleWhenThePairHasNoneAndWritesOnlyThatTypesFile)
{
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    registerType(event);
    registerType(other);
    addRule(other, probe);
    host.writeRuleFile(other, "untouched");
    QList<ZepaField> config;
    EXPECT_NE(module().updateNotificationRule(event, probe.getId(), config), nullptr);
    EXPECT_EQ(host.readRuleFile(other), QByteArray("untouched"));
    EXPECT_FALSE(host.readRuleFile(event).isNull());
}

TEST_F(Module, UpdateOfAnExistingRuleRewritesEveryTypesFile)
{
    ProbeMethod probe;
    probe.fields = {ProbeMethod::text(u"one"_s, u"a"_s), ProbeMethod::text(u"two"_s, u"b"_s)};
    module().installNotificationMethod(&probe);
    registerType(event);
    registerType(other);
    ZepaNotificationRule* rule = addRule(event, probe);
    addRule(other, probe);
    const QByteArray before = host.readRuleFile(other);
    host.writeRuleFile(other, "to be rewritten");
    QList<ZepaField> config{ProbeMethod::text(u"two"_s, u"changed"_s)};
    EXPECT_EQ(module().updateNotificationRule(event, probe.getId(), config), rule);
    EXPECT_EQ(textOf(rule->getConfig(), u"one"_s), u"a"_s);
    EXPECT_EQ(textOf(rule->getConfig(), u"two"_s), u"changed"_s);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
    EXPECT_EQ(host.readRuleFile(other).size(), before.size());
    EXPECT_TRUE(host.readRuleFile(event).contains("changed"));
}

TEST_F(Module, RemovesARuleAndRewritesItsFile)
{
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    registerType(event);
    ZepaNotificationRule* older = addRule(event, probe);
    addRule(event, probe);
    module().removeNotificationRule(event, probe.getId());
    EXPECT_EQ(module().getRules(type(event)), QList<ZepaNotificationRule*>({older}));
    EXPECT_EQ(host.readRuleFile(event).count("<probe>"), 1);
}

TEST_F(Module, LeavesARuleAloneThatIsNotInTheRegistryAndWritesNothing)
{
    ProbeMethod probe;
    registerType(event);
    ZepaNotificationRule stranger(type(event), &probe, {});
    module().removeNotificationRule(&stranger);
    EXPECT_EQ(stranger.getMethod(), &probe);
    EXPECT_TRUE(host.ruleFiles().isEmpty());
}

TEST_F(Module, RemovesNothingForNullOrUnknownIdentifiers)
{
    ProbeMethod probe;
    module().installNotificationMethod(&probe);
    registerType(event);
    addRule(event, probe);
    module().removeNotificationRule(nullptr);
    module().removeNotificationRule(u"unknown"_s, probe.getId());
    module().removeNotificationRule(event, u"unknown"_s);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
}

TEST_F(Module, WritesNoFileAndTellsNoOutsideMethodWhenItEnds)
{
    ProbeMethod probe;
    probe.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&probe);
    registerType(event);
    host.writeRuleFile(event, "untouched");
    const qsizetype told = probe.lists.size() + probe.registered.size();
    closeModule();
    EXPECT_EQ(host.readRuleFile(event), QByteArray("untouched"));
    EXPECT_EQ(probe.lists.size() + probe.registered.size(), told);
}

TEST_F(Module, SurvivesAMethodThatInstallsAnotherWhileTypesAreRegistered)
{
    class Installer : public ProbeMethod
    {
    public:
        void registerNotification(ZepaNotification* /*notification*/) override
        {
            ZepaNotificationModule::getInstance()->installNotificationMethod(&inner);
        }
        ProbeMethod inner{u"inner"_s};
    };
    Installer installer;
    module().installNotificationMethod(&installer);
    registerType(event);
    EXPECT_EQ(module().getMethods().value(u"inner"_s), &installer.inner);
    EXPECT_EQ(installer.inner.lists, QList<QStringList>({{event}}));
    EXPECT_TRUE(installer.inner.registered.isEmpty());
}

TEST_F(Module, MakesTheMainIconFirstAndShowsItBeforeTheMethodsAreInstalled)
{
    // The first registration is that of the pop-up method's constructor, the second that of its installation.
    QList<QStringList> seen;
    RecordingGrowl::whileRegistering = [&] { seen.append(host.icons[host.iconsMade.value(0)].calls); };
    module();
    EXPECT_EQ(seen, QList<QStringList>({{u"made"_s}, {u"made"_s, u"icon"_s, u"visible"_s}}));
}

TEST_F(Module, MakesTheMethodForPopupsBeforeTheOneForSounds)
{
    // Each translates the label of its setting while it is made.
    ListeningTranslator translator;
    QCoreApplication::installTranslator(&translator);
    module();
    QCoreApplication::removeTranslator(&translator);
    ASSERT_FALSE(translator.heard.isEmpty());
    EXPECT_TRUE(translator.heard.constFirst().startsWith(u"sticky"_s));
    EXPECT_EQ(translator.heard.constLast(), u"nc"_s);
}

TEST_F(Module, IsNoLongerTheInstanceWhenItsIconsGoAndDeletesTheMainOneFirst)
{
    const ZepaNotificationModule* old = &module();
    const ZepaTrayIcon* main = module().getTrayIcon();
    const ZepaTrayIcon* mail = module().setTrayIcon(u"mail"_s, QIcon());
    QList<const ZepaTrayIcon*> deleted;
    ZepaNotificationModule* fresh = nullptr;
    host.whenIconIsDeleted = [&](const ZepaTrayIcon* icon) {
        deleted.append(icon);
        fresh = ZepaNotificationModule::getInstance();
    };
    closeModule();
    host.whenIconIsDeleted = nullptr;
    EXPECT_EQ(deleted, QList<const ZepaTrayIcon*>({main, mail}));
    EXPECT_NE(fresh, old);
    delete fresh;
}

TEST_F(Module, TellsAMethodOfATypeBeforeItGivesItTheDefaultRule)
{
    class Looking : public ProbeMethod
    {
    public:
        void registerNotification(ZepaNotification* notification) override
        {
            rulesThen = ZepaNotificationModule::getInstance()->getRules(notification).size();
        }
        qsizetype rulesThen = -1;
    };
    Looking looking;
    looking.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&looking);
    registerType(event);
    EXPECT_EQ(looking.rulesThen, 0);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
}

TEST_F(Module, HasReadStoredRulesWhenItTellsAMethodOfTheType)
{
    class Looking : public ProbeMethod
    {
    public:
        void registerNotification(ZepaNotification* notification) override
        {
            rulesThen = ZepaNotificationModule::getInstance()->getRules(notification).size();
        }
        qsizetype rulesThen = -1;
    };
    Looking looking;
    module().installNotificationMethod(&looking);
    host.writeRuleFile(event, "<rules><probe><config/></probe></rules>");
    registerType(event);
    EXPECT_EQ(looking.rulesThen, 1);
}

TEST_F(Module, KnowsAMethodBeforeItTellsItOfTheTypesAndGivesItRulesAfterwards)
{
    class Looking : public ProbeMethod
    {
    public:
        void registerNotifications(const QList<ZepaNotification*>& notifications) override
        {
            auto* module = ZepaNotificationModule::getInstance();
            isKnownThen = module->getMethods().value(getId()) == this;
            rulesThen = module->getRules(notifications.value(0)).size();
        }
        bool isKnownThen = false;
        qsizetype rulesThen = -1;
    };
    registerType(event);
    Looking looking;
    looking.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&looking);
    EXPECT_TRUE(looking.isKnownThen);
    EXPECT_EQ(looking.rulesThen, 0);
    EXPECT_EQ(module().getRules(type(event)).size(), 1);
}

TEST_F(Module, WritesOnlyTheTypesFileWhenARuleIsAddedOrRemoved)
{
    ProbeMethod probe;
    registerType(event);
    registerType(other);
    addRule(other, probe);
    host.writeRuleFile(other, "untouched");
    ZepaNotificationRule* rule = addRule(event, probe);
    module().removeNotificationRule(rule);
    EXPECT_FALSE(host.readRuleFile(event).isNull());
    EXPECT_EQ(host.readRuleFile(other), QByteArray("untouched"));
}

TEST_F(Module, DeletesItsIconsBeforeTheMethodsAndTheirWaitingActions)
{
    // One of the types for which pop-ups are on by default.
    const QString mail = u"email_notify"_s;
    registerType(mail);
    module().setTrayIcon(u"mail"_s, QIcon());
    QStringList order;
    {
        const std::shared_ptr<int> token(new int, [&order](const int* value) {
            delete value;
            order.append(u"action"_s);
        });
        post(mail, u"title"_s, ZepaPluginAction([token] {}));
    }
    ASSERT_EQ(RecordingGrowl::popups.size(), 1);
    host.whenIconIsDeleted = [&](const ZepaTrayIcon* /*icon*/) { order.append(u"icon"_s); };
    closeModule();
    EXPECT_EQ(order, QStringList({u"icon"_s, u"icon"_s, u"action"_s}));
}
