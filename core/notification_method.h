// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_export.h"
#include "host/arg.h"
#include "host/field.h"
#include "host/plugin_action.h"

#include <QHash>
#include <QList>
#include <QString>

class ZepaNotification;

/// One way in which a notification reaches the user. Derive from this to write a delivery method of your own, and
/// hand an object to ZepaNotificationModule::installNotificationMethod().
///
/// A method stays its creator's. It must outlive the module, or be without rules when it goes: rules keep calling it,
/// also after it was uninstalled. Without rules it must still live until the running posting ends, which goes on with
/// the rules it began with. Everything here runs on the main thread.
class ZEPA_NOTIFICATION_EXPORT ZepaNotificationMethod
{
public:
    ZepaNotificationMethod();
    virtual ~ZepaNotificationMethod();
    ZepaNotificationMethod(const ZepaNotificationMethod&) = delete;
    ZepaNotificationMethod& operator=(const ZepaNotificationMethod&) = delete;

    /// Delivers one posting. Called once for each rule that binds `notification` to this method.
    ///
    /// It may post again, change rules and install methods: the running posting goes on with the rules it began with.
    ///
    /// @param sequence      number of the posting, the same for all of its rules
    /// @param notification  what kind of event it is; owned by the module, never null
    /// @param title, text   heading and message, as posted: plain text that may hold "image:PATH:image"
    /// @param icon          path of a picture, may be empty
    /// @param extra         a fourth text of the client's own
    /// @param config        the rule's setting fields in no particular order: find them by getId()
    /// @param action        what to do when the user reacts; may be invalid
    /// @param args          arguments of the event, for example the buddy who wrote
    virtual void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                                  const QString& text, const QString& icon, const QString& extra,
                                  const QList<ZepaField>& config, const ZepaPluginAction& action,
                                  const QList<ZepaArg>& args) = 0;
    /// The fixed identifier: key of the registry and name of the method's element in rule files (so it must be a valid
    /// XML name).
    virtual QString getId() const = 0;
    /// Translated name of what the method does, for example "play sound".
    virtual QString getActionName() const = 0;
    /// Path of a picture for the action; empty when there is none.
    virtual QString getActionIcon() const = 0;
    /// Called for every type that is registered while the method is installed. Does nothing here.
    virtual void registerNotification(ZepaNotification* notification);
    /// Called once when the method is installed, with every type registered so far, in no particular order, possibly
    /// none. Does nothing here.
    virtual void registerNotifications(const QList<ZepaNotification*>& notifications);

    /// Sets what a new rule for the type `id` gets when the user has no stored rules for it. Call it in the
    /// constructor. An empty list means a rule whose fields have their initial values; never set means no rule.
    void setDefaultNotificationConfig(const QString& id, const QList<ZepaField>& config);
    /// What was set for `id`, or one default-constructed field (type 0) when nothing was: no default rule.
    QList<ZepaField> getDefaultNotificationConfig(const QString& id) const;

    /// The setting fields that every rule of this method has, with their initial values. Filled in the constructor
    /// and only read afterwards.
    QList<ZepaField> fields;

private:
    QHash<QString, QList<ZepaField>> defaultConfigs;
};

/// Whether what getDefaultNotificationConfig() gave stands for a default rule.
inline bool zepaHasDefaultRule(const QList<ZepaField>& config)
{
    return config.size() != 1 || config.constFirst().getType() != ZepaField::NoType;
}
