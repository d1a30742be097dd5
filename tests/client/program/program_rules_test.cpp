// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

const QString popup = u"zepa_hint_notification"_s;
const QString sound = u"zepa_sound_notification_method"_s;
const QString bounce = u"zepa_dock_bounce_notification_method"_s;
const QString received = u"message_received"_s;

QStringList ruleSet(const QStringList& rest)
{
    return QStringList{u"rule"_s, u"set"_s} + rest;
}

QStringList ruleRemove(const QStringList& rest)
{
    return QStringList{u"rule"_s, u"remove"_s} + rest;
}

/// The settings of the rules of one type, by method; a method with two rules counts once.
QJsonObject settingsByMethod(const QJsonArray& rules)
{
    QJsonObject settings;
    for (const QJsonValue& rule : rules)
        settings.insert(rule[u"method"_s].toString(), rule[u"settings"_s]);
    return settings;
}

class ProgramRules : public Program
{
protected:
    QJsonArray rules(const QString& type) { return run({u"rules"_s, type, u"--json"_s}).json(); }
};

TEST_F(ProgramRules, TypesAreTheEighteenOfTheCatalogue)
{
    const QJsonArray types = run({u"types"_s, u"--json"_s}).json();
    EXPECT_EQ(types.size(), 18);
    for (const QJsonValue& type : types) {
        EXPECT_FALSE(type[u"id"_s].toString().isEmpty());
        EXPECT_FALSE(type[u"name"_s].toString().isEmpty());
        EXPECT_FALSE(type[u"description"_s].toString().isEmpty());
    }
    const Outcome table = run({u"types"_s});
    EXPECT_EQ(table.lines().size(), 19);
    EXPECT_TRUE(table.lines().constFirst().startsWith(u"TYPE"_s));
}

TEST_F(ProgramRules, MethodsAreListedWithTheirFields)
{
    const QJsonArray methods = run({u"methods"_s, u"--json"_s}).json();
    ASSERT_EQ(methods.size(), 7);
    QJsonObject fields;
    for (const QJsonValue& method : methods)
        fields.insert(method[u"id"_s].toString(), method[u"fields"_s][0][u"initial"_s]);
    EXPECT_EQ(fields.value(popup), QJsonValue(false));
    EXPECT_EQ(fields.value(sound), QJsonValue(u"bell.wav"_s));
    EXPECT_TRUE(fields.value(bounce).isUndefined() || fields.value(bounce).isNull());
    EXPECT_TRUE(run({u"methods"_s}).out.contains(u"sound_file=bell.wav"_s));
}

TEST_F(ProgramRules, AreTheMethodsDefaultsAtFirst)
{
    const QJsonObject settings = settingsByMethod(rules(received));
    EXPECT_EQ(settings.size(), 2);
    EXPECT_EQ(settings[sound][u"sound_file"_s], QJsonValue(u"message.wav"_s));
    EXPECT_EQ(settings[popup][u"sticky"_s], QJsonValue(false));
    EXPECT_EQ(rules(u"message_sent"_s).size(), 0);
    EXPECT_EQ(settingsByMethod(rules(u"message_received_initial"_s)).size(), 3);
}

TEST_F(ProgramRules, AreNotDoubledByALaterStart)
{
    const QJsonArray first = run({u"rules"_s, u"--json"_s}).json();
    const QJsonArray second = run({u"rules"_s, u"--json"_s}).json();
    EXPECT_GT(first.size(), 10);
    EXPECT_EQ(second.size(), first.size());
}

TEST_F(ProgramRules, OfAnUnknownTypeAreRefusedWithTheTypesThereAre)
{
    const Outcome outcome = run({u"rules"_s, u"nope"_s});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.contains(u"message_received_background"_s)) << outcome.err.toStdString();
}

TEST_F(ProgramRules, SetChangesTheNamedFieldAndKeepsItForTheNextStart)
{
    const Outcome outcome = run(ruleSet({received, popup, u"sticky=true"_s}));
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    const QJsonObject settings = settingsByMethod(rules(received));
    EXPECT_EQ(settings[popup][u"sticky"_s], QJsonValue(true));
    EXPECT_EQ(settings[sound][u"sound_file"_s], QJsonValue(u"message.wav"_s));
    EXPECT_EQ(rules(received).size(), 2);
}

