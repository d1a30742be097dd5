// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/window/window_place.h"

#include <QMainWindow>

class QSplitter;

namespace zepa {

class Client;
class ContactPanel;
class JournalView;
class NoticeBar;
class SettingsDialog;

/// The window that the program opens without a verb: contacts, a simulator of events, and the journal of what became
/// of them.
///
/// It needs the settings alone to be shown: it is filled on its way to the screen, and starts the client after its
/// first picture. Closing hides it where there is a status area, from whose icon it comes back, and ends the program
/// elsewhere.
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /// The client must outlive the window.
    explicit MainWindow(Client& client);
    /// Keeps the window's place for the next time.
    ~MainWindow() override;
    Q_DISABLE_COPY_MOVE(MainWindow)

    /// Shows it, whether hidden, minimised or covered.
    void bringToFront();
    /// Shows the window with the rules; it is made when it is first asked for.
    void openNotificationSettings();
    /// Shows something that the user should know once.
    void tell(const QString& text);

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void fill();
    void fillMenus();
    void keepPlace();
    void startClient();
    void tellAboutStart();

    Client& m_client;
    const WindowPlace m_place;
    /// Null until it is filled.
    QSplitter* m_splitter = nullptr;
    NoticeBar* m_notice = nullptr;
    ContactPanel* m_contacts = nullptr;
    JournalView* m_journal = nullptr;
    SettingsDialog* m_notificationSettings = nullptr;
    bool m_wasPainted = false;
};

} // namespace zepa
