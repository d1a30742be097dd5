// SPDX-License-Identifier: Apache-2.0
#include "client/languages.h"

#include "qt_printers.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Wish
{
    const char* language;
    const char* all;
    const char* messages;
    const char* lang;
};

QStringList languagesFor(const Wish& wish)
{
    const auto set = [](const char* name, const char* value) { value ? qputenv(name, value) : qunsetenv(name); };
    set("LANGUAGE", wish.language);
    set("LC_ALL", wish.all);
    set("LC_MESSAGES", wish.messages);
    set("LANG", wish.lang);
    return zepa::messageLanguages();
}

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

TEST(Languages, AreThoseOfTheLocaleForMessages)
{
    EXPECT_EQ(languagesFor({nullptr, nullptr, nullptr, "de_AT.UTF-8"}), words("de_AT de"));
    EXPECT_EQ(languagesFor({nullptr, nullptr, "fr_FR@euro", "de_AT.UTF-8"}), words("fr_FR fr"));
    EXPECT_EQ(languagesFor({nullptr, "pl", "fr_FR", "de_AT.UTF-8"}), words("pl"));
    EXPECT_EQ(languagesFor({nullptr, "", "", "pt_BR.UTF-8"}), words("pt_BR pt"));
}

TEST(Languages, AreTheListBeforeTheLocale)
{
    EXPECT_EQ(languagesFor({"nl:fr_CA:fr", nullptr, nullptr, "de_DE.UTF-8"}), words("nl fr_CA fr"));
    EXPECT_EQ(languagesFor({"", nullptr, nullptr, "de_DE.UTF-8"}), words("de_DE de"));
}

TEST(Languages, AreNoneWhereEnglishIsWanted)
{
    EXPECT_EQ(languagesFor({nullptr, nullptr, nullptr, nullptr}), QStringList());
    EXPECT_EQ(languagesFor({nullptr, nullptr, nullptr, "en_GB.UTF-8"}), QStringList());
    EXPECT_EQ(languagesFor({"en:de", nullptr, nullptr, "de_DE.UTF-8"}), QStringList());
    EXPECT_EQ(languagesFor({"nl:en_US:de", nullptr, nullptr, "de_DE.UTF-8"}), words("nl"));
    for (const char* plain : {"C", "C.UTF-8", "POSIX"})
        EXPECT_EQ(languagesFor({"de", plain, nullptr, "de_DE.UTF-8"}), QStringList()) << plain;
}

TEST(Languages, LeadNowhereElse)
{
    EXPECT_EQ(languagesFor({"../../x:de", nullptr, nullptr, "fr_FR"}), words("de"));
}

TEST(Languages, AreSpokenByTheLibraryTheClientAndQt)
{
    languagesFor({"nl:pt", nullptr, nullptr, "de_DE.UTF-8"});
    zepa::installTranslations(*QCoreApplication::instance());
    EXPECT_EQ(QCoreApplication::translate("translation", "Message received", "notification event"),
              u"Mensagem recebida"_s);
    EXPECT_EQ(QCoreApplication::translate("zepa", "read out"), u"ler em voz alta"_s);
    if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + u"/qtbase_pt_BR.qm"_s))
        GTEST_SKIP() << "Qt's own translations are not installed";
    // Qt has Portuguese as Brazil writes it.
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Cancelar"_s);
}

} // namespace
