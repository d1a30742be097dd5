// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "kit/rules/rule_backup.h"
#include "kit/rules/rule_lock.h"
#include "kit/rules/safe_change.h"
#include "kit/settings/settings.h"
#include "small_disk.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

/// The module with a single type, so that its files fit on a small disk; started as the client starts it.
class SafeChangeTest : public testing::Test
{
protected:
    void start()
    {
        m_module.reset();
        m_backup.reset();
        m_settings.reset();
        m_settings.emplace(m_folder.path());
        m_backup = std::make_unique<zepa::RuleBackup>(m_settings->getSettingsDir(), QStringList{type});
        m_backup->restore();
        m_module.reset(ZepaNotificationModule::getInstance());
        m_module->registerNotification(type, type, {}, {});
        m_backup->started();
        m_backup->keepAll();
    }
    zepa::SafeChange change(const std::function<void()>& edit)
    {
        zepa::RuleLock lock(m_backup->ruleFolder());
        return changeSafely(*m_module, *m_backup, lock, type, edit);
    }
    zepa::SafeChange add(const QString& id = sound)
    {
        return change([&] {
            QList<ZepaField> config = m_module->getMethods().value(id)->fields;
            m_module->addNotificationRule(type, id, config);
        });
    }
    qsizetype count() const { return m_module->getRules(m_module->getNotifications().value(type)).size(); }
    QString file() const { return m_folder.filePath(u"notifications/"_s + type); }
    QByteArray content() const
    {
        QFile open(file());
        return open.open(QIODevice::ReadOnly) ? open.readAll() : QByteArray();
    }

    static inline const QString type = u"test_type"_s;
    static inline const QString sound = u"zepa_sound_notification_method"_s;

    QTemporaryDir m_folder;
    SmallDisk m_disk;
    std::optional<zepa::Settings> m_settings;
    std::unique_ptr<zepa::RuleBackup> m_backup;
    std::unique_ptr<ZepaNotificationModule> m_module;
};
