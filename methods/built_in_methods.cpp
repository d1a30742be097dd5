// SPDX-License-Identifier: Apache-2.0
#include "core/built_in_methods.h"

#include "methods/chat_window_notification_method.h"
#include "methods/hint_notification_method.h"
#include "methods/sound_notification_method.h"
#include "methods/taskbar_notification_method.h"

ZepaBuiltInMethods makeBuiltInMethods()
{
    // Braces: made in this order.
    return {new ZepaHintNotificationMethod, new ZepaSoundNotificationMethod, new ZepaChatWindowNotificationMethod,
            new ZepaTaskbarNotificationMethod};
}
