// SPDX-License-Identifier: Apache-2.0
#include "kit/sound/audio_log.h"

Q_LOGGING_CATEGORY(lcZepaAudio, "zepa.audio")
