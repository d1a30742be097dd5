// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/notification_service.h"

#include "kit/journal/event_wait.h"

#include <zepa_platform/popups.h>

#include <chrono>

namespace zepa {

void waitForNotificationService()
{
    handleEventsUntil([] { return zepaPopupService() != ZepaPopupService::NotKnownYet; },
                      std::chrono::milliseconds(6000));
}

void flushPopups()
{
    handleEventsUntil([] { return zepaPopupsOnTheirWay() == 0; }, std::chrono::milliseconds(6000));
}

} // namespace zepa
