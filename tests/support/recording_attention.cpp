// SPDX-License-Identifier: Apache-2.0
#include "recording_attention.h"

#include <zepa_platform/attention.h>

int RecordingAttention::requests = 0;

void zepaRequestAttention()
{
    ++RecordingAttention::requests;
}
