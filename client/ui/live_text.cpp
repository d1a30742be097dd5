// SPDX-License-Identifier: Apache-2.0
#include "client/ui/live_text.h"

#include "client/ui/accessible_role.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace zepa {

LiveText::LiveText(QWidget* parent) : QWidget(parent)
{
    setAccessibleRole(*this, QAccessible::Notification);
    setObjectName(u"live"_s);
    setFocusPolicy(Qt::NoFocus);
    setFixedSize(1, 1);
}

void LiveText::say(const QString& text)
{
    setAccessibleName(text);
    // Readers differ in what they listen to: an alert, or a notification that comes into view.
    for (const QAccessible::Event heard : {QAccessible::Alert, QAccessible::ObjectShow}) {
        QAccessibleEvent event(this, heard);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace zepa
