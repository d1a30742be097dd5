// SPDX-License-Identifier: Apache-2.0
#include "module_test.h"

#include "host/xml_node.h"

#include <QFile>

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

const QString event = u"message_received"_s;
const QString other = u"other"_s;
const QString setting = u"setting"_s;

class RuleFiles : public ModuleTest
{
protected:
    RuleFiles() { probe.fields = {ProbeMethod::text(setting, u"initial"_s), ProbeMethod::text(u"second"_s, u"s"_s)}; }

    /// A rule element as the module writes it.
    static QByteArray element(const QString& method, const QList<ZepaField>& config)
    {
        ZepaXmlNode node(method, QString(), nullptr);
        node.appendChild(ZepaField::toXml(config));
        const QByteArray document = node.toByteArray(-1);
        return document.mid(document.indexOf("?>") + 2).trimmed();
    }
    static QByteArray document(const QByteArray& elements) { return "<rules>" + elements + "</rules>"; }
    QByteArray probeElement(const QString& value = u"stored"_s)
    {
        return element(u"probe"_s, {ProbeMethod::text(setting, value)});
    }
    qsizetype ruleCount(const QString& id = event) { return module().getRules(type(id)).size(); }

    /// How often a watched file was opened, written and closed since the last call.
    static int endedWrites(int watch)
    {
        alignas(inotify_event) std::array<char, 4096> bytes = {};
        const ssize_t count = read(watch, bytes.data(), bytes.size());
        int ended = 0;
        for (ssize_t at = 0; at < count;) {
            inotify_event news = {};
            std::memcpy(&news, bytes.data() + at, sizeof news);
            ended += (news.mask & IN_CLOSE_WRITE) != 0 ? 1 : 0;
            at += static_cast<ssize_t>(sizeof news + news.len);
        }
        return ended;
    }

    ProbeMethod probe;
    ProbeMethod second{u"second"_s};
};

} // namespace

TEST_F(RuleFiles, StandInTheSettingsFolderUnderTheTypesIdentifierWithoutExtension)
{
    registerType(event);
    EXPECT_TRUE(QFile::exists(host.settings.path() + u"/notifications/message_received"_s));
}

TEST_F(RuleFiles, GiveOneRuleForOneElementOfAnInstalledMethod)
{
    module().installNotificationMethod(&probe);
    host.writeRuleFile(event, document(probeElement()));
    registerType(event);
    ASSERT_EQ(ruleCount(), 1);
    const ZepaNotificationRule* rule = module().getNotificationRule(event, u"probe"_s);
    ASSERT_NE(rule, nullptr);
    EXPECT_EQ(textOf(rule->getConfig(), setting), u"stored"_s);
    EXPECT_EQ(textOf(rule->getConfig(), u"second"_s), u"s"_s);
}

TEST_F(RuleFiles, GiveNoRuleForAMethodThatIsNotInstalledAndLoseItsElementAtTheNextStore)
{
    host.writeRuleFile(event, document(element(u"stranger"_s, {}) + probeElement()));
    module().installNotificationMethod(&probe);
    registerType(event);
    EXPECT_EQ(ruleCount(), 1);
    EXPECT_TRUE(host.readRuleFile(event).contains("stranger"));
    module().storeNotificationRules(type(event));
    EXPECT_FALSE(host.readRuleFile(event).contains("stranger"));
    EXPECT_TRUE(host.readRuleFile(event).contains("probe"));
}

TEST_F(RuleFiles, GiveNoRuleForAnElementWithoutAChild)
{
    module().installNotificationMethod(&probe);
    host.writeRuleFile(event, document("<probe/><probe>text only</probe>"));
    registerType(event);
    EXPECT_EQ(ruleCount(), 0);
}

TEST_F(RuleFiles, AreReadByTheFirstChildOfAnElementAlone)
{
    module().installNotificationMethod(&probe);
    const QByteArray first = probeElement(u"first"_s);
    const QByteArray later = probeElement(u"later"_s);
    const QByteArray open = "<probe>";
    const QByteArray close = "</probe>";
    host.writeRuleFile(event, document(first.chopped(close.size()) + later.mid(open.size())));
    registerType(event);
    ASSERT_EQ(ruleCount(), 1);
    EXPECT_EQ(textOf(module().getRules(type(event)).first()->getConfig(), setting), u"first"_s);
}

class BrokenRuleFiles : public RuleFiles, public testing::WithParamInterface<const char*>
{};

