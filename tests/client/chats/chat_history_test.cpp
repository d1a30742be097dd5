// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_history.h"

#include "kit/texts/message_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using zepa::ChatHistory;
using zepa::ChatLine;

namespace {

class History : public testing::Test
{
protected:
    void SetUp() override
    {
        history.resize(300, 200);
        history.show();
    }

    void add(const QString& text, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            history.append({ChatLine::Kind::Incoming, u"Anna"_s, text, QDateTime::currentDateTime()});
    }
    bool isAtEnd() { return history.verticalScrollBar()->value() == history.verticalScrollBar()->maximum(); }

    ChatHistory history;
    const QDateTime time{QDate(2026, 1, 2), QTime(12, 5)};
};

} // namespace

TEST_F(History, TheViewStaysAtTheEndOnlyWhenItWasThere)
{
    add(u"line"_s, 50);
    EXPECT_GT(history.verticalScrollBar()->maximum(), 0);
    EXPECT_TRUE(isAtEnd());
    history.verticalScrollBar()->setValue(10);
    add(u"line"_s, 5);
    EXPECT_EQ(history.verticalScrollBar()->value(), 10);
}

TEST_F(History, ALineAddedTouchesOnlyTheEnd)
{
    int early = 0;
    QObject::connect(history.document(), &QTextDocument::contentsChange, &history, [&](int from, int, int added) {
        if (from + added + 2 < history.document()->characterCount())
            ++early;
    });
    add(u"line"_s, 1000);
    EXPECT_EQ(history.document()->blockCount(), 1000);
    EXPECT_EQ(early, 0);
}

TEST_F(History, TheOldestLinesGoWhenThereAreTooMany)
{
    add(u"old"_s);
    add(u"new"_s, ChatHistory::mostLines);
    EXPECT_LE(history.document()->blockCount(), ChatHistory::mostLines);
    EXPECT_FALSE(history.toPlainText().contains(u"old"_s));
    EXPECT_TRUE(isAtEnd());
}

TEST_F(History, TheTextOfAllLinesIsBounded)
{
    add(QString(10 * 1024 * 1024, u'x'), ChatHistory::mostUnits / int(zepa::longestMessage) + 10);
    EXPECT_LE(history.document()->characterCount(), ChatHistory::mostUnits);
}

TEST_F(History, EachLineHasItsOwnDirection)
{
    add(u"hello"_s);
    add(u"\u05e9\u05dc\u05d5\u05dd"_s);
    EXPECT_EQ(history.document()->firstBlock().blockFormat().layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(history.document()->lastBlock().blockFormat().layoutDirection(), Qt::RightToLeft);
}

TEST_F(History, AVeryLongWordIsWrapped)
{
    add(QString(500, u'w'));
    EXPECT_EQ(history.horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(history.document()->lastBlock().layout()->lineCount(), 5);
}

TEST_F(History, AnotherPaletteGivesTheOldLinesItsColours)
{
    add(u"hello"_s);
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    history.setPalette(dark);
    const QTextCharFormat format = (--history.document()->lastBlock().end()).fragment().charFormat();
    EXPECT_EQ(format.foreground().color(), QColor(Qt::white));
}

TEST_F(History, ANewLineSelectsNothing)
{
    add(u"hello"_s, 3);
    EXPECT_FALSE(history.textCursor().hasSelection());
}

TEST_F(History, WhatIsCopiedAreTheWordsThatAreSelected)
{
    for (const QString& name : {u"Anna"_s, u"Bob"_s}) {
        history.append({ChatLine::Kind::Information, {}, name + u" is away"_s, time});
        history.append({ChatLine::Kind::Incoming, name, u"two\nlines"_s, time});
    }
    const int end = history.document()->characterCount() - 1;
    for (int from = 0; from < end; ++from) {
        for (int to = from + 1; to <= end; ++to) {
            QTextCursor selection(history.document());
            selection.setPosition(from);
            selection.setPosition(to, QTextCursor::KeepAnchor);
            QString expected = selection.selectedText();
            expected.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
            expected.replace(QChar::ObjectReplacementCharacter, u"Information:"_s);
            expected.remove(u'\u2068').remove(u'\u2069');
            history.setTextCursor(selection);
            history.copy();
            ASSERT_EQ(QGuiApplication::clipboard()->text(), expected) << from << " to " << to;
        }
    }
    EXPECT_EQ(history.lastLineAloud(), u"Bob  12:05\ntwo\nlines"_s);
}
