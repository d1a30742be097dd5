// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QString>

class QLabel;
class QWidget;

/// Widgets that show texts from outside as they stand (kit/texts/plain_text.h has the texts).
namespace zepa {

/// Gives the widget a tool tip that shows the text as it stands, and the same text as its description for screen
/// readers.
ZEPA_KIT_EXPORT void setPlainToolTip(QWidget& widget, const QString& text);

/// A label for any text. The parent owns it.
ZEPA_KIT_EXPORT QLabel* makePlainLabel(QWidget* parent, const QString& text = {});

} // namespace zepa
