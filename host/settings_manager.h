// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/host_export.h"

#include <QString>

/// Where the client keeps the user's settings and its themes.
///
/// The client derives one class from this and hands out one object of it for the life of the process.
/// Every directory is returned with a separator at its end, since callers append file names directly; a directory
/// need not exist. The library asks anew each time, so a changed theme takes effect at once.
class ZEPA_HOST_EXPORT ZepaSettingsManager
{
public:
    /// The one settings manager, never null. Defined by the client.
    static ZepaSettingsManager* getInstance();

    /// The user's settings directory. The client has made "notifications/" in it before the library is first used;
    /// the library writes its rule files there and never makes the directory itself.
    virtual QString getSettingsDir() const = 0;
    /// The theme for general pictures. The sound method takes "icons/speaker.png" from it, with a separator of its own.
    virtual QString getCurrentThemeDir() const = 0;
    /// The theme of the contact list, with the presence pictures ("icons/unavail.png").
    virtual QString getCurrentRosterThemeDir() const = 0;
    /// The sound theme; a rule's relative sound file is appended as it stands.
    virtual QString getCurrentSoundThemeDir() const = 0;

protected:
    ~ZepaSettingsManager() = default;
};
