// SPDX-License-Identifier: Apache-2.0
#include "client/languages.h"
#include "kit/journal/journal_text.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace {

using namespace zepa;

/// Everything that the journal may say of a posting, each in a text of its own.
QStringList allTexts()
{
    QStringList texts;
    const QList<Verdict> verdicts = allVerdicts();
    for (const Verdict verdict : verdicts)
        texts.append(verdictText(verdict));

    JournalEntry entry;
    for (const Fate fate : {Fate::NoRule, Fate::UnknownType, Fate::Repeat, Fate::Delivered}) {
        entry.report.fate = fate;
        texts.append(whyNoPopup(entry));
    }
    for (const PopupState popup :
         {PopupState::NotAsked, PopupState::NoBus, PopupState::NoService, PopupState::NotRegistered}) {
        entry.report.popup = popup;
        texts.append(whyNoPopup(entry));
    }
    entry.report.popup = PopupState::Asked;
    texts.append(whyNoPopup(entry));
    entry.report.waits = true;
    texts.append(whyNoPopup(entry));
    for (const Answer answer : {Answer::Clicked, Answer::TimedOut}) {
        entry.answer = answer;
        texts.append(whyNoPopup(entry));
    }

    entry.report.calls.append(Delivery());
    for (const SoundState sound : {SoundState::NotAsked, SoundState::MutedForAll, SoundState::MutedForStrangers,
                                   SoundState::NoFile, SoundState::Asked}) {
        entry.report.sound = sound;
        texts.append(detailsText(entry).section(u'\n', -2, -2));
    }
    for (const ChatState chat : {ChatState::NotAsked, ChatState::NoBuddy, ChatState::NoWindow, ChatState::Written}) {
        entry.report.chat = chat;
        texts.append(detailsText(entry).section(u'\n', -1));
    }
    return texts;
}

class JournalWords : public testing::TestWithParam<const char*>
{};

TEST_P(JournalWords, AreInTheLanguageOfTheRest)
{
    const QStringList english = allTexts();
    ASSERT_GE(english.size(), 30);
    qputenv("LC_ALL", GetParam());
    qunsetenv("LANGUAGE");
    installTranslations(*qApp);
    const QStringList now = allTexts();
    ASSERT_EQ(now.size(), english.size());
    for (qsizetype i = 0; i < now.size(); ++i)
        EXPECT_NE(now[i], english[i]) << english[i].toStdString();
}

INSTANTIATE_TEST_SUITE_P(Languages, JournalWords, testing::Values("de_DE", "es_ES", "fr_FR", "pl_PL", "pt_PT"),
                         [](const auto& language) { return std::string(language.param).substr(0, 2); });

} // namespace
