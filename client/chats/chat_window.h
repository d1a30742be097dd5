// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/chats/chat_line.h"
#include "client/chats/presence.h"
#include "host/buddy.h"
#include "host/chat_window.h"
#include "kit/kit_export.h"

#include <QWidget>

class QLineEdit;

namespace zepa {

class ChatHeader;
class ChatHistory;
class ScreenReaderText;

/// The window of one conversation. Made and owned by ChatManager.
///
/// Enter sends what is in the input line, Page Up and Page Down move the history from there, Escape closes. Every new
/// line is told to screen readers; what the user sent is not repeated to them.
class ZEPA_KIT_EXPORT ChatWindow final : public QWidget, public ZepaChatWindow
{
    Q_OBJECT

public:
    explicit ChatWindow(const ZepaBuddy& buddy, QWidget* parent = nullptr);

    ZepaBuddy buddy() const;
    /// Shows the name of `buddy`, who is the same person as before.
    void setBuddy(const ZepaBuddy& buddy);
    void setPresence(Presence presence);

    /// Shows what the buddy wrote.
    void receiveMessage(const QString& text);
    /// Shows what the user wrote in another place, as if it had been written here.
    void showSentMessage(const QString& text);
    /// An information line; see ZepaChatWindow.
    void notifyMessage(const QString& text) override;

Q_SIGNALS:
    /// The user sent this; the window already shows it. Never empty or only spaces.
    void messageEntered(const QString& text);
    /// The window was closed and is not shown any more.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addLine(ChatLine::Kind kind, const QString& author, const QString& text);
    void send();

    ZepaBuddy m_buddy;
    ChatHeader* m_header;
    ChatHistory* m_history;
    ScreenReaderText* m_live;
    QLineEdit* m_input;
};

} // namespace zepa
