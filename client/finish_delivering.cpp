// SPDX-License-Identifier: Apache-2.0
#include "client/finish_delivering.h"

#include "client/client.h"
#include "kit/journal/event_wait.h"
#include "kit/journal/notification_service.h"
#include "kit/sound/audio_service.h"

#include <chrono>

namespace zepa {

void finishDelivering(const Client& client)
{
    flushPopups();
    handleEventsUntil([] { return audio::AudioService::instance().unfinished() == 0; }, std::chrono::seconds(10));
    handleEventsUntil([&client] { return client.extraMethods().unspoken() == 0; }, std::chrono::seconds(30));
}

} // namespace zepa
