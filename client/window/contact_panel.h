// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/window/contact_model.h"

#include <QWidget>

class QListView;
class QMenu;

namespace zepa {

class Client;
class Simulator;

/// The contact list, and below it what can be simulated for the chosen contact.
class ContactPanel final : public QWidget
{
    Q_OBJECT

public:
    /// The client must outlive this.
    explicit ContactPanel(Client& client, QWidget* parent = nullptr);

    /// Opens the chat with the chosen contact.
    void openChat();
    /// Fills the menu with what can be done with the chosen contact.
    void fill(QMenu& menu);

private:
    void openChatWith(const ZepaBuddy& buddy);
    void showMenu(const QPoint& position);

    ContactModel m_contacts;
    QListView* m_list;
    Simulator* m_simulator;
};

} // namespace zepa
