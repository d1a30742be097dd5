// SPDX-License-Identifier: Apache-2.0
// A shown chat window and messages that were written to harm it.
#include "client/services/chat_manager.h"
#include "client/services/settings.h"
#include "client/ui/chat_history.h"
#include "client/ui/chat_window.h"

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
        settings = std::make_unique<zepa::Settings>(folder.filePath(QStringLiteral("settings")));
        open(QStringLiteral("Anna"));
    }
    void TearDown() override { ChatManager::instance().closeAll(); }

    void open(const QString& name)
    {
        window = ChatManager::instance().open(ZepaBuddy(QStringLiteral("anna"), name, ZepaBuddy::Contact));
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
        auto* live = window->findChild<QWidget*>(QStringLiteral("live"));
        return QAccessible::queryAccessibleInterface(live)->text(QAccessible::Name);
    }

    QTemporaryDir folder;
    QString icons = folder.filePath(QStringLiteral("zepa/themes/icons/default/icons/"));
    std::unique_ptr<zepa::Settings> settings;
    zepa::ChatWindow* window = nullptr;
    zepa::ChatHistory* history = nullptr;
};

} // namespace

TEST_F(HostileMessages, ControlCharactersAndHalvesOfCharactersAreShownAsReplacements)
{
    QString sent = QStringLiteral("a?b?c?d?e");
    sent[1] = QChar::Null;
    sent[3] = QChar(0x1b);
    sent[5] = QChar(0xd800);
    sent[7] = QChar(0xdc00);

    window->receiveMessage(sent);
    const QString clean =
        QStringLiteral("a") + replacement + u'b' + replacement + u'c' + replacement + u'd' + replacement + u'e';
    EXPECT_EQ(shown(), clean);
    EXPECT_TRUE(spoken().endsWith(clean));
    window->notifyMessage(sent);
    EXPECT_TRUE(history->document()->lastBlock().text().endsWith(clean));
    EXPECT_TRUE(history->toPlainText().isValidUtf16());
}

TEST_F(HostileMessages, ANameOfSuchCharactersIsShownOnOneLineEverywhere)
{
    open(QString::fromUtf16(u"An\0\n\xd800\u202e[*]na", 11));
    const QString name = QStringLiteral("An") + replacement + u' ' + replacement + QStringLiteral("[*]na");
    window->receiveMessage(QStringLiteral("hello"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(history)->text(QAccessible::Name),
              QStringLiteral("Conversation with ") + name);
    EXPECT_TRUE(history->document()->lastBlock().text().contains(name));
    EXPECT_EQ(shown(), QStringLiteral("hello"));
}

TEST_F(HostileMessages, APipeOfTheThemeIsNeverOpened)
{
    const QString pipe = icons + QStringLiteral("pipe.png");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    Opened opened(pipe);
    const QString marker = QStringLiteral("image:%1:image").arg(pipe);
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
    const QString secret = folder.filePath(QStringLiteral("secret.png"));
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(secret));
    ASSERT_TRUE(QFile::link(secret, icons + QStringLiteral("link.png")));
    Opened opened(secret);
    for (const QString& address :
         {secret, icons + QStringLiteral("../../../../../secret.png"), icons + QStringLiteral("link.png"),
          QStringLiteral("file://") + secret, QStringLiteral("qrc:/..") + secret}) {
        const QString marker = QStringLiteral("image:%1:image").arg(address);
        window->receiveMessage(marker + QStringLiteral(" <img src=\"%1\">").arg(address));
        EXPECT_TRUE(shown().startsWith(marker)) << address.toStdString();
    }
    EXPECT_EQ(opened.count(), 0);
}

TEST_F(HostileMessages, AThousandLinesAreShownAndTheLastIsInSight)
{
    for (int i = 1; i <= 1000; ++i)
        window->receiveMessage(QStringLiteral("line %1").arg(i));
    EXPECT_EQ(history->document()->blockCount(), 1000);
    EXPECT_EQ(shown(), QStringLiteral("line 1000"));
    EXPECT_TRUE(history->document()->firstBlock().text().endsWith(QStringLiteral("line 1")));
    EXPECT_EQ(history->verticalScrollBar()->value(), history->verticalScrollBar()->maximum());
    QTextCursor last(history->document());
    last.movePosition(QTextCursor::End);
    EXPECT_TRUE(history->viewport()->rect().contains(history->cursorRect(last)));
}

TEST_F(HostileMessages, ATextFromRightToLeftStandsAtTheRight)
{
    window->receiveMessage(QStringLiteral("\u05e9\u05dc\u05d5\u05dd"));
    const QTextBlock line = history->document()->lastBlock();
    EXPECT_EQ(line.blockFormat().layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(shown(), QStringLiteral("\u05e9\u05dc\u05d5\u05dd"));
    QTextCursor end(history->document());
    end.movePosition(QTextCursor::End);
    EXPECT_GT(history->cursorRect(end).x(), history->viewport()->width() / 2);
    window->receiveMessage(QStringLiteral("hello"));
    end.movePosition(QTextCursor::End);
    EXPECT_LT(history->cursorRect(end).x(), history->viewport()->width() / 2);
}
