// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/ui/main/window_place.h"

#include <QMainWindow>

class QSplitter;

namespace zepa {

class Client;
class ContactPanel;
class JournalView;
class NoticeBar;
class NotificationSettings;

/// The window that the program opens without a verb: contacts, a simulator of events, and the journal of what became
/// of them.
///
/// It is shown with the settings alone, and starts the client once it stands on the screen. Closing hides it where
/// there is a status area, from whose icon it comes back, and ends the program elsewhere.
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
    void fillMenus();
    void takeItsPlace();
    void keepPlace();
    void startClient();

    Client& m_client;
    const WindowPlace m_place;
    QSplitter* m_splitter;
    NoticeBar* m_notice;
    ContactPanel* m_contacts;
    JournalView* m_journal;
    NotificationSettings* m_notificationSettings = nullptr;
    bool m_wasPainted = false;
};

} // namespace zepa
