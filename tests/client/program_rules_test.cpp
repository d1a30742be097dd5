// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

namespace {

const QString popup = QStringLiteral("zepa_hint_notification");
const QString sound = QStringLiteral("zepa_sound_notification_method");
const QString bounce = QStringLiteral("zepa_dock_bounce_notification_method");
const QString received = QStringLiteral("message_received");

QStringList ruleSet(const QStringList& rest)
{
    return QStringList{QStringLiteral("rule"), QStringLiteral("set")} + rest;
}

QStringList ruleRemove(const QStringList& rest)
{
    return QStringList{QStringLiteral("rule"), QStringLiteral("remove")} + rest;
}

/// The settings of the rules of one type, by method; a method with two rules counts once.
QJsonObject settingsByMethod(const QJsonArray& rules)
{
    QJsonObject settings;
    for (const QJsonValue& rule : rules)
        settings.insert(rule[QStringLiteral("method")].toString(), rule[QStringLiteral("settings")]);
    return settings;
}

class ProgramRules : public Program
{
protected:
    QJsonArray rules(const QString& type)
    {
        return run({QStringLiteral("rules"), type, QStringLiteral("--json")}).json();
    }
};

TEST_F(ProgramRules, TypesAreTheEighteenOfTheCatalogue)
{
    const QJsonArray types = run({QStringLiteral("types"), QStringLiteral("--json")}).json();
    EXPECT_EQ(types.size(), 18);
    for (const QJsonValue& type : types) {
        EXPECT_FALSE(type[QStringLiteral("id")].toString().isEmpty());
        EXPECT_FALSE(type[QStringLiteral("name")].toString().isEmpty());
        EXPECT_FALSE(type[QStringLiteral("description")].toString().isEmpty());
    }
    const Outcome table = run({QStringLiteral("types")});
    EXPECT_EQ(table.lines().size(), 19);
    EXPECT_TRUE(table.lines().constFirst().startsWith(QStringLiteral("TYPE")));
}

TEST_F(ProgramRules, MethodsAreListedWithTheirFields)
{
    const QJsonArray methods = run({QStringLiteral("methods"), QStringLiteral("--json")}).json();
    ASSERT_EQ(methods.size(), 7);
    QJsonObject fields;
    for (const QJsonValue& method : methods)
        fields.insert(method[QStringLiteral("id")].toString(),
                      method[QStringLiteral("fields")][0][QStringLiteral("initial")]);
    EXPECT_EQ(fields.value(popup), QJsonValue(false));
    EXPECT_EQ(fields.value(sound), QJsonValue(QStringLiteral("bell.wav")));
    EXPECT_TRUE(fields.value(bounce).isUndefined() || fields.value(bounce).isNull());
    EXPECT_TRUE(run({QStringLiteral("methods")}).out.contains(QStringLiteral("sound_file=bell.wav")));
}

TEST_F(ProgramRules, AreTheMethodsDefaultsAtFirst)
{
    const QJsonObject settings = settingsByMethod(rules(received));
    EXPECT_EQ(settings.size(), 2);
    EXPECT_EQ(settings[sound][QStringLiteral("sound_file")], QJsonValue(QStringLiteral("message.wav")));
    EXPECT_EQ(settings[popup][QStringLiteral("sticky")], QJsonValue(false));
    EXPECT_EQ(rules(QStringLiteral("message_sent")).size(), 0);
    EXPECT_EQ(settingsByMethod(rules(QStringLiteral("message_received_initial"))).size(), 3);
}

TEST_F(ProgramRules, AreNotDoubledByALaterStart)
{
    const QJsonArray first = run({QStringLiteral("rules"), QStringLiteral("--json")}).json();
    const QJsonArray second = run({QStringLiteral("rules"), QStringLiteral("--json")}).json();
    EXPECT_GT(first.size(), 10);
    EXPECT_EQ(second.size(), first.size());
}

TEST_F(ProgramRules, OfAnUnknownTypeAreRefusedWithTheTypesThereAre)
{
    const Outcome outcome = run({QStringLiteral("rules"), QStringLiteral("nope")});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("message_received_background"))) << outcome.err.toStdString();
}

TEST_F(ProgramRules, SetChangesTheNamedFieldAndKeepsItForTheNextStart)
{
    const Outcome outcome = run(ruleSet({received, popup, QStringLiteral("sticky=true")}));
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    const QJsonObject settings = settingsByMethod(rules(received));
    EXPECT_EQ(settings[popup][QStringLiteral("sticky")], QJsonValue(true));
    EXPECT_EQ(settings[sound][QStringLiteral("sound_file")], QJsonValue(QStringLiteral("message.wav")));
    EXPECT_EQ(rules(received).size(), 2);
}

