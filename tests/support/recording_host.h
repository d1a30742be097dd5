// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/audio.h"
#include "host/buddy.h"
#include "host/chat_manager.h"
#include "host/chat_window.h"
#include "host/field.h"
#include "host/settings_manager.h"
#include "host/settings_manager_private.h"

#include <QHash>
#include <QIcon>
#include <QList>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

using namespace Qt::StringLiterals;

class ZepaTrayIcon;

/// A chat window that keeps its lines.
class RecordingChatWindow : public ZepaChatWindow
{
public:
    void notifyMessage(const QString& text) override { lines.append(text); }

    QStringList lines;
};

/// What the status icons of the test's process were told, one text a call, in order: "made", "icon", "visible",
/// "hidden", "deleted".
struct TrayIconRecord
{
    QStringList calls;
    QIcon icon;
    bool visible = false;
};

/// The client's services as the library sees them, with everything that it asked or told written down. Settings live
/// in a temporary folder. One object a test; the services that the library finds are always those of the newest.
///
/// The data types (fields, XML, ...) are the reference client's own.
class RecordingHost : public ZepaSettingsManager,
                      public ZepaSettingsManagerPrivate,
                      public ZepaAudio,
                      public ZepaChatManager
{
public:
    RecordingHost();
    ~RecordingHost();

    QString getSettingsDir() const override;
    QString getCurrentThemeDir() const override { return themeDir; }
    QString getCurrentRosterThemeDir() const override { return rosterThemeDir; }
    QString getCurrentSoundThemeDir() const override { return soundThemeDir; }
    ZepaField readGlobalSetting(const ZepaField& field) const override;
    void playFile(QString path) override { played.append(path); }
    ZepaChatWindow* getChatWindow(const ZepaBuddy& buddy) override;

    /// The path of a type's rule file.
    QString ruleFile(const QString& id) const;
    void writeRuleFile(const QString& id, const QByteArray& content) const;
    /// Its content; null when there is no such file.
    QByteArray readRuleFile(const QString& id) const;
    /// The names of all rule files, sorted.
    QStringList ruleFiles() const;

    static RecordingHost* current;

    QTemporaryDir settings;
    QString themeDir = u"/themes/general/"_s;
    QString rosterThemeDir = u"/themes/roster/"_s;
    QString soundThemeDir = u"/themes/a/"_s;

    int repeatLimit = 5;
    /// The stored choice for alerts, which may be one that nobody offers; null when the user never chose.
    QString alerts;
    mutable QList<ZepaField> settingsRead;
    QStringList played;
    QHash<QString, RecordingChatWindow*> windows;
    QStringList windowsAskedFor;
    QHash<const ZepaTrayIcon*, TrayIconRecord> icons;
    /// Called when an icon is deleted, when set.
    std::function<void(const ZepaTrayIcon*)> whenIconIsDeleted;
    /// Icons in the order in which they were made.
    QList<const ZepaTrayIcon*> iconsMade;
};
