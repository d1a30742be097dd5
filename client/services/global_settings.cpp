// SPDX-License-Identifier: Apache-2.0
#include "client/services/global_settings.h"

#include "client/services/themes.h"

#include <QCoreApplication>

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
        ZepaField::spinBox(translated("Drop repeats for"), QStringLiteral("duplicated_notifications_time"), 300, 0, 5,
                           translated("The same event with the same title is announced once in this time."),
                           translated(" s")),
        ZepaField::comboBox(translated("Alert sounds"), QStringLiteral("alerts"),
                            {QStringLiteral("never"), QStringLiteral("always"), QStringLiteral("buddies_only")},
                            {translated("Mute"), translated("Notify always"), translated("Notify from buddies only")},
                            QStringLiteral("buddies_only"), translated("Whose alerts make a sound.")),
        theme(QStringLiteral("icon_theme"), translated("Pictures"), ThemeKind::Icons),
        theme(QStringLiteral("roster_theme"), translated("Contact list pictures"), ThemeKind::Roster),
        theme(QStringLiteral("sound_theme"), translated("Sounds"), ThemeKind::Sounds),
    };
}

} // namespace zepa
