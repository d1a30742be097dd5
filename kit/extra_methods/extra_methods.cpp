// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/extra_methods.h"

#include "core/notification_module.h"

namespace zepa {

void ExtraMethods::installIn(ZepaNotificationModule& module)
{
    module.installNotificationMethod(&m_speech);
    module.installNotificationMethod(&m_logFile);
    module.installNotificationMethod(&m_command);
}

} // namespace zepa
