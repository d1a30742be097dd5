// SPDX-License-Identifier: Apache-2.0
#include "client/services/settings.h"

#include "client/services/field_value.h"

#include <QDir>
#include <QFileInfo>
#include <QMetaType>
#include <QSettings>
#include <QVariant>

namespace zepa {

namespace {

Settings* current = nullptr;

} // namespace

Settings::Settings(const QString& folder) : m_folder(QDir::cleanPath(QFileInfo(folder).absoluteFilePath()))
{
    if (!m_folder.endsWith(u'/'))
        m_folder += u'/';
    QDir().mkpath(m_folder + QStringLiteral("notifications"));

    const QSettings file(settingsFile(), QSettings::IniFormat);
    const QStringList keys = file.allKeys();
    for (const QString& key : keys) {
        // A comma without quotes makes a list of a value, which is nobody's text.
        const QVariant value = file.value(key);
        if (value.metaType() == QMetaType::fromType<QString>())
            m_values.insert(key, value.toString());
    }

    Q_ASSERT(!current);
    current = this;
    settingsMgrPrivInstance = this;
}

Settings::~Settings()
{
    current = nullptr;
    settingsMgrPrivInstance = nullptr;
}

bool Settings::isUsable() const
{
    const QFileInfo notifications(m_folder + QStringLiteral("notifications"));
    return notifications.isDir() && notifications.isWritable();
}

QString Settings::settingsFile() const
{
    return m_folder + QStringLiteral("settings.ini");
}

QString Settings::getSettingsDir() const
{
    return m_folder;
}

QString Settings::getCurrentThemeDir() const
{
    return currentTheme(ThemeKind::Icons, QStringLiteral("icon_theme"));
}

QString Settings::getCurrentRosterThemeDir() const
{
    return currentTheme(ThemeKind::Roster, QStringLiteral("roster_theme"));
}

QString Settings::getCurrentSoundThemeDir() const
{
    return currentTheme(ThemeKind::Sounds, QStringLiteral("sound_theme"));
}

ZepaField Settings::readGlobalSetting(const ZepaField& field) const
{
    ZepaField answer = field;
    const auto value = m_values.constFind(field.getId());
    if (value == m_values.cend())
        return answer;
    if (fieldAllows(field, *value))
        answer.setText(*value);
    else if (field.getId() == QStringLiteral("alerts") && field.getType() == ZepaField::ComboBox)
        // What a choice that nobody offers means is the library's to say.
        answer = ZepaField::comboBox(field.getLabel(), field.getId(), field.getItemIds(), field.getItemLabels(), *value,
                                     field.getDescription());
    return answer;
}

bool Settings::store(const ZepaField& field, const QString& value)
{
    if (!fieldAllows(field, value))
        return false;
    QSettings file(settingsFile(), QSettings::IniFormat);
    file.setValue(field.getId(), value);
    file.sync();
    if (file.status() != QSettings::NoError)
        return false;
    m_values.insert(field.getId(), value);
    return true;
}

QString Settings::currentTheme(ThemeKind kind, const QString& settingId) const
{
    return themeFolder(kind, m_values.value(settingId));
}

} // namespace zepa

ZepaSettingsManagerPrivate* ZepaSettingsManagerPrivate::settingsMgrPrivInstance = nullptr;

ZepaSettingsManager* ZepaSettingsManager::getInstance()
{
    if (!zepa::current)
        qFatal("ZepaSettingsManager::getInstance() was called before the client opened its settings");
    return zepa::current;
}
