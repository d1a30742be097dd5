// SPDX-License-Identifier: Apache-2.0
#include "client/ui/main/main_window.h"

#include "client/client.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QSystemTrayIcon>
#include <QTimer>

namespace zepa {

MainWindow::MainWindow(Client& client) : m_client(client)
{
    setWindowTitle(QStringLiteral("Zepa"));
    fillMenus();
}

void MainWindow::bringToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

bool MainWindow::event(QEvent* event)
{
    const bool done = QMainWindow::event(event);
    if (event->type() == QEvent::Paint && !m_wasPainted) {
        m_wasPainted = true;
        QTimer::singleShot(0, this, &MainWindow::startClient);
    }
    return done;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        event->ignore();
        hide();
        return;
    }
    event->accept();
    QCoreApplication::quit();
}

void MainWindow::fillMenus()
{
    QMenu* program = menuBar()->addMenu(tr("&Zepa"));
    QAction* quit = program->addAction(tr("&Quit"), qApp, &QCoreApplication::quit);
    quit->setShortcut(QKeySequence::Quit);
}

void MainWindow::startClient()
{
    m_client.start();
}

} // namespace zepa
