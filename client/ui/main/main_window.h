// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QMainWindow>

class QAction;

namespace zepa {

class Client;

/// The window that the program opens without a verb.
///
/// It is shown with the settings alone, and starts the client once it stands on the screen. Closing hides it where
/// there is a status area, from whose icon it comes back, and ends the program elsewhere.
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    /// The client must outlive the window.
    explicit MainWindow(Client& client);

    /// Shows it, whether hidden, minimised or covered.
    void bringToFront();

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void fillMenus();
    void startClient();

    Client& m_client;
    bool m_wasPainted = false;
};

} // namespace zepa
