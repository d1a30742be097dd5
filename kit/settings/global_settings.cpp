// SPDX-License-Identifier: Apache-2.0
#include "kit/settings/global_settings.h"

#include "kit/settings/themes.h"

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
        ZepaField::spinBox(translated(QT_TRANSLATE_NOOP("settings", "Drop repeats for")),
                           u"duplicated_notifications_time"_s, 300, 0, 5,
                           translated(QT_TRANSLATE_NOOP(
                               "settings", "The same event with the same title is announced once in this time.")),
                           translated(QT_TRANSLATE_NOOP("settings", " s"))),
        ZepaField::comboBox(translated(QT_TRANSLATE_NOOP("settings", "Alert sounds")), u"alerts"_s,
                            {u"never"_s, u"always"_s, u"buddies_only"_s},
                            {translated(QT_TRANSLATE_NOOP("settings", "Mute")),
                             translated(QT_TRANSLATE_NOOP("settings", "Notify always")),
                             translated(QT_TRANSLATE_NOOP("settings", "Notify from buddies only"))},
                            u"buddies_only"_s, translated(QT_TRANSLATE_NOOP("settings", "Whose alerts make a sound."))),
        theme(u"icon_theme"_s, translated(QT_TRANSLATE_NOOP("settings", "Pictures")), ThemeKind::Icons),
        theme(u"roster_theme"_s, translated(QT_TRANSLATE_NOOP("settings", "Contact list pictures")), ThemeKind::Roster),
        theme(u"sound_theme"_s, translated(QT_TRANSLATE_NOOP("settings", "Sounds")), ThemeKind::Sounds),
    };
}

} // namespace zepa
