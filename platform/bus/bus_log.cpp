// SPDX-License-Identifier: Apache-2.0
#include "bus/bus_log.h"

Q_LOGGING_CATEGORY(busLog, "zepa.platform.bus", QtInfoMsg)
