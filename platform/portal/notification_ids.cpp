// SPDX-License-Identifier: Apache-2.0
#include "notification_ids.h"

#include <QUuid>

namespace zepa::portal {

NotificationIds::NotificationIds() : m_prefix(QUuid::createUuid().toString(QUuid::WithoutBraces) + u'.')
{}

growl::PopupId NotificationIds::popupOf(const QString& id) const
{
    if (!id.startsWith(m_prefix))
        return 0;
    const growl::PopupId popup = QStringView(id).sliced(m_prefix.size()).toULongLong();
    // Reading numbers is generous: with zeros in front, "1" would have many names.
    return id == idOf(popup) ? popup : 0;
}

} // namespace zepa::portal
