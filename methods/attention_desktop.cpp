// SPDX-License-Identifier: Apache-2.0
#include "methods/taskbar_notification_method.h"

#include <zepa_platform/attention.h>

void bounceDockIcon()
{
    zepaRequestAttention();
}
