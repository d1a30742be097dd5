// SPDX-License-Identifier: Apache-2.0
#include "kit/widgets/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace zepa {

namespace {

constexpr const char* roleProperty = "zepaAccessibleRole";

QAccessibleInterface* makeInterface(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const QVariant role = widget ? widget->property(roleProperty) : QVariant();
    return role.isValid() ? new QAccessibleWidget(widget, QAccessible::Role(role.toInt())) : nullptr;
}

} // namespace

void setAccessibleRole(QWidget& widget, QAccessible::Role role)
{
    // Installing the same factory again does nothing.
    QAccessible::installFactory(makeInterface);
    widget.setProperty(roleProperty, int(role));
}

} // namespace zepa
