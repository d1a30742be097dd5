// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/type_ids.h"
#include "host/field.h"
#include "host/settings_manager.h"

#include <QFileInfo>
#include <QString>
#include <QStringList>

/// Which file a rule of the sound method plays, and which alerts may sound.
namespace ZepaSoundRule {

/// Whether the setting for alerts holds for this type.
inline bool isAlert(const QString& typeId)
{
    return typeId == ZepaTypeId::alertReceived;
}

/// The client's setting "alerts" with its initial value; the texts are for a window that shows it. There are three
/// labels, for "never", "always" and "buddies_only", or none.
inline ZepaField alertSetting(const QString& label, const QStringList& itemLabels, const QString& description)
{
    using namespace Qt::StringLiterals;
    return ZepaField::comboBox(label, u"alerts"_s, {u"never"_s, u"always"_s, u"buddies_only"_s}, itemLabels,
                               u"buddies_only"_s, description);
}

enum class AlertSound {
    Allowed,
    Muted,            ///< for all, also where the setting has a value that it does not offer
    MutedForStrangers ///< for those who are not on the contact list
};

/// What the value of that setting means for an alert.
inline AlertSound alertSound(const QString& setting, bool isFromStranger)
{
    using namespace Qt::StringLiterals;
    if (setting == u"always"_s)
        return AlertSound::Allowed;
    if (setting != u"buddies_only"_s)
        return AlertSound::Muted;
    return isFromStranger ? AlertSound::MutedForStrangers : AlertSound::Allowed;
}

/// The path of the file that a rule names: relative to the sound theme, unless it is absolute.
inline QString pathOf(const QString& file)
{
    return QFileInfo(file).isRelative() ? ZepaSettingsManager::getInstance()->getCurrentSoundThemeDir() + file : file;
}

} // namespace ZepaSoundRule
