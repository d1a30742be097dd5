// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"
#include "kit/settings/setting_store.h"

#include <QString>
#include <QVariantHash>

#include <optional>

namespace zepa {

/// "settings.ini": what the user chose for the whole client, and where windows were left. Keys are those of QSettings.
///
/// Several processes may change it at once, and none loses what another one wrote: each change is made to the file as
/// it is then, under a lock of our own ("settings.lock" beside it), and replaces it as a whole. QSettings itself would
/// wait for a lock that anybody can leave behind, and open whatever has the name. Nothing here waits.
class ZEPA_KIT_EXPORT SettingsFile
{
public:
    /// Failed: it cannot be read, is damaged, or cannot be written; it is as it was.
    using Change = SettingStore::Outcome;

    /// The largest file that is read, in bytes.
    static constexpr qint64 mostBytes = qint64{4} * 1024 * 1024;

    /// @param folder  absolute, with a separator at its end
    explicit SettingsFile(const QString& folder);

    const QString& path() const { return m_path; }
    /// All values; none when there is no such file. Nothing when there is one that cannot be read.
    std::optional<QVariantHash> read() const;
    /// Stores these values and leaves all others as they are. A file that is made is its owner's alone.
    Change change(const QVariantHash& values) const;

private:
    QString m_path;
    QString m_lock;
};

} // namespace zepa