TEST_P(BrokenRuleFiles, GiveNoRulesAndNoDefaultsAndStayAsTheyAre)
{
    probe.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&probe);
    host.writeRuleFile(event, GetParam());
    registerType(event);
    EXPECT_EQ(ruleCount(), 0);
    EXPECT_EQ(host.readRuleFile(event), QByteArray(GetParam()));
}

constexpr const char* brokenContents[] = {
    "",
    "not XML",
    "<rules>",
    "<rules><probe><a/></probe></rules",
    "<rules/>",
    "<rules></rules><rules/>",
    "\xff\xfe\x01",
    "<rules>text</rules>",
    "<!DOCTYPE r [<!ENTITY a \"&b;&b;\"><!ENTITY b \"&a;\">]><rules>&a;</rules>",
};

INSTANTIATE_TEST_SUITE_P(Content, BrokenRuleFiles, testing::ValuesIn(brokenContents),
                         [](const auto& content) { return std::to_string(content.index); });

TEST_F(RuleFiles, ThatCannotBeReadGiveNoRulesAndNoDefaults)
{
    probe.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&probe);
    // A folder exists and cannot be opened as a file, whoever runs the test.
    ASSERT_TRUE(QDir().mkdir(host.ruleFile(event)));
    registerType(event);
    EXPECT_EQ(ruleCount(), 0);
}

TEST_F(RuleFiles, ThatCannotBeWrittenArePassedOverAndTheOthersWritten)
{
    module().installNotificationMethod(&probe);
    ASSERT_TRUE(QDir().mkdir(host.ruleFile(event)));
    registerType(event);
    registerType(other);
    addRule(event, probe);
    addRule(other, probe);
    ASSERT_TRUE(QFile::remove(host.ruleFile(other)));
    module().storeNotificationRules(nullptr);
    EXPECT_TRUE(host.readRuleFile(other).contains("probe"));
}

TEST_F(RuleFiles, AreNotMadeWithoutTheFolderThatTheClientShouldHaveMade)
{
    ASSERT_TRUE(QDir(host.settings.path()).rmdir(u"notifications"_s));
    module().installNotificationMethod(&probe);
    registerType(event);
    addRule(event, probe);
    EXPECT_FALSE(QFile::exists(host.settings.path() + u"/notifications"_s));
}

TEST_F(RuleFiles, OfAllInstalledMethodsAreReadWhicheverMethodIsGiven)
{
    module().installNotificationMethod(&probe);
    module().installNotificationMethod(&second);
    registerType(other);
    host.writeRuleFile(other, document(probeElement() + element(u"second"_s, {})));
    module().setupNotificationRules(type(other), &probe);
    EXPECT_NE(module().getNotificationRule(other, u"probe"_s), nullptr);
    EXPECT_NE(module().getNotificationRule(other, u"second"_s), nullptr);
}

TEST_F(RuleFiles, AddASecondRuleForEachMethodAlreadyReadWhenAMethodIsInstalledLater)
{
    host.writeRuleFile(event, document(probeElement() + element(u"second"_s, {})));
    module().installNotificationMethod(&probe);
    registerType(event);
    EXPECT_EQ(ruleCount(), 1);
    module().installNotificationMethod(&second);
    EXPECT_EQ(ruleCount(), 3);
}

TEST_F(RuleFiles, AreReadFromTheirBeginningSoThatTheLastElementIsTheNewestRule)
{
    module().installNotificationMethod(&probe);
    host.writeRuleFile(event, document(probeElement(u"upper"_s) + probeElement(u"lower"_s)));
    registerType(event);
    ASSERT_EQ(ruleCount(), 2);
    const ZepaNotificationRule* newest = module().getNotificationRule(event, u"probe"_s);
    EXPECT_EQ(textOf(newest->getConfig(), setting), u"lower"_s);
}

TEST_F(RuleFiles, AreNotReadForAMethodThatIsGivenButNotInstalled)
{
    registerType(other);
    host.writeRuleFile(other, document(probeElement()));
    module().setupNotificationRules(type(other), &probe);
    EXPECT_EQ(ruleCount(other), 0);
}

TEST_F(RuleFiles, AreNeitherReadNorMadeForNullOrAMissingFile)
{
    module().installNotificationMethod(&probe);
    registerType(other);
    module().setupNotificationRules(nullptr, &probe);
    module().setupNotificationRules(type(other), &probe);
    EXPECT_EQ(ruleCount(other), 0);
    EXPECT_TRUE(host.ruleFiles().isEmpty());
}

