// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>

class ZepaNotificationMethod;

/// The delivery methods that every module has. Their makers live beside the methods themselves, so that the core knows
/// no method by its class.
struct ZepaBuiltInMethods
{
    ZepaNotificationMethod* hintMethod;
    ZepaNotificationMethod* soundMethod;
    ZepaNotificationMethod* chatWindowMethod;
    ZepaNotificationMethod* taskbarMethod;

    /// In the order in which the module installs and deletes them.
    QList<ZepaNotificationMethod*> inOrder() const
    {
        return {hintMethod, soundMethod, chatWindowMethod, taskbarMethod};
    }
};

/// A new object of each; the caller owns them.
ZepaBuiltInMethods makeBuiltInMethods();
