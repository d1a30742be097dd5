// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QList>
#include <QString>

namespace zepa {

/// Where a client keeps the settings that hold for all events, as the settings page sees it. `Settings` is one; a
/// client with settings of its own implements it beside the bodies for host/, and both give the same values.
class SettingStore
{
public:
    /// What became of a value that was to be stored.
    enum class Outcome {
        Done,
        Busy,  ///< another process is changing the settings at this moment: try again a little later
        Failed ///< the field does not allow it, or it cannot be written; nothing has changed
    };

    /// The settings that the page offers, translated, with their initial values, in the order in which they are shown.
    virtual QList<ZepaField> offered() const = 0;
    /// The setting that `field` describes, with its current value. Answers from memory.
    virtual ZepaField value(const ZepaField& field) const = 0;
    /// Stores `value` for the setting that `field` describes, in memory and on the disk. Never waits.
    virtual Outcome tryToStore(const ZepaField& field, const QString& value) = 0;
    /// Where the settings are, for messages to the user.
    virtual QString location() const = 0;

protected:
    SettingStore() = default;
    ~SettingStore() = default;
    Q_DISABLE_COPY_MOVE(SettingStore)
};

} // namespace zepa
