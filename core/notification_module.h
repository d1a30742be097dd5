// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/built_in_methods.h"
#include "core/notification_export.h"
#include "host/arg.h"
#include "host/field.h"
#include "host/plugin_action.h"

#include <QHash>
#include <QIcon>
#include <QList>
#include <QMultiHash>
#include <QString>
#include <QTime>

class LocalClock;
class ZepaNotification;
class ZepaNotificationMethod;
class ZepaNotificationRule;
class ZepaTrayIcon;

/// The door to the notification system: what can happen, how it can reach the user, and the rules between the two.
///
/// One object for the process, on the main thread only. Nothing here throws or reports an error: look-ups of what is
/// unknown give null, changes of what is unknown do nothing, files that cannot be read or written are passed over.
///
/// Start-up: getInstance(), then installNotificationMethod() for methods of your own, then init(). Methods that are
/// installed after init() work too, but rule files are read again then, which doubles stored rules of other methods.
class ZepaNotificationModule
{
public:
    /// The module, made by the first call: it shows the main status icon and installs the four built-in methods.
    /// Needs a QGuiApplication and the host's services.
    ZEPA_NOTIFICATION_EXPORT static ZepaNotificationModule* getInstance();
    /// Registers the eighteen built-in notification types on the existing module; getInstance() must have been called.
    /// Install translators before: the texts are translated here. A second call changes nothing.
    ZEPA_NOTIFICATION_EXPORT static void init();
    /// Takes everything down; a later getInstance() makes a fresh module. Writes no file and tells no method that was
    /// installed from outside. A posting that is under way meanwhile ends with the method that it is calling.
    ZEPA_NOTIFICATION_EXPORT ~ZepaNotificationModule();
    ZepaNotificationModule(const ZepaNotificationModule&) = delete;
    ZepaNotificationModule& operator=(const ZepaNotificationModule&) = delete;

    /// Adds a notification type; the texts are those of ZepaNotification. Its rules come from its rule file when there
    /// is one, else from every installed method's defaults. An `id` that is known already is ignored.
    ZEPA_NOTIFICATION_EXPORT void registerNotification(const QString& id, const QString& name, const QString& extra,
                                                       const QString& description);
    /// Adds a delivery method, which stays the caller's. For each type known so far its rules come from the type's
    /// rule file when there is one, else from the method's defaults. Ignored when its getId() is taken.
    ZEPA_NOTIFICATION_EXPORT void installNotificationMethod(ZepaNotificationMethod* method);
    /// Takes the method out of the look-ups by identifier and does nothing else: this is meant. Its rules stay, and
    /// postings still reach it.
    ZEPA_NOTIFICATION_EXPORT void uninstallNotificationMethod(ZepaNotificationMethod* method);

    /// Announces an event. Delivered through every rule of its type, newest first, unless a posting with the same `id`
    /// and `title` was accepted at most "duplicated_notifications_time" seconds ago. The caller cannot learn which.
    ///
    /// @param id       notification type; an unknown one delivers nothing
    /// @param title    heading of a pop-up
    /// @param text     the message
    /// @param icon     path of a picture for the pop-up, may be empty
    /// @param extra    a fourth text, handed to the methods
    /// @param action   what to do when the user clicks; may be invalid
    /// @param args     arguments; the sound and the chat window method look for the buddy in the first
    ZEPA_NOTIFICATION_EXPORT void postNotification(const QString& id, const QString& title, const QString& text,
                                                   const QString& icon, const QString& extra,
                                                   const ZepaPluginAction& action, const QList<ZepaArg>& args);

