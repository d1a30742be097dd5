// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QString>

/// Texts that we did not write, in widgets. Qt takes a text that looks like HTML for HTML in tool tips and labels, and
/// opens each file that it names; in buttons, menus and titles an '&' marks a shortcut. These show a text as it stands.
namespace zepa {

/// For a tool tip or a model's Qt::ToolTipRole. At most longestMessage units of the text, then an ellipsis.
ZEPA_KIT_EXPORT QString plainToolTip(const QString& text);

/// For a button, a menu, the title of a group, or a label with a buddy: each '&' is shown.
ZEPA_KIT_EXPORT QString withoutMnemonics(QString text);

} // namespace zepa
