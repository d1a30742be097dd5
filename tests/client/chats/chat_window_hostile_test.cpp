// SPDX-License-Identifier: Apache-2.0
// A shown chat window and messages that were written to harm it.
#include "client/chats/chat_history.h"
#include "client/chats/chat_manager.h"
#include "client/chats/chat_window.h"
#include "kit/settings/settings.h"

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <gtest/gtest.h>

#include <array>
#include <fcntl.h>
#include <memory>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using zepa::ChatManager;

namespace {

constexpr QChar replacement(QChar::ReplacementCharacter);

/// Counts how often somebody opens a file.
class Opened
{
public:
    explicit Opened(const QString& file)
    {
        EXPECT_GE(inotify_add_watch(m_events, QFile::encodeName(file).constData(), IN_OPEN), 0);
    }
    ~Opened() { close(m_events); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    int count()
    {
        alignas(inotify_event) std::array<char, 4096> buffer{};
        for (ssize_t size = 0; (size = read(m_events, buffer.data(), buffer.size())) > 0;)
            m_count += int(size / ssize_t(sizeof(inotify_event)));
        return m_count;
    }

private:
    int m_events = inotify_init1(IN_NONBLOCK);
    int m_count = 0;
};

class HostileMessages : public testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("XDG_DATA_HOME", folder.path().toUtf8());
        ASSERT_TRUE(QDir().mkpath(icons));
        settings = std::make_unique<zepa::Settings>(folder.filePath(u"settings"_s));
        open(u"Anna"_s);
    }
    void TearDown() override { ChatManager::instance().closeAll(); }

    void open(const QString& name)
    {
        window = ChatManager::instance().open(ZepaBuddy(u"anna"_s, name, ZepaBuddy::Contact));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
        history = window->findChild<zepa::ChatHistory*>();
    }

    /// The text of the last line, behind author and time.
    QString shown()
    {
        // What is in the document must also survive being drawn.
        EXPECT_FALSE(window->grab().isNull());
        return history->document()->lastBlock().text().section(QChar(QChar::LineSeparator), 1);
    }

    QString spoken()
    {
        auto* live = window->findChild<QWidget*>(u"live"_s);
        return QAccessible::queryAccessibleInterface(live)->text(QAccessible::Name);
    }

    QTemporaryDir folder;
    QString icons = folder.filePath(u"zepa/themes/icons/default/icons/"_s);
    std::unique_ptr<zepa::Settings> settings;
    zepa::ChatWindow* window = nullptr;
    zepa::ChatHistory* history = nullptr;
};

} // namespace

TEST_F(HostileMessages, ControlCharactersAndHalvesOfCharactersAreShownAsReplacements)
{
    QString sent = u"a?b?c?d?e"_s;
    sent[1] = QChar::Null;
    sent[3] = QChar(0x1b);
    sent[5] = QChar(0xd800);
    sent[7] = QChar(0xdc00);

    window->receiveMessage(sent);
    const QString clean = u"a"_s + replacement + u'b' + replacement + u'c' + replacement + u'd' + replacement + u'e';
    EXPECT_EQ(shown(), clean);
    EXPECT_TRUE(spoken().endsWith(clean));
    window->notifyMessage(sent);
    EXPECT_TRUE(history->document()->lastBlock().text().endsWith(clean));
    EXPECT_TRUE(history->toPlainText().isValidUtf16());
}

TEST_F(HostileMessages, ANameOfSuchCharactersIsShownOnOneLineEverywhere)
{
    open(QString::fromUtf16(u"An\0\n\xd800\u202e[*]na", 11));
    const QString name = u"An"_s + replacement + u' ' + replacement + u"[*]na"_s;
    window->receiveMessage(u"hello"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(history)->text(QAccessible::Name), u"Conversation with "_s + name);
    EXPECT_TRUE(history->document()->lastBlock().text().contains(name));
    EXPECT_EQ(shown(), u"hello"_s);
}

TEST_F(HostileMessages, APipeOfTheThemeIsNeverOpened)
{
    const QString pipe = icons + u"pipe.png"_s;
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    Opened opened(pipe);
    const QString marker = u"image:%1:image"_s.arg(pipe);
    window->receiveMessage(marker);
    EXPECT_EQ(shown(), marker);
    window->notifyMessage(marker);
    window->showSentMessage(marker);
    EXPECT_EQ(opened.count(), 0);
    // The counter counts.
    const int end = ::open(QFile::encodeName(pipe).constData(), O_RDONLY | O_NONBLOCK);
    EXPECT_EQ(opened.count(), 1);
    close(end);
}

TEST_F(HostileMessages, AFileOutsideOfTheThemeIsNeverOpened)
{
    const QString secret = folder.filePath(u"secret.png"_s);
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(secret));
    ASSERT_TRUE(QFile::link(secret, icons + u"link.png"_s));
    Opened opened(secret);
    for (const QString& address : {secret, icons + u"../../../../../secret.png"_s, icons + u"link.png"_s,
                                   u"file://"_s + secret, u"qrc:/.."_s + secret}) {
        const QString marker = u"image:%1:image"_s.arg(address);
        window->receiveMessage(marker + u" <img src=\"%1\">"_s.arg(address));
        EXPECT_TRUE(shown().startsWith(marker)) << address.toStdString();
    }
    EXPECT_EQ(opened.count(), 0);
}

TEST_F(HostileMessages, AThousandLinesAreShownAndTheLastIsInSight)
{
    for (int i = 1; i <= 1000; ++i)
        window->receiveMessage(u"line %1"_s.arg(i));
    EXPECT_EQ(history->document()->blockCount(), 1000);
    EXPECT_EQ(shown(), u"line 1000"_s);
    EXPECT_TRUE(history->document()->firstBlock().text().endsWith(u"line 1"_s));
    EXPECT_EQ(history->verticalScrollBar()->value(), history->verticalScrollBar()->maximum());
    QTextCursor last(history->document());
    last.movePosition(QTextCursor::End);
    EXPECT_TRUE(history->viewport()->rect().contains(history->cursorRect(last)));
}

TEST_F(HostileMessages, ATextFromRightToLeftStandsAtTheRight)
{
    window->receiveMessage(u"\u05e9\u05dc\u05d5\u05dd"_s);
    const QTextBlock line = history->document()->lastBlock();
    EXPECT_EQ(line.blockFormat().layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(shown(), u"\u05e9\u05dc\u05d5\u05dd"_s);
    QTextCursor end(history->document());
    end.movePosition(QTextCursor::End);
    EXPECT_GT(history->cursorRect(end).x(), history->viewport()->width() / 2);
    window->receiveMessage(u"hello"_s);
    end.movePosition(QTextCursor::End);
    EXPECT_LT(history->cursorRect(end).x(), history->viewport()->width() / 2);
}
