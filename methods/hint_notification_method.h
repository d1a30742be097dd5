// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_export.h"
#include "core/notification_method.h"

#include <CoreFoundation/CoreFoundation.h>
#include <Growl/Growl.h>

#include <QHash>

#include <memory>

class PictureCache;

/// Shows a notification as a pop-up through Growl. A click on it runs the posting's action.
///
/// Growl knows the client as "Zepa", and the notification types by their display names. Setting of a rule: "sticky",
/// a check box; such a pop-up stays until the user closes it, unless it has an action.
class ZEPA_NOTIFICATION_EXPORT ZepaHintNotificationMethod : public ZepaNotificationMethod
{
public:
    /// Registers with Growl and becomes `hnminstance`.
    ZepaHintNotificationMethod();
    /// Forgets the pop-ups that wait for an answer. `hnminstance` keeps its value and the registration with Growl
    /// stays, both meant; call-backs that come later do nothing.
    ~ZepaHintNotificationMethod() override;

    /// Does nothing while Growl is not running.
    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override;
    QString getId() const override;
    QString getActionName() const override;
    QString getActionIcon() const override;
    /// Registers all types that the module knows, whichever is given.
    void registerNotification(ZepaNotification* notification) override;
    /// Registers exactly these types, in place of those registered before.
    void registerNotifications(const QList<ZepaNotification*>& notifications) override;

private:
    friend void notificationClicked(const void* clickContext);
    friend void notificationTimedOut(const void* clickContext);

    /// Growl holds its address, so it stays where it is.
    Growl_Delegate growlDelegate;
    /// Idle, and meant to be: made here, never read, filled or released.
    CFMutableArrayRef notificationArray;
    /// Actions of the pop-ups that wait for an answer, by click context; holds one reference on each context.
    QHash<const void*, ZepaPluginAction> pendingActions;
    const std::unique_ptr<PictureCache> pictures;
};

/// The method that the call-backs work on: the one made last, unless the client sets another. Null before the first;
/// never cleared. While it points to a method that is gone, the call-backs do nothing.
ZEPA_NOTIFICATION_EXPORT extern ZepaHintNotificationMethod* hnminstance;

/// Growl's call-back for a clicked pop-up: runs and forgets the action of every pop-up with an equal context. The
/// context is borrowed; it is printed with CFShow.
ZEPA_NOTIFICATION_EXPORT void notificationClicked(const void* clickContext);
/// Growl's call-back for a pop-up that went away unclicked: forgets the action of every pop-up with an equal context.
ZEPA_NOTIFICATION_EXPORT void notificationTimedOut(const void* clickContext);