TEST_F(RuleFiles, OfTypesWithRulesAloneAreWrittenForNull)
{
    module().installNotificationMethod(&probe);
    registerType(u"with"_s);
    registerType(u"without"_s);
    addRule(u"with"_s, probe);
    host.writeRuleFile(u"with"_s, "old");
    host.writeRuleFile(u"without"_s, "untouched");
    module().storeNotificationRules(nullptr);
    EXPECT_TRUE(host.readRuleFile(u"with"_s).contains("probe"));
    EXPECT_EQ(host.readRuleFile(u"without"_s), QByteArray("untouched"));
}

TEST_F(RuleFiles, AreWrittenOnceForEachRuleOfATypeForNull)
{
    registerType(other);
    for (int i = 0; i < 3; ++i)
        addRule(other, probe);
    const int watch = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    const QByteArray file = QFile::encodeName(host.settings.path() + u"/notifications/"_s + other);
    ASSERT_GE(inotify_add_watch(watch, file.constData(), IN_OPEN | IN_CLOSE_WRITE), 0);
    module().storeNotificationRules(type(other));
    EXPECT_EQ(endedWrites(watch), 1);
    module().storeNotificationRules(nullptr);
    EXPECT_EQ(endedWrites(watch), 3);
    close(watch);
}

TEST_F(RuleFiles, HoldAnEmptyRulesElementAfterTheLastRuleIsRemovedAndKeepDefaultsAway)
{
    probe.setDefaultNotificationConfig(event, {});
    module().installNotificationMethod(&probe);
    registerType(event);
    for (ZepaNotificationRule* rule : module().getRules(type(event)))
        module().removeNotificationRule(rule);
    const QByteArray content = host.readRuleFile(event).trimmed();
    EXPECT_TRUE(content.endsWith("<rules/>") || content.endsWith("<rules></rules>")) << content.constData();

    closeModule();
    module().installNotificationMethod(&probe);
    registerType(event);
    EXPECT_EQ(ruleCount(), 0);
}

TEST_F(RuleFiles, ListTheRulesOfATypeNewestFirstOnOneLine)
{
    module().installNotificationMethod(&probe);
    module().installNotificationMethod(&second);
    registerType(other);
    addRule(other, probe);
    addRule(other, second);
    const QByteArray content = host.readRuleFile(other);
    EXPECT_GT(content.indexOf("<second>"), 0);
    EXPECT_LT(content.indexOf("<second>"), content.indexOf("<probe>"));
    EXPECT_EQ(content.trimmed().count('\n'), 0);
}

TEST_F(RuleFiles, BringEverySettingBackAfterARestart)
{
    module().installNotificationMethod(&probe);
    registerType(other);
    const QString value = u"a <b> & \"c\" \u00e4\u20ac"_s + QChar(1) + QChar(0xd800);
    addRule(other, probe, {ProbeMethod::text(setting, value)});
    closeModule();
    module().installNotificationMethod(&probe);
    registerType(other);
    ASSERT_EQ(ruleCount(other), 1);
    EXPECT_EQ(textOf(module().getRules(type(other)).first()->getConfig(), setting), value);
}

TEST_F(RuleFiles, AMillionLevelsDeepOrFullOfEntitiesGiveNoRulesAndNoCrash)
{
    module().installNotificationMethod(&probe);
    constexpr int levels = 1'000'000;
    host.writeRuleFile(u"deep"_s, "<rules><probe>" + QByteArray("<a>").repeated(levels) +
                                      QByteArray("</a>").repeated(levels) + "</probe></rules>");
    registerType(u"deep"_s);
    EXPECT_EQ(ruleCount(u"deep"_s), 1);

    QByteArray bomb = "<!DOCTYPE r [<!ENTITY e0 \"0123456789\">";
    for (int i = 1; i < 20; ++i) {
        const QByteArray inner = "&e" + QByteArray::number(i - 1) + ";";
        bomb += "<!ENTITY e" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    host.writeRuleFile(u"bomb"_s, bomb + "]><rules><probe><a>&e19;</a></probe></rules>");
    registerType(u"bomb"_s);
    EXPECT_EQ(ruleCount(u"bomb"_s), 0);
}

TEST_F(RuleFiles, OfTenMegabytesAreRead)
{
    module().installNotificationMethod(&probe);
    const QString value(10'000'000, QLatin1Char('x'));
    host.writeRuleFile(event, document(probeElement(value)));
    registerType(event);
    ASSERT_EQ(ruleCount(), 1);
    EXPECT_EQ(textOf(module().getRules(type(event)).first()->getConfig(), setting).size(), value.size());
}
