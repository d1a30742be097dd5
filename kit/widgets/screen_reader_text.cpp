// SPDX-License-Identifier: Apache-2.0
#include "kit/widgets/screen_reader_text.h"

#include "kit/widgets/accessible_role.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace zepa {

ScreenReaderText::ScreenReaderText(QWidget* parent) : QWidget(parent)
{
    setAccessibleRole(*this, QAccessible::Notification);
    setObjectName(u"live"_s);
    setFocusPolicy(Qt::NoFocus);
    setFixedSize(1, 1);
}

void ScreenReaderText::say(const QString& text)
{
    setAccessibleName(text);
    // Readers differ in what they listen to: an alert, or a notification that comes into view.
    for (const QAccessible::Event heard : {QAccessible::Alert, QAccessible::ObjectShow}) {
        QAccessibleEvent event(this, heard);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace zepa
