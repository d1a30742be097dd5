// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QLoggingCategory>

/// Everything that the audio service has to say goes through this category, "zepa.audio".
Q_DECLARE_LOGGING_CATEGORY(lcZepaAudio)
