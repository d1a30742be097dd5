// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QStringList>

class QWidget;

namespace zepa::test {

/// Every text of the window and its widgets as a person sees or hears it: labels, buttons, menus, fields, items and
/// headers of lists and tables, names for screen readers, and each tool tip, which is shown once. Markup that Qt
/// follows is gone from such a text, like the '&' in front of a shortcut.
QStringList shownTexts(QWidget& window);

/// The texts of one object with actions, such as a menu.
QStringList actionTexts(const QWidget& menu);

} // namespace zepa::test
