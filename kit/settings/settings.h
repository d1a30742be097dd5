// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/settings_manager.h"
#include "host/settings_manager_private.h"
#include "kit/kit_export.h"
#include "kit/settings/setting_store.h"
#include "kit/settings/settings_file.h"
#include "kit/settings/themes.h"

#include <QHash>
#include <QString>

namespace zepa {

/// The user's settings in one folder: "settings.ini" with the settings of the whole client, and "notifications/" with
/// the library's rule files.
///
/// While an object of this class lives, it is what ZepaSettingsManager::getInstance() and
/// ZepaSettingsManagerPrivate::settingsMgrPrivInstance give. Make it before the notification module is first used and
/// let it outlive the module. One at a time.
class ZEPA_KIT_EXPORT Settings final : public ZepaSettingsManager,
                                       public ZepaSettingsManagerPrivate,
                                       public SettingStore
{
public:
    /// Reads the settings in `folder` (absolute or relative to the working directory). Creates the folder and its
    /// "notifications/" if missing, accessible to the user only. Later changes of values go through this object.
    explicit Settings(const QString& folder);
    virtual ~Settings();
    Q_DISABLE_COPY_MOVE(Settings)

    /// Whether the folder is there and rule files can be written.
    bool isUsable() const;
    /// Whether there is a folder with rule files, which may hold some also when it cannot be written.
    bool hasRuleFolder() const;
    /// The file with the settings of the whole client. It need not exist.
    const QString& settingsFile() const { return m_file.path(); }
    /// False when there is such a file and it could not be read: every setting has its initial value then.
    bool isFileReadable() const { return m_isReadable; }

    QString getSettingsDir() const override;
    QString getCurrentThemeDir() const override;
    QString getCurrentRosterThemeDir() const override;
    QString getCurrentSoundThemeDir() const override;
    ZepaField readGlobalSetting(const ZepaField& field) const override;

    QList<ZepaField> offered() const override;
    ZepaField value(const ZepaField& field) const override { return readGlobalSetting(field); }
    Outcome tryToStore(const ZepaField& field, const QString& value) override;
    QString location() const override { return m_file.path(); }
    /// tryToStore() for those who take a busy file for one that cannot be written.
    bool store(const ZepaField& field, const QString& value);

private:
    QString currentTheme(ThemeKind kind, const QString& settingId) const;

    const QString m_folder;
    const SettingsFile m_file;
    bool m_isReadable = false;
    QHash<QString, QString> m_values;
};

} // namespace zepa