TEST_F(ProgramRules, SetAddsARuleThatIsNotThere)
{
    EXPECT_EQ(run(ruleSet({QStringLiteral("message_sent"), bounce})).code, 0);
    EXPECT_EQ(run(ruleSet({QStringLiteral("message_sent"), sound, QStringLiteral("sound_file=/x=y/ding.wav")})).code,
              0);
    const QJsonObject settings = settingsByMethod(rules(QStringLiteral("message_sent")));
    EXPECT_TRUE(settings.contains(bounce));
    EXPECT_EQ(settings[sound][QStringLiteral("sound_file")], QJsonValue(QStringLiteral("/x=y/ding.wav")));
}

TEST_F(ProgramRules, SetStartsANewRuleFromTheMethodsDefaultForTheType)
{
    ASSERT_EQ(run(ruleRemove({QStringLiteral("email_notify"), sound})).code, 0);
    ASSERT_EQ(run(ruleSet({QStringLiteral("email_notify"), sound})).code, 0);
    const QJsonObject settings = settingsByMethod(rules(QStringLiteral("email_notify")));
    EXPECT_EQ(settings[sound][QStringLiteral("sound_file")], QJsonValue(QStringLiteral("mail.wav")));
}

TEST_F(ProgramRules, SetRefusesWhatItDoesNotUnderstandAndChangesNothing)
{
    run({QStringLiteral("types")});
    const QByteArray before = read(QStringLiteral("settings/notifications/message_received"));
    ASSERT_FALSE(before.isEmpty());
    const QList<std::pair<QStringList, QString>> wrong{
        {{received, popup, QStringLiteral("sticky=yes")}, QStringLiteral("true or false")},
        {{received, popup, QStringLiteral("sticky=true"), QStringLiteral("sticky")}, QStringLiteral("FIELD=VALUE")},
        {{received, popup, QStringLiteral("=x")}, QStringLiteral("FIELD=VALUE")},
        {{received, popup, QStringLiteral("loud=true")}, QStringLiteral("sticky")},
        {{received, bounce, QStringLiteral("loud=true")}, QStringLiteral("no fields")},
        {{received, QStringLiteral("nope")}, popup},
        {{QStringLiteral("nope"), popup}, QStringLiteral("email_notify")},
    };
    for (const auto& [arguments, allowed] : wrong) {
        const Outcome outcome = run(ruleSet(arguments));
        EXPECT_EQ(outcome.code, 2) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.contains(allowed)) << outcome.err.toStdString();
        EXPECT_EQ(read(QStringLiteral("settings/notifications/message_received")), before);
    }
}

TEST_F(ProgramRules, RemoveSilencesAMethodForGood)
{
    EXPECT_EQ(run(ruleRemove({received, sound})).code, 0);
    EXPECT_EQ(run(ruleRemove({received, popup})).code, 0);
    EXPECT_EQ(rules(received).size(), 0);
    const Outcome again = run(ruleRemove({received, sound}));
    EXPECT_EQ(again.code, 1);
    EXPECT_TRUE(again.err.contains(QStringLiteral("zepa rules message_received"))) << again.err.toStdString();
    EXPECT_EQ(run(ruleRemove({received, QStringLiteral("nope")})).code, 2);
}

TEST_F(ProgramRules, ThatCannotBeWrittenAreAFailureThatNamesTheFile)
{
    ASSERT_TRUE(QDir().mkpath(ruleFile(received)));
    const Outcome outcome = run(ruleSet({received, popup, QStringLiteral("sticky=true")}));
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(outcome.err.contains(ruleFile(received))) << outcome.err.toStdString();
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("--settings"))) << outcome.err.toStdString();
}

TEST_F(ProgramRules, AreShownThoughTheSettingsFolderIsNoFolder)
{
    write(QStringLiteral("settings"), "x");
    const Outcome outcome = run({QStringLiteral("rules"), received});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.lines().size(), 3);
    EXPECT_TRUE(outcome.err.contains(QStringLiteral("cannot write to"))) << outcome.err.toStdString();
    EXPECT_EQ(run(ruleSet({received, popup})).code, 1);
}

TEST_F(ProgramRules, SurviveDamagedRuleFiles)
{
    ASSERT_EQ(run(ruleSet({received, popup, QStringLiteral("sticky=true")})).code, 0);
    const QByteArray good = read(QStringLiteral("settings/notifications/message_received"));
    for (const QByteArray& damage :
         {QByteArray(), QByteArray("<rules>"), QByteArray(1000000, '<'), QByteArray("<a>").repeated(1000000)}) {
        write(QStringLiteral("settings/notifications/message_received"), damage);
        const Outcome outcome = run({QStringLiteral("rules"), received});
        EXPECT_TRUE(outcome.out.contains(QStringLiteral("sticky=true"))) << outcome.out.toStdString();
        EXPECT_EQ(outcome.err.count(u'\n'), 1) << outcome.err.toStdString();
        EXPECT_TRUE(outcome.err.contains(received));
        EXPECT_EQ(read(QStringLiteral("settings/notifications/message_received")), good);
    }
    EXPECT_EQ(run({QStringLiteral("rules"), received}).err, QString());
}

} // namespace
