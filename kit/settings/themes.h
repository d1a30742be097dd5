// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QString>
#include <QStringList>

/// Folders of pictures and sounds. The user's own, $XDG_DATA_HOME/zepa/themes/KIND/NAME/, come before the installed
/// ones of the same name.
namespace zepa {

enum class ThemeKind { Icons, Roster, Sounds };

/// The name of the theme that is there from the start.
inline constexpr char16_t defaultTheme[] = u"default";

/// The folder of the theme, with a separator at its end. The default theme's when there is no theme of that name; its
/// place in the installed themes when even that is missing.
ZEPA_KIT_EXPORT QString themeFolder(ThemeKind kind, const QString& name);

/// The names of all themes of that kind, sorted, the default one always among them.
ZEPA_KIT_EXPORT QStringList themeNames(ThemeKind kind);

/// Where the installed themes are, with a separator at the end: PREFIX/share/zepa/themes/ next to the program, in a
/// build tree the source tree's client/themes/.
ZEPA_KIT_EXPORT QString installedThemes();

} // namespace zepa