    /// The newest rule of this pair; null when there is none or either is unknown. Owned by the module, like every
    /// rule, until removeNotificationRule() or the module's end.
    ZEPA_NOTIFICATION_EXPORT ZepaNotificationRule* getNotificationRule(const QString& notificationId,
                                                                       const QString& methodId);
    /// Adds a rule, also when the pair has one already, and writes the type's rule file. Neither pointer may be null;
    /// they are not looked up in the registries.
    ZEPA_NOTIFICATION_EXPORT ZepaNotificationRule*
    addNotificationRule(ZepaNotification* notification, ZepaNotificationMethod* method, QList<ZepaField>& config);
    /// The same by identifiers; null when either is unknown.
    ZEPA_NOTIFICATION_EXPORT ZepaNotificationRule*
    addNotificationRule(const QString& notificationId, const QString& methodId, QList<ZepaField>& config);
    /// Changes the settings of the pair's newest rule and rewrites the files of all types that have rules; adds a
    /// rule when there is none.
    ZEPA_NOTIFICATION_EXPORT ZepaNotificationRule*
    updateNotificationRule(const QString& notificationId, const QString& methodId, QList<ZepaField>& config);
    /// Takes the rule out, writes the type's rule file and deletes the rule. Null and rules that are not in the
    /// module are left alone.
    ZEPA_NOTIFICATION_EXPORT void removeNotificationRule(ZepaNotificationRule* rule);
    /// The same for the newest rule of a pair.
    ZEPA_NOTIFICATION_EXPORT void removeNotificationRule(const QString& notificationId, const QString& methodId);

    /// Adds the rules that the type's file holds, for every installed method that the file names. `method` need not be
    /// given and does not limit what is read: this is meant. A second reading adds the rules once more.
    ZEPA_NOTIFICATION_EXPORT void setupNotificationRules(ZepaNotification* notification,
                                                         ZepaNotificationMethod* method);
    /// Rewrites the rule file of the type; with null, of every type that has a rule. A file that cannot be opened is
    /// passed over.
    ZEPA_NOTIFICATION_EXPORT void storeNotificationRules(ZepaNotification* notification);

    /// The main status icon, owned by the module.
    ZEPA_NOTIFICATION_EXPORT ZepaTrayIcon* getTrayIcon() const;
    /// The icon of that name, owned by the module, or null.
    ZEPA_NOTIFICATION_EXPORT ZepaTrayIcon* getTrayIcon(const QString& name);
    /// Gives the named icon a picture; makes and shows the icon when there is none of that name.
    ZEPA_NOTIFICATION_EXPORT ZepaTrayIcon* setTrayIcon(const QString& name, const QIcon& icon);
    /// All named icons, without the main one.
    ZEPA_NOTIFICATION_EXPORT QList<ZepaTrayIcon*> getTrayIcons();
    /// The name of that icon; a null string for the main icon and for one that is not the module's.
    ZEPA_NOTIFICATION_EXPORT QString getTrayIconId(ZepaTrayIcon* icon);
    /// Takes the named icon out and hands it to the caller, still visible; null for an unknown name. An empty name
    /// deletes all named icons and gives null.
    ZEPA_NOTIFICATION_EXPORT ZepaTrayIcon* removeTrayIcon(const QString& name);

    /// The registries, for reading. What they point to is the module's; methods are their creators'.
    const QHash<QString, ZepaNotification*>& getNotifications() const { return notifications; }
    const QHash<QString, ZepaNotificationMethod*>& getMethods() const { return methods; }
    /// The rules of a type, newest first.
    QList<ZepaNotificationRule*> getRules(ZepaNotification* notification) const { return rules.values(notification); }

private:
    class RunningPosting;

    ZepaNotificationModule();
    QString getRuleFile(const ZepaNotification* notification) const;
    void addDefaultRule(ZepaNotification* notification, ZepaNotificationMethod* method);
    void forgetOldPostings(const ZepaField& limit, LocalClock& clock);

    ZepaTrayIcon* trayIcon;
    ZepaBuiltInMethods builtIn;
    QHash<QString, ZepaNotificationMethod*> methods;
    QHash<QString, ZepaNotification*> notifications;
    QMultiHash<ZepaNotification*, ZepaNotificationRule*> rules;
    unsigned int sequence = 0;
    QHash<QString, QTime> lastPostings;
    QHash<QString, ZepaTrayIcon*> trayIcons;

    void endRunningPostings();

    /// The postings that are under way, one inside the other, and the rules that were removed meanwhile: those are
    /// still called by the snapshots that hold them, and are deleted when the outermost posting ends.
    RunningPosting* innermostPosting = nullptr;
    QList<ZepaNotificationRule*> removedRules;

    static ZepaNotificationModule* instance;
};