TEST_F(ProgramRules, SetAddsARuleThatIsNotThere)
{
    EXPECT_EQ(run(ruleSet({u"message_sent"_s, bounce})).code, 0);
    EXPECT_EQ(run(ruleSet({u"message_sent"_s, sound, u"sound_file=/x=y/ding.wav"_s})).code, 0);
    const QJsonObject settings = settingsByMethod(rules(u"message_sent"_s));
    EXPECT_TRUE(settings.contains(bounce));
    EXPECT_EQ(settings[sound][u"sound_file"_s], QJsonValue(u"/x=y/ding.wav"_s));
}

TEST_F(ProgramRules, SetStartsANewRuleFromTheMethodsDefaultForTheType)
{
    ASSERT_EQ(run(ruleRemove({u"email_notify"_s, sound})).code, 0);
    ASSERT_EQ(run(ruleSet({u"email_notify"_s, sound})).code, 0);
    const QJsonObject settings = settingsByMethod(rules(u"email_notify"_s));
    EXPECT_EQ(settings[sound][u"sound_file"_s], QJsonValue(u"mail.wav"_s));
}

TEST_F(ProgramRules, SetRefusesWhatItDoesNotUnderstandAndChangesNothing)
{
    run({u"types"_s});
    const QByteArray before = read(u"settings/notifications/message_received"_s);
    ASSERT_FALSE(before.isEmpty());
    const QList<std::pair<QStringList, QString>> wrong{
        {{received, popup, u"sticky=yes"_s}, u"true or false"_s},
        {{received, popup, u"sticky=true"_s, u"sticky"_s}, u"FIELD=VALUE"_s},
        {{received, popup, u"=x"_s}, u"FIELD=VALUE"_s},
        {{received, popup, u"loud=true"_s}, u"sticky"_s},
        {{received, bounce, u"loud=true"_s}, u"no fields"_s},
        {{received, u"nope"_s}, popup},
        {{u"nope"_s, popup}, u"email_notify"_s},
    };
    for (const auto& [arguments, allowed] : wrong) {
        const Outcome outcome = run(ruleSet(arguments));
        EXPECT_EQ(outcome.code, 2) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.contains(allowed)) << outcome.err.toStdString();
        EXPECT_EQ(read(u"settings/notifications/message_received"_s), before);
    }
}

TEST_F(ProgramRules, RemoveSilencesAMethodForGood)
{
    EXPECT_EQ(run(ruleRemove({received, sound})).code, 0);
    EXPECT_EQ(run(ruleRemove({received, popup})).code, 0);
    EXPECT_EQ(rules(received).size(), 0);
    const Outcome again = run(ruleRemove({received, sound}));
    EXPECT_EQ(again.code, 1);
    EXPECT_TRUE(again.err.contains(u"zepa rules message_received"_s)) << again.err.toStdString();
    EXPECT_EQ(run(ruleRemove({received, u"nope"_s})).code, 2);
}

TEST_F(ProgramRules, ThatCannotBeWrittenAreAFailureThatNamesTheFile)
{
    ASSERT_TRUE(QDir().mkpath(ruleFile(received)));
    const Outcome outcome = run(ruleSet({received, popup, u"sticky=true"_s}));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(ruleFile(received))) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains(u"--settings"_s)) << outcome.err.toStdString();
}

TEST_F(ProgramRules, AreShownThoughTheSettingsFolderIsNoFolder)
{
    write(u"settings"_s, "x");
    const Outcome outcome = run({u"rules"_s, received});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.lines().size(), 3);
    EXPECT_TRUE(outcome.err.contains(u"cannot write to"_s)) << outcome.err.toStdString();
    EXPECT_EQ(run(ruleSet({received, popup})).code, 1);
}

TEST_F(ProgramRules, SurviveDamagedRuleFiles)
{
    ASSERT_EQ(run(ruleSet({received, popup, u"sticky=true"_s})).code, 0);
    const QByteArray good = read(u"settings/notifications/message_received"_s);
    for (const QByteArray& damage :
         {QByteArray(), QByteArray("<rules>"), QByteArray(1000000, '<'), QByteArray("<a>").repeated(1000000)}) {
        write(u"settings/notifications/message_received"_s, damage);
        const Outcome outcome = run({u"rules"_s, received});
        EXPECT_TRUE(outcome.out.contains(u"sticky=true"_s)) << outcome.out.toStdString();
        EXPECT_EQ(outcome.err.count(u'\n'), 1) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.contains(received));
        EXPECT_EQ(read(u"settings/notifications/message_received"_s), good);
    }
    EXPECT_EQ(run({u"rules"_s, received}).err, QString());
}

} // namespace
