// SPDX-License-Identifier: Apache-2.0
#include "client/window/contact_panel.h"

#include "client/chats/chat_manager.h"
#include "client/chats/chat_window.h"
#include "client/client.h"
#include "client/window/client_requests.h"
#include "client/window/simulator.h"

#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QVBoxLayout>

namespace zepa {

ContactPanel::ContactPanel(Client& client, QWidget* parent)
    : QWidget(parent), m_list(new QListView(this)), m_simulator(new Simulator(client, this))
{
    m_list->setModel(&m_contacts);
    m_list->setIconSize({22, 22});
    m_list->setUniformItemSizes(true);
    m_list->setAccessibleName(tr("Contacts"));
    setFocusProxy(m_list);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    auto* heading = new QLabel(tr("C&ontacts"), this);
    heading->setBuddy(m_list);

    auto* column = new QVBoxLayout(this);
    // Right to left, a splitter cuts one pixel off.
    column->setContentsMargins(1, 0, 1, 0);
    column->addWidget(heading);
    column->addWidget(m_list, 1);
    column->addWidget(m_simulator);

    connect(m_list, &QListView::activated, this, &ContactPanel::openChat);
    connect(m_list, &QWidget::customContextMenuRequested, this, &ContactPanel::showMenu);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& now) { m_simulator->setContact(m_contacts.contact(now.row()).buddy); });
    connect(m_simulator, &Simulator::clicked, this, &ContactPanel::openChatWith);
    connect(&client.journal(), &QAbstractItemModel::rowsInserted, this,
            [this, &client](const QModelIndex&, int, int last) { m_contacts.follow(client.journal().entry(last)); });
    m_list->setCurrentIndex(m_contacts.index(0));
}

void ContactPanel::openChat()
{
    openChatWith(m_contacts.contact(m_list->currentIndex().row()).buddy);
}

void ContactPanel::openChatWith(const ZepaBuddy& buddy)
{
    if (buddy.getId().isEmpty()) {
        Q_EMIT ClientRequests::instance().show();
        return;
    }
    ChatWindow* window = ChatManager::instance().open(buddy);
    if (const Contact* contact = m_contacts.find(buddy.getId()))
        window->setPresence(contact->presence);
}

void ContactPanel::fill(QMenu& menu)
{
    menu.addAction(tr("Open the &chat"), this, &ContactPanel::openChat);
    menu.addSeparator();
    m_simulator->fill(menu);
}

void ContactPanel::showMenu(const QPoint& position)
{
    // From the keyboard the place is the list's middle, wherever the contact is.
    const QRect item = m_list->visualRect(m_list->currentIndex());
    const QPoint place = m_list->indexAt(position).isValid() ? position : item.center();
    QMenu menu(this);
    fill(menu);
    menu.exec(m_list->viewport()->mapToGlobal(place));
}

} // namespace zepa
