// SPDX-License-Identifier: Apache-2.0
#include "client/ui/main/contact_model.h"

#include "client/journal/journal_entry.h"
#include "client/texts/plain_text.h"
#include "client/ui/message_text.h"
#include "client/ui/theme_pictures.h"
#include "host/settings_manager.h"

#include <algorithm>

namespace zepa {

namespace {

Contact friendNamed(const QString& name, Presence presence)
{
    return {ZepaBuddy(name, name, ZepaBuddy::Contact), presence, {}};
}

} // namespace

ContactModel::ContactModel(QObject* parent) : QAbstractListModel(parent)
{
    const QString stranger = QStringLiteral("lottery@example.net");
    m_contacts = {
        friendNamed(QStringLiteral("Ann"), Presence::Available),
        friendNamed(QStringLiteral("Ben"), Presence::Unavailable),
        friendNamed(QStringLiteral("Chiara"), Presence::Away),
        friendNamed(QStringLiteral("Dmitri"), Presence::Available),
        friendNamed(QStringLiteral("Ewa"), Presence::Unavailable),
        {ZepaBuddy(stranger, stranger, ZepaBuddy::NotOnContactList), Presence::Unavailable, {}},
    };
}

void ContactModel::follow(const JournalEntry& entry)
{
    const auto found = std::find_if(m_contacts.begin(), m_contacts.end(), [&entry](const Contact& contact) {
        return !entry.who.isEmpty() && contact.buddy.getName() == entry.who;
    });
    if (found == m_contacts.end())
        return;
    if (entry.type == QStringLiteral("buddy_connected"))
        found->presence = Presence::Available;
    else if (entry.type == QStringLiteral("buddy_went_away"))
        found->presence = Presence::Away;
    else if (entry.type == QStringLiteral("buddy_went_offline"))
        found->presence = Presence::Unavailable;
    else if (entry.type == QStringLiteral("buddy_changed_status"))
        found->status = nameText(entry.text);
    else
        return;
    const QModelIndex changed = index(int(found - m_contacts.begin()));
    Q_EMIT dataChanged(changed, changed);
}

int ContactModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_contacts.size());
}

QVariant ContactModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const Contact& who = m_contacts.at(index.row());
    if (role == Qt::DecorationRole)
        return picture(who);
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    const QString presence = who.isStranger() ? tr("stranger") : presenceText(who.presence);
    const QString text = tr("%1 (%2)", "name and presence").arg(who.buddy.getName(), presence);
    const QString whole = who.status.isEmpty() ? text : text + QStringLiteral(": ") + who.status;
    return role == Qt::ToolTipRole ? plainToolTip(whole) : whole;
}

QIcon ContactModel::picture(const Contact& who) const
{
    const QString file = who.isStranger() ? QStringLiteral("icons/unknown.png") : presencePicture(who.presence);
    const QString path = ZepaSettingsManager::getInstance()->getCurrentRosterThemeDir() + file;
    const auto known = m_pictures.constFind(path);
    return known != m_pictures.cend() ? *known : *m_pictures.insert(path, themeIcon(path));
}

} // namespace zepa
