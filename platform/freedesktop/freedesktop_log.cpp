// SPDX-License-Identifier: Apache-2.0
#include "freedesktop_log.h"

Q_LOGGING_CATEGORY(freedesktopLog, "zepa.platform", QtInfoMsg)
