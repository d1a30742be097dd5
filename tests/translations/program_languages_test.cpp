// SPDX-License-Identifier: Apache-2.0
#include "tests/client/program/program.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

/// The real program, asked in several languages.
class ProgramLanguages : public Program
{
protected:
    ProgramLanguages()
    {
        for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES"})
            environment.remove(QString::fromLatin1(name));
    }

    /// The name of the type as the program lists it.
    QString typeName(const char* type)
    {
        const QJsonArray types = run({u"types"_s, u"--json"_s}).json();
        for (const QJsonValue& one : types) {
            if (one[u"id"_s].toString() == QLatin1String(type))
                return one[u"name"_s].toString();
        }
        return {};
    }
    void speak(const char* variable, const char* value)
    {
        environment.insert(QString::fromLatin1(variable), QString::fromLatin1(value));
    }
};

TEST_F(ProgramLanguages, AreThoseOfTheLocale)
{
    const QList<std::pair<const char*, QString>> expected{
        {"de_DE.UTF-8", u"Nachricht erhalten"_s}, {"fr_FR.UTF-8", u"Message re\u00e7u"_s},
        {"es_MX.UTF-8", u"Mensaje recibido"_s},   {"pl_PL.UTF-8", u"Otrzymano wiadomo\u015b\u0107"_s},
        {"pt_BR.UTF-8", u"Mensagem recebida"_s},  {"nl_NL.UTF-8", u"Message received"_s},
        {"en_US.UTF-8", u"Message received"_s},   {"C.UTF-8", u"Message received"_s},
    };
    for (const auto& [locale, name] : expected) {
        speak("LANG", locale);
        EXPECT_EQ(typeName("message_received").toStdString(), name.toStdString()) << locale;
    }
}

TEST_F(ProgramLanguages, FollowTheUsersList)
{
    speak("LANG", "en_US.UTF-8");
    speak("LANGUAGE", "nl:pl:de");
    EXPECT_EQ(typeName("typing_stoped_notify"), u"Zako\u0144czono pisanie"_s);
    speak("LC_ALL", "C");
    EXPECT_EQ(typeName("typing_stoped_notify"), u"Typing stoped"_s);
}

TEST_F(ProgramLanguages, AreSpokenByTheMethodsToo)
{
    speak("LANG", "de_DE.UTF-8");
    const QString methods = run({u"methods"_s}).out;
    EXPECT_TRUE(methods.contains(u"Klang abspielen"_s)) << methods.toStdString();
    EXPECT_TRUE(methods.contains(u"vorlesen"_s)) << methods.toStdString();
}

TEST_F(ProgramLanguages, LeaveIdentifiersAlone)
{
    speak("LANG", "fr_FR.UTF-8");
    EXPECT_TRUE(run({u"types"_s}).out.contains(u"typing_stoped_notify"_s));
    const Outcome outcome =
        run({u"rule"_s, u"set"_s, u"message_sent"_s, u"zepa_sound_notification_method"_s, u"sound_file=bell.wav"_s});
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_TRUE(run({u"rules"_s, u"message_sent"_s}).out.contains(u"sound_file=bell.wav"_s));
}

} // namespace
