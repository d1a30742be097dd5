// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_history.h"
#include "client/chats/chat_manager.h"
#include "client/chats/chat_window.h"
#include "kit/settings/settings.h"

#include <QAccessible>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using zepa::ChatManager;
using zepa::ChatWindow;

namespace {

class ChatWindows : public testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("XDG_DATA_HOME", folder.path().toUtf8());
        QDir().mkpath(theme + u"icons"_s);
        QImage bell(24, 24, QImage::Format_RGB32);
        bell.fill(Qt::green);
        ASSERT_TRUE(bell.save(theme + u"icons/bell.png"_s));
        settings = std::make_unique<zepa::Settings>(folder.filePath(u"settings"_s));
        window = ChatManager::instance().open(anna);
        history = window->findChild<zepa::ChatHistory*>();
        input = window->findChild<QLineEdit*>();
    }
    void TearDown() override { ChatManager::instance().closeAll(); }

    QTemporaryDir folder;
    QString theme = folder.filePath(u"zepa/themes/icons/default/"_s);
    std::unique_ptr<zepa::Settings> settings;
    ZepaBuddy anna{u"anna@example.org"_s, u"Anna"_s, ZepaBuddy::Contact};
    ZepaBuddy bert{u"bert@example.org"_s, u"Bert"_s, ZepaBuddy::Contact};
    ChatWindow* window = nullptr;
    zepa::ChatHistory* history = nullptr;
    QLineEdit* input = nullptr;
};

} // namespace

TEST_F(ChatWindows, AskingForAWindowOpensNone)
{
    EXPECT_EQ(ZepaChatManager::getInstance()->getChatWindow(bert), nullptr);
    EXPECT_EQ(ZepaChatManager::getInstance()->getChatWindow(anna), window);
}

TEST_F(ChatWindows, ABuddyHasOneWindow)
{
    EXPECT_EQ(ChatManager::instance().open(anna), window);
    EXPECT_NE(ChatManager::instance().open(bert), window);
}

TEST_F(ChatWindows, AClosedWindowIsForgotten)
{
    QTest::keyClick(input, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(ChatManager::instance().getChatWindow(anna), nullptr);
}

TEST_F(ChatWindows, EnterSendsWhatWasWrittenAndShowsIt)
{
    QSignalSpy sent(&ChatManager::instance(), &ChatManager::messageEntered);
    QTest::keyClicks(input, u"hello"_s);
    QTest::keyClick(input, Qt::Key_Return);
    QTest::keyClick(input, Qt::Key_Return);
    ASSERT_EQ(sent.count(), 1);
    EXPECT_EQ(sent.at(0).at(1).toString(), u"hello"_s);
    EXPECT_TRUE(history->toPlainText().endsWith(u"hello"_s));
    EXPECT_TRUE(input->text().isEmpty());
}

TEST_F(ChatWindows, AnInformationLineIsSetApartFromMessages)
{
    window->receiveMessage(u"hello"_s);
    window->notifyMessage(u"Anna is away"_s);
    const QTextBlock message = history->document()->firstBlock();
    const QTextBlock line = history->document()->lastBlock();
    EXPECT_EQ(line.blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_NE(message.blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_TRUE((--line.end()).fragment().charFormat().fontItalic());
    EXPECT_TRUE(line.begin().fragment().charFormat().isImageFormat());
}

TEST_F(ChatWindows, APictureOfTheThemeIsShownAndAnyOtherMarkerIsText)
{
    const auto pictures = [this] { return history->toPlainText().count(QChar(QChar::ObjectReplacementCharacter)); };
    window->receiveMessage(u"see image:"_s + theme + u"icons/bell.png:image"_s);
    EXPECT_EQ(pictures(), 1);
    window->receiveMessage(u"see image:/etc/passwd:image <img src=\"/etc/passwd\">"_s);
    EXPECT_EQ(pictures(), 1);
    EXPECT_TRUE(history->toPlainText().endsWith(u"image:/etc/passwd:image <img src=\"/etc/passwd\">"_s));
}

TEST_F(ChatWindows, TheDocumentFetchesNothing)
{
    const QUrl file = QUrl::fromLocalFile(theme + u"icons/bell.png"_s);
    EXPECT_FALSE(history->document()->resource(QTextDocument::ImageResource, file).isValid());
}

TEST_F(ChatWindows, NewLinesAreReadAloudAndCanBeReadBack)
{
    QAccessibleInterface* live = QAccessible::queryAccessibleInterface(window->findChild<QWidget*>(u"live"_s));
    ASSERT_TRUE(live);
    EXPECT_EQ(live->role(), QAccessible::Notification);
    window->receiveMessage(u"hello"_s);
    const QString spoken = live->text(QAccessible::Name);
    EXPECT_TRUE(spoken.startsWith(u"Anna"_s) && spoken.endsWith(u"hello"_s));
    window->notifyMessage(u"image:"_s + theme + u"icons/bell.png:image rang"_s);
    EXPECT_TRUE(live->text(QAccessible::Name).endsWith(u"bell rang"_s));

    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(history);
    ASSERT_TRUE(accessible && accessible->textInterface());
    QAccessibleTextInterface* text = accessible->textInterface();
    EXPECT_TRUE(text->text(0, text->characterCount()).contains(u"hello"_s));
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Conversation with Anna"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(input)->text(QAccessible::Name), u"Message to Anna"_s);
}
