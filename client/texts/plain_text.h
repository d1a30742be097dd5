// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/client_export.h"

#include <QString>

class QLabel;
class QWidget;

/// Texts that we did not write, in widgets. Qt takes a text that looks like HTML for HTML in tool tips and labels, and
/// opens each file that it names; in buttons, menus and titles an '&' marks a shortcut. These show a text as it stands.
namespace zepa {

/// For a tool tip or a model's Qt::ToolTipRole. At most longestMessage units of the text, then an ellipsis.
ZEPA_CLIENT_EXPORT QString plainToolTip(const QString& text);
/// Gives the widget that tool tip, and the same text as its description for screen readers.
ZEPA_CLIENT_EXPORT void setPlainToolTip(QWidget& widget, const QString& text);

/// A label for any text. The parent owns it.
ZEPA_CLIENT_EXPORT QLabel* makePlainLabel(QWidget* parent, const QString& text = {});

/// For a button, a menu, the title of a group, or a label with a buddy: each '&' is shown.
ZEPA_CLIENT_EXPORT QString withoutMnemonics(QString text);

} // namespace zepa
