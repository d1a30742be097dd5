// SPDX-License-Identifier: Apache-2.0
#include "kit/settings/global_settings.h"

#include "core/repeat_rule.h"
#include "kit/settings/themes.h"
#include "methods/sound_rule.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("settings", text);
}

ZepaField theme(const QString& id, const QString& label, ThemeKind kind)
{
    const QStringList names = themeNames(kind);
    return ZepaField::comboBox(label, id, names, names, QString::fromUtf16(defaultTheme), {});
}

} // namespace

QList<ZepaField> globalSettings()
{
    return {
        ZepaRepeatRule::setting(translated(QT_TRANSLATE_NOOP("settings", "Drop repeats for")),
                                translated(QT_TRANSLATE_NOOP(
                                    "settings", "The same event with the same title is announced once in this time.")),
                                translated(QT_TRANSLATE_NOOP("settings", " s"))),
        ZepaSoundRule::alertSetting(translated(QT_TRANSLATE_NOOP("settings", "Alert sounds")),
                                    {translated(QT_TRANSLATE_NOOP("settings", "Mute")),
                                     translated(QT_TRANSLATE_NOOP("settings", "Notify always")),
                                     translated(QT_TRANSLATE_NOOP("settings", "Notify from buddies only"))},
                                    translated(QT_TRANSLATE_NOOP("settings", "Whose alerts make a sound."))),
        theme(u"icon_theme"_s, translated(QT_TRANSLATE_NOOP("settings", "Pictures")), ThemeKind::Icons),
        theme(u"roster_theme"_s, translated(QT_TRANSLATE_NOOP("settings", "Contact list pictures")), ThemeKind::Roster),
        theme(u"sound_theme"_s, translated(QT_TRANSLATE_NOOP("settings", "Sounds")), ThemeKind::Sounds),
    };
}

} // namespace zepa
