// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"
#include "host/host_export.h"

/// Reads the settings that hold for the whole client, as opposed to those of one rule.
class ZEPA_HOST_EXPORT ZepaSettingsManagerPrivate
{
public:
    /// The one object, set by the client before the library's first posting. Never null from then on.
    static ZepaSettingsManagerPrivate* settingsMgrPrivInstance;

    /// Returns `field` with the value that the user stored under the field's identifier, or unchanged when the user
    /// never stored one (so the field's own initial value is the default). A stored value that the field does not
    /// allow counts as never stored, except for "alerts": that choice is handed on as it was stored, and one that is
    /// not among the items stays the selected identifier, which the library takes for silence. Called at every posting:
    /// answer from memory.
    virtual ZepaField readGlobalSetting(const ZepaField& field) const = 0;

protected:
    ~ZepaSettingsManagerPrivate() = default;
};
