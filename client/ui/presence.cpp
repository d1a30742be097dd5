// SPDX-License-Identifier: Apache-2.0
#include "client/ui/presence.h"

#include <QCoreApplication>

namespace zepa {

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
        return QStringLiteral("icons/avail.png");
    case Presence::Away:
        return QStringLiteral("icons/away.png");
    case Presence::Unavailable:
        break;
    }
    return QStringLiteral("icons/unavail.png");
}

} // namespace zepa
