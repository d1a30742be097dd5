// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QAccessible>

class QWidget;

namespace zepa {

/// Tells screen readers what `widget` is, where Qt's own idea of it is too poor: a window of plain QWidget is nothing
/// but a filler to them. To be called before the widget is shown.
void setAccessibleRole(QWidget& widget, QAccessible::Role role);

} // namespace zepa
