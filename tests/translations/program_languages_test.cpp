// SPDX-License-Identifier: Apache-2.0
#include "tests/client/program.h"

#include <QJsonObject>

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
        const QJsonArray types = run({QStringLiteral("types"), QStringLiteral("--json")}).json();
        for (const QJsonValue& one : types) {
            if (one[QStringLiteral("id")].toString() == QLatin1String(type))
                return one[QStringLiteral("name")].toString();
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
        {"de_DE.UTF-8", QStringLiteral("Nachricht erhalten")},
        {"fr_FR.UTF-8", QStringLiteral("Message re\u00e7u")},
        {"es_MX.UTF-8", QStringLiteral("Mensaje recibido")},
        {"pl_PL.UTF-8", QStringLiteral("Otrzymano wiadomo\u015b\u0107")},
        {"pt_BR.UTF-8", QStringLiteral("Mensagem recebida")},
        {"nl_NL.UTF-8", QStringLiteral("Message received")},
        {"en_US.UTF-8", QStringLiteral("Message received")},
        {"C.UTF-8", QStringLiteral("Message received")},
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
    EXPECT_EQ(typeName("typing_stoped_notify"), QStringLiteral("Zako\u0144czono pisanie"));
    speak("LC_ALL", "C");
    EXPECT_EQ(typeName("typing_stoped_notify"), QStringLiteral("Typing stoped"));
}

TEST_F(ProgramLanguages, AreSpokenByTheMethodsToo)
{
    speak("LANG", "de_DE.UTF-8");
    const QString methods = run({QStringLiteral("methods")}).out;
    EXPECT_TRUE(methods.contains(QStringLiteral("Klang abspielen"))) << methods.toStdString();
    EXPECT_TRUE(methods.contains(QStringLiteral("vorlesen"))) << methods.toStdString();
}

TEST_F(ProgramLanguages, LeaveIdentifiersAlone)
{
    speak("LANG", "fr_FR.UTF-8");
    EXPECT_TRUE(run({QStringLiteral("types")}).out.contains(QStringLiteral("typing_stoped_notify")));
    const Outcome outcome =
        run({QStringLiteral("rule"), QStringLiteral("set"), QStringLiteral("message_sent"),
             QStringLiteral("zepa_sound_notification_method"), QStringLiteral("sound_file=bell.wav")});
    EXPECT_EQ(outcome.code, 0) << outcome.err.toStdString();
    EXPECT_TRUE(run({QStringLiteral("rules"), QStringLiteral("message_sent")})
                    .out.contains(QStringLiteral("sound_file=bell.wav")));
}

} // namespace
