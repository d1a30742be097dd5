// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"

#include <QString>

class QLabel;
class QPushButton;
class QWidget;

/// Small widgets; those that show texts from outside show them as they stand (kit/texts/plain_text.h has the texts).
namespace zepa {

/// Gives the widget a tool tip that shows the text as it stands, and the same text as its description for screen
/// readers.
ZEPA_KIT_EXPORT void setPlainToolTip(QWidget& widget, const QString& text);

/// A button of that object name, which Enter does not press from elsewhere in the window. The parent owns it.
ZEPA_KIT_EXPORT QPushButton* makeButton(const QString& text, const char* name, QWidget* parent);

/// A label for any text. The parent owns it.
ZEPA_KIT_EXPORT QLabel* makePlainLabel(QWidget* parent, const QString& text = {});

} // namespace zepa
