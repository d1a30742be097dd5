// SPDX-License-Identifier: Apache-2.0
#include "client/window/main_window.h"

#include "client/chats/chat_manager.h"
#include "client/client.h"
#include "client/window/client_requests.h"
#include "client/window/contact_panel.h"
#include "client/window/journal_view.h"
#include "client/window/notice_bar.h"
#include "client/window/settings_dialog.h"
#include "core/type_ids.h"
#include "kit/journal/announce.h"
#include "kit/rules/method_titles.h"
#include "kit/rules/rule_lock.h"
#include "kit/widgets/bring_to_front.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QSplitter>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace zepa {

MainWindow::MainWindow(Client& client) : m_client(client), m_place(client.settings(), u"main_window"_s)
{
    setWindowTitle(u"Zepa"_s);
    // Not in letters: to look for a font takes as long as everything else here together.
    constexpr QSize usual(1000, 640);
    resize(usual.boundedTo(screen()->availableSize()));
    m_place.restore(*this);
}

MainWindow::~MainWindow()
{
    keepPlace();
}

void MainWindow::bringToFront()
{
    zepa::bringToFront(*this);
}

void MainWindow::openNotificationSettings()
{
    if (!m_client.hasStarted())
        return m_client.whenStarted(this, [this] { openNotificationSettings(); });
    if (!m_notificationSettings) {
        m_notificationSettings = new SettingsDialog(m_client, this);
    }
    m_notificationSettings->refresh();
    zepa::bringToFront(*m_notificationSettings);
}

void MainWindow::tell(const QString& text)
{
    fill();
    m_notice->tell(text);
}

bool MainWindow::event(QEvent* event)
{
    const bool done = QMainWindow::event(event);
    if (event->type() == QEvent::Show && !m_splitter)
        QTimer::singleShot(0, this, &MainWindow::fill);
    if (event->type() == QEvent::Paint && m_splitter && !m_wasPainted) {
        m_wasPainted = true;
        QTimer::singleShot(0, this, &MainWindow::startClient);
    }
    return done;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    keepPlace();
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        event->ignore();
        hide();
        return;
    }
    event->accept();
    Q_EMIT ClientRequests::instance().quit();
}

/// The window is on its way to the screen by now; the window manager and the server have their part of the work to do
/// meanwhile, and ask for a picture afterwards.
void MainWindow::fill()
{
    if (m_splitter)
        return;
    auto* middle = new QWidget(this);
    m_notice = new NoticeBar(middle);
    m_splitter = new QSplitter(middle);
    m_contacts = new ContactPanel(m_client, m_splitter);
    m_journal = new JournalView(m_client.journal(), m_splitter);
    auto* column = new QVBoxLayout(middle);
    column->addWidget(m_notice);
    column->addWidget(m_splitter, 1);
    setCentralWidget(middle);
    fillMenus();

    m_splitter->setObjectName(u"columns"_s);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setSizes({width() * 3 / 10, width() * 7 / 10});
    m_splitter->setStretchFactor(1, 1);
    m_journal->splitter().setObjectName(u"journal"_s);
    m_place.restore(*m_splitter);
    m_place.restore(m_journal->splitter());

    // What the user writes in a chat is an event, too; the chat window shows it already.
    connect(&ChatManager::instance(), &ChatManager::messageEntered, this,
            [this](const ZepaBuddy& buddy, const QString& text) {
                m_client.whenStarted(this, [this, buddy, text] {
                    announce(m_client.recorder(), {ZepaTypeId::messageSent, buddy.getName(), text, {}, buddy, {}});
                });
            });
    // The window may be active already: what is not shown yet would not get the keyboard.
    middle->show();
    m_contacts->setFocus();
    // A picture in any case, also where there was one without all this.
    update();
}

void MainWindow::fillMenus()
{
    QMenu* program = menuBar()->addMenu(tr("&Zepa"));
    QAction* settings =
        program->addAction(tr("&Notification settings..."), this, &MainWindow::openNotificationSettings);
    settings->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Comma));
    program->addSeparator();
    QAction* quit = program->addAction(tr("&Quit"), this, [] { Q_EMIT ClientRequests::instance().quit(); });
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));

    QMenu* contact = menuBar()->addMenu(tr("&Contact"));
    connect(contact, &QMenu::aboutToShow, this, [this, contact] {
        contact->clear();
        m_contacts->fill(*contact);
    });

    QMenu* journal = menuBar()->addMenu(tr("&Journal"));
    journal->addAction(tr("&Copy the chosen lines"), m_journal, &JournalView::copyChosen);
    journal->addAction(tr("Copy &all lines"), m_journal, &JournalView::copyAll);
    journal->addSeparator();
    journal->addAction(tr("C&lear"), &m_client.journal(), &Journal::clear);
}

void MainWindow::keepPlace()
{
    if (m_splitter)
        m_place.keep(*this, {m_splitter, &m_journal->splitter()});
}

void MainWindow::startClient()
{
    m_client.whenStarted(this, [this] { tellAboutStart(); });
    if (!m_client.hasStarted()) {
        QTimer::singleShot(RuleLock::timeout, this, [this] {
            if (!m_client.hasStarted())
                tell(tr("Another program is changing rules in %1. Events will be announced as soon as it has finished.")
                         .arg(m_client.settings().getSettingsDir()));
        });
    }
}

void MainWindow::tellAboutStart()
{
    QStringList news =
        m_client.ruleBackup().news([this](const QString& type) { return typeName(m_client.module(), type); });
    if (!m_client.settings().isUsable())
        news.prepend((m_client.settings().hasRuleFolder()
                          ? tr("Zepa cannot write to %1: your rules are in use as they are, and changes will not be "
                               "saved.")
                          : tr("Zepa cannot write to %1: the default rules are in use, and changes will not be saved."))
                         .arg(m_client.settings().getSettingsDir()));
    else if (!m_client.settings().isFileReadable())
        news.prepend(tr("The settings file %1 cannot be read, so all settings have their defaults.")
                         .arg(m_client.settings().settingsFile()));
    if (!news.isEmpty())
        tell(news.join(u'\n'));
}

} // namespace zepa
