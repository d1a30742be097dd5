// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_export.h"

#include <QString>

/// One kind of event that the client can post, for example "a message arrived". Never changes once made.
class ZEPA_NOTIFICATION_EXPORT ZepaNotification
{
public:
    /// @param id           key in the module's registry and name of the rule file, for example "message_received"
    /// @param name         translated name to show; pop-ups are registered under it
    /// @param extra        a third text, kept for the client; the module never reads it
    /// @param description  translated description to show
    ZepaNotification(const QString& id, const QString& name, const QString& extra, const QString& description);
    ~ZepaNotification();
    ZepaNotification(const ZepaNotification&) = default;
    ZepaNotification& operator=(const ZepaNotification&) = delete;

    const QString& getId() const { return id; }
    const QString& getName() const { return name; }
    const QString& getExtra() const { return extra; }
    const QString& getDescription() const { return description; }

private:
    QString id;
    QString name;
    QString extra;
    QString description;
};
