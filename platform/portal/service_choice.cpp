// SPDX-License-Identifier: Apache-2.0
#include "service_choice.h"

#include <QByteArray>
#include <QFile>
#include <QtGlobal>

using namespace Qt::StringLiterals;

namespace zepa::portal {

ProcessFacts ProcessFacts::ofThisProcess()
{
    // Flatpak puts this file into the root folder of each sandbox, Snap this variable into each environment.
    return {.wantsPortal = qgetenv("ZEPA_POPUPS") == "portal",
            .isSandboxed = !qEnvironmentVariableIsEmpty("SNAP") || QFile::exists(u"/.flatpak-info"_s)};
}

ServiceChoice choose(const ProcessFacts& process, const NameFacts& name)
{
    if (process.wantsPortal)
        return ServiceChoice::Portal;
    if (!process.isSandboxed || name.hasOwner || name.isActivatable.value_or(false))
        return ServiceChoice::Notifications;
    if (!name.isOwnerKnown || !name.isActivatable)
        return ServiceChoice::NotKnownYet;
    return ServiceChoice::Portal;
}

} // namespace zepa::portal
