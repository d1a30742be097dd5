// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDialog>

namespace zepa {

class Client;
class NotificationSettings;

/// The window with the notification settings. Closing it only hides it.
class SettingsDialog final : public QDialog
{
    Q_OBJECT

public:
    /// The client must have started, and must outlive the window.
    explicit SettingsDialog(Client& client, QWidget* parent = nullptr);

public Q_SLOTS:
    /// Shows what someone else changed meanwhile. The window does it by itself when it is activated, and after each
    /// command that was handed over by another start of the program.
    void refresh();

private:
    NotificationSettings* m_page;
};

} // namespace zepa
