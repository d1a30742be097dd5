// SPDX-License-Identifier: Apache-2.0
#include "kit/settings/settings.h"

#include "kit/files/private_folder.h"
#include "kit/settings/global_settings.h"
#include "kit/settings/hidden_rule_folder.h"
#include "kit/values/field_value.h"

#include <QDir>
#include <QFileInfo>
#include <QMetaType>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

Settings* current = nullptr;

/// The absolute path with a separator at its end.
QString asFolder(const QString& path)
{
    const QString clean = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    return clean.endsWith(u'/') ? clean : clean + u'/';
}

} // namespace

Settings::Settings(const QString& folder) : m_folder(asFolder(folder)), m_file(m_folder)
{
    makePrivateFolder(m_folder + u"notifications"_s);

    const auto stored = m_file.read();
    m_isReadable = stored.has_value();
    const QVariantHash values = stored.value_or(QVariantHash());
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        // A comma without quotes makes a list of a value, which is nobody's text.
        if (value->metaType() == QMetaType::fromType<QString>())
            m_values.insert(value.key(), value->toString());
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
    const QFileInfo notifications(m_folder + u"notifications"_s);
    return notifications.isDir() && notifications.isWritable();
}

bool Settings::hasRuleFolder() const
{
    return QFileInfo(m_folder + u"notifications"_s).isDir();
}

QString Settings::getSettingsDir() const
{
    // No file has others below it.
    return HiddenRuleFolder::isActive() ? u"/dev/null/"_s : m_folder;
}

QString Settings::getCurrentThemeDir() const
{
    return currentTheme(ThemeKind::Icons, u"icon_theme"_s);
}

QString Settings::getCurrentRosterThemeDir() const
{
    return currentTheme(ThemeKind::Roster, u"roster_theme"_s);
}

QString Settings::getCurrentSoundThemeDir() const
{
    return currentTheme(ThemeKind::Sounds, u"sound_theme"_s);
}

ZepaField Settings::readGlobalSetting(const ZepaField& field) const
{
    ZepaField answer = field;
    const auto value = m_values.constFind(field.getId());
    if (value == m_values.cend())
        return answer;
    if (fieldAllows(field, *value))
        answer.setText(*value);
    else if (field.getId() == u"alerts"_s && field.getType() == ZepaField::ComboBox)
        // What a choice that nobody offers means is the library's to say.
        answer = ZepaField::comboBox(field.getLabel(), field.getId(), field.getItemIds(), field.getItemLabels(), *value,
                                     field.getDescription());
    return answer;
}

QList<ZepaField> Settings::offered() const
{
    return globalSettings();
}

SettingStore::Outcome Settings::tryToStore(const ZepaField& field, const QString& value)
{
    if (!fieldAllows(field, value))
        return Outcome::Failed;
    const Outcome outcome = m_file.change({{field.getId(), value}});
    if (outcome == Outcome::Done)
        m_values.insert(field.getId(), value);
    return outcome;
}

bool Settings::store(const ZepaField& field, const QString& value)
{
    return tryToStore(field, value) == Outcome::Done;
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
