// SPDX-License-Identifier: Apache-2.0
#include "journal_fixture.h"

#include "kit/texts/message_text.h"

using namespace Qt::StringLiterals;

namespace {

class JournalLimits : public testing::Test, protected JournalClient
{};

TEST_F(JournalLimits, KeepOfEachTextOnlyWhatCanBeShown)
{
    const auto text = [](char16_t letter) { return QString(3'000'000, QChar(letter)); };
    zepa::Posting posting;
    posting.type = text(u'a');
    posting.title = text(u'b');
    posting.text = text(u'c');
    posting.buddy = ZepaBuddy(text(u'd'), text(u'e'), ZepaBuddy::Contact);
    announce(m_client.recorder(), posting);
    for (const QString& kept : {last().type, last().typeName, last().title, last().text, last().who}) {
        EXPECT_LE(kept.size(), zepa::longestMessage) << kept.left(1).toStdString();
        EXPECT_EQ(kept.back(), QChar(u'\u2026')) << kept.left(1).toStdString();
    }
}

TEST_F(JournalLimits, CutNoCharacterInTwo)
{
    post(m_received, u'x' + u"\U0001F600"_s.repeated(10'000));
    const QString kept = last().title;
    EXPECT_TRUE(kept.isValidUtf16());
    EXPECT_GT(kept.size(), zepa::longestMessage - 4);
    post(m_received, QString(zepa::longestMessage, u'y'));
    EXPECT_EQ(last().title, QString(zepa::longestMessage, u'y'));
}

TEST_F(JournalLimits, StillTellTitlesApartThatDifferBehindThem)
{
    const QString title = QString(20'000, u'x');
    post(m_received, title + u'a');
    post(m_received, title + u'b');
    post(m_received, title + u'a');
    ASSERT_EQ(verdict(), Verdict::Repeat);
    ASSERT_TRUE(last().earlier);
    EXPECT_EQ(last().earlier->number, 1);
    EXPECT_LE(last().earlier->title.size(), zepa::longestMessage);
}

} // namespace
