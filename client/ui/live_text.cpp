// SPDX-License-Identifier: Apache-2.0
#include "client/ui/live_text.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace zepa {

namespace {

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className != QString::fromLatin1(LiveText::staticMetaObject.className()))
        return nullptr;
    return new QAccessibleWidget(qobject_cast<QWidget*>(object), QAccessible::Notification);
}

} // namespace

LiveText::LiveText(QWidget* parent) : QWidget(parent)
{
    // Installing the same factory again does nothing.
    QAccessible::installFactory(makeInterface);
    setObjectName(QStringLiteral("live"));
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
