// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLoggingCategory>

/// What happens between this process and the session bus: never the text of a message.
Q_DECLARE_LOGGING_CATEGORY(busLog)
