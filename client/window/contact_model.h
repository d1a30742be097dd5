// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/chats/presence.h"
#include "host/buddy.h"

#include <QAbstractListModel>
#include <QHash>
#include <QIcon>
#include <QList>
#include <QString>

namespace zepa {

struct JournalEntry;

/// Somebody the user knows, or a stranger who wrote.
struct Contact
{
    ZepaBuddy buddy;
    Presence presence = Presence::Unavailable;
    QString status; ///< what the contact says of it

    bool isStranger() const { return buddy.getType() == ZepaBuddy::NotOnContactList; }
};

/// The contact list: a fixed one, since there is no network behind this client. Identifiers are names, as on the
/// command line, so that `zepa post --buddy Ann` means the same Ann.
class ContactModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit ContactModel(QObject* parent = nullptr);

    const Contact& contact(int row) const { return m_contacts.at(row); }
    /// The contact with that identifier; null when it is nobody's. Valid until control returns to the event loop.
    const Contact* find(const QString& id) const;
    /// Keeps up with what a posting says of a contact, for example that one came online.
    void follow(const JournalEntry& entry);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QIcon picture(const Contact& contact) const;

    QList<Contact> m_contacts;
    /// By path; the theme may change.
    mutable QHash<QString, QIcon> m_pictures;
};

} // namespace zepa
