// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/host_export.h"

#include <QString>

/// Plays sound files for the client.
class ZEPA_HOST_EXPORT ZepaAudio
{
public:
    /// The one audio service, never null. Defined by the client.
    static ZepaAudio* getInstance();

    /// Starts to play the file at `path` once and returns at once, never waiting for a disk or a sound server. A path
    /// that is no playable file (missing, a directory, damaged) makes no sound and reports nothing to the caller.
    virtual void playFile(QString path) = 0;

protected:
    ~ZepaAudio() = default;
};
