// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QString>

class ZepaNotification;
class ZepaNotificationMethod;
class ZepaNotificationModule;

/// Types and methods as windows list and name them. The module keeps them in no particular order.
namespace zepa {

/// A short translated name: "Pop-up" for a built-in method, which describes itself in a sentence; what the method
/// says of itself for one that was installed from outside.
QString methodTitle(const ZepaNotificationMethod& method);

/// Whether the library brought the method.
bool isBuiltIn(const QString& methodId);

/// Path of a picture for the method; empty when there is none.
QString methodPicture(const ZepaNotificationMethod& method);

/// All installed methods: the built-in ones, then the others by title.
QList<ZepaNotificationMethod*> methodsInOrder(const ZepaNotificationModule& module);

/// The name of the type; the identifier of an unknown one.
QString typeName(const ZepaNotificationModule& module, const QString& typeId);

/// All types by name, as the user's language sorts.
QList<ZepaNotification*> typesInOrder(const ZepaNotificationModule& module);

} // namespace zepa
