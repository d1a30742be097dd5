// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/audio.h"
#include "host/chat_manager.h"
#include "host/settings_manager.h"
#include "host/settings_manager_private.h"
#include "kit/settings/setting_store.h"

#include <QHash>
#include <QStringList>
#include <QTemporaryDir>

/// The services of a client that uses neither the kit's settings nor its sound. One at a time.
class OwnServices final : public ZepaSettingsManager,
                          public ZepaSettingsManagerPrivate,
                          public ZepaAudio,
                          public ZepaChatManager,
                          public zepa::SettingStore
{
public:
    OwnServices();
    virtual ~OwnServices();

    QString getSettingsDir() const override;
    QString getCurrentThemeDir() const override { return QStringLiteral("/themes/general/"); }
    QString getCurrentRosterThemeDir() const override { return QStringLiteral("/themes/roster/"); }
    QString getCurrentSoundThemeDir() const override { return QStringLiteral("/themes/sounds/"); }
    ZepaField readGlobalSetting(const ZepaField& field) const override;
    void playFile(QString path) override { played.append(path); }
    ZepaChatWindow* getChatWindow(const ZepaBuddy& /*buddy*/) override { return nullptr; }

    QList<ZepaField> offered() const override;
    ZepaField value(const ZepaField& field) const override { return readGlobalSetting(field); }
    Outcome tryToStore(const ZepaField& field, const QString& value) override;
    QString location() const override { return QStringLiteral("memory"); }

    static OwnServices* current;

    QTemporaryDir folder;
    /// Does not know of HiddenRuleFolder.
    bool ignoresHiding = false;
    QStringList played;
    QHash<QString, QString> values;
};
