// SPDX-License-Identifier: Apache-2.0
#include "client/chats/chat_window.h"

#include "client/chats/chat_header.h"
#include "client/chats/chat_history.h"
#include "kit/texts/message_text.h"
#include "kit/widgets/accessible_role.h"
#include "kit/widgets/screen_reader_text.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace zepa {

ChatWindow::ChatWindow(const ZepaBuddy& buddy, QWidget* parent)
    : QWidget(parent)
    , m_header(new ChatHeader(this))
    , m_history(new ChatHistory(this))
    , m_live(new ScreenReaderText(this))
    , m_input(new QLineEdit(this))
{
    setAccessibleRole(*this, QAccessible::Window);
    auto* sendButton = new QPushButton(tr("&Send"), this);
    m_input->setMaxLength(int(longestMessage));
    m_input->setPlaceholderText(tr("Write a message"));
    m_input->installEventFilter(this);
    connect(m_input, &QLineEdit::returnPressed, this, &ChatWindow::send);
    connect(sendButton, &QPushButton::clicked, this, &ChatWindow::send);

    auto* inputRow = new QHBoxLayout;
    inputRow->addWidget(m_input, 1);
    inputRow->addWidget(sendButton);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_header);
    column->addWidget(m_history, 1);
    column->addLayout(inputRow);

    setTabOrder(m_input, sendButton);
    setTabOrder(sendButton, m_history);
    m_input->setFocus();
    const QFontMetrics letters = fontMetrics();
    resize(letters.averageCharWidth() * 60, letters.height() * 26);
    setBuddy(buddy);
}

ZepaBuddy ChatWindow::buddy() const
{
    return m_buddy;
}

void ChatWindow::setBuddy(const ZepaBuddy& buddy)
{
    m_buddy = buddy;
    const QString name = nameText(buddy.getName().isEmpty() ? buddy.getId() : buddy.getName());
    m_header->setName(name);
    m_history->setAccessibleName(tr("Conversation with %1").arg(name));
    m_input->setAccessibleName(tr("Message to %1").arg(name));
    // Qt takes "[*]" in a title for the sign of unsaved changes; doubled, it is itself.
    setWindowTitle(QString(name).replace(u"[*]"_s, u"[*][*]"_s));
}

void ChatWindow::setPresence(Presence presence)
{
    m_header->setPresence(presence);
}

void ChatWindow::receiveMessage(const QString& text)
{
    addLine(ChatLine::Kind::Incoming, m_buddy.getName(), text);
    m_live->say(m_history->lastLineAloud());
}

void ChatWindow::showSentMessage(const QString& text)
{
    addLine(ChatLine::Kind::Outgoing, tr("You"), text);
}

void ChatWindow::notifyMessage(const QString& text)
{
    addLine(ChatLine::Kind::Information, {}, text);
    m_live->say(m_history->lastLineAloud());
}

void ChatWindow::addLine(ChatLine::Kind kind, const QString& author, const QString& text)
{
    m_history->append({kind, author, text, QDateTime::currentDateTime()});
}

void ChatWindow::send()
{
    const QString text = m_input->text();
    m_input->setFocus();
    if (text.trimmed().isEmpty())
        return;
    m_input->clear();
    showSentMessage(text);
    Q_EMIT messageEntered(text);
}

void ChatWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    Q_EMIT closed();
}

void ChatWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel))
        close();
    else
        QWidget::keyPressEvent(event);
}

bool ChatWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_input && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
            m_history->verticalScrollBar()->triggerAction(key == Qt::Key_PageUp ? QAbstractSlider::SliderPageStepSub
                                                                                : QAbstractSlider::SliderPageStepAdd);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace zepa
