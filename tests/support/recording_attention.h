// SPDX-License-Identifier: Apache-2.0
#pragma once

/// How often the library asked for attention. zepaRequestAttention() is defined here in place of the platform's.
struct RecordingAttention
{
    static int requests;
};
