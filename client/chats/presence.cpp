// SPDX-License-Identifier: Apache-2.0
#include "client/chats/presence.h"

#include "core/type_ids.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace zepa {

std::optional<Presence> presenceAfter(const QString& typeId)
{
    if (typeId == ZepaTypeId::buddyConnected)
        return Presence::Available;
    if (typeId == ZepaTypeId::buddyWentAway)
        return Presence::Away;
    if (typeId == ZepaTypeId::buddyWentOffline)
        return Presence::Unavailable;
    return std::nullopt;
}

QString presenceText(Presence presence)
{
    switch (presence) {
    case Presence::Available:
        return QCoreApplication::translate("presence", "available");
    case Presence::Away:
        return QCoreApplication::translate("presence", "away");
    case Presence::Unavailable:
        break;
    }
    return QCoreApplication::translate("presence", "not available");
}

QString presencePicture(Presence presence)
{
    switch (presence) {
    case Presence::Available:
        return u"icons/avail.png"_s;
    case Presence::Away:
        return u"icons/away.png"_s;
    case Presence::Unavailable:
        break;
    }
    return u"icons/unavail.png"_s;
}

} // namespace zepa
