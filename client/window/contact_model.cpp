// SPDX-License-Identifier: Apache-2.0
#include "client/window/contact_model.h"

#include "core/type_ids.h"
#include "host/settings_manager.h"
#include "kit/journal/journal_entry.h"
#include "kit/texts/message_text.h"
#include "kit/texts/plain_text.h"
#include "kit/widgets/theme_pictures.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

Contact friendNamed(const QString& name, Presence presence)
{
    return {ZepaBuddy(name, name, ZepaBuddy::Contact), presence, {}};
}

} // namespace

ContactModel::ContactModel(QObject* parent) : QAbstractListModel(parent)
{
    const QString stranger = u"lottery@example.net"_s;
    m_contacts = {
        friendNamed(u"Ann"_s, Presence::Available),
        friendNamed(u"Ben"_s, Presence::Unavailable),
        friendNamed(u"Chiara"_s, Presence::Away),
        friendNamed(u"Dmitri"_s, Presence::Available),
        friendNamed(u"Ewa"_s, Presence::Unavailable),
        {ZepaBuddy(stranger, stranger, ZepaBuddy::NotOnContactList), Presence::Unavailable, {}},
    };
}

const Contact* ContactModel::find(const QString& id) const
{
    const auto found = std::find_if(m_contacts.cbegin(), m_contacts.cend(),
                                    [&id](const Contact& contact) { return contact.buddy.getId() == id; });
    return found == m_contacts.cend() ? nullptr : &*found;
}

void ContactModel::follow(const JournalEntry& entry)
{
    const auto found = std::find_if(m_contacts.begin(), m_contacts.end(), [&entry](const Contact& contact) {
        return !entry.who.isEmpty() && contact.buddy.getName() == entry.who;
    });
    if (found == m_contacts.end())
        return;
    if (const auto presence = presenceAfter(entry.type))
        found->presence = *presence;
    else if (entry.type == ZepaTypeId::buddyChangedStatus)
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
    const QString whole = who.status.isEmpty() ? text : text + u": "_s + who.status;
    return role == Qt::ToolTipRole ? plainToolTip(whole) : whole;
}

QIcon ContactModel::picture(const Contact& who) const
{
    const QString file = who.isStranger() ? u"icons/unknown.png"_s : presencePicture(who.presence);
    const QString path = ZepaSettingsManager::getInstance()->getCurrentRosterThemeDir() + file;
    const auto known = m_pictures.constFind(path);
    return known != m_pictures.cend() ? *known : *m_pictures.insert(path, themeIcon(path));
}

} // namespace zepa
