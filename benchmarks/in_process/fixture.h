// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_method.h"
#include "core/notification_module.h"
#include "host/plugin_action.h"
#include "kit/settings/settings.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

using namespace Qt::StringLiterals;

/// A delivery method that does nothing, so that only what leads to it is measured.
class IdleMethod : public ZepaNotificationMethod
{
public:
    explicit IdleMethod(const QString& id) : m_id(id) {}

    void postNotification(unsigned int, ZepaNotification*, const QString&, const QString&, const QString&,
                          const QString&, const QList<ZepaField>&, const ZepaPluginAction&,
                          const QList<ZepaArg>&) override
    {}
    QString getId() const override { return m_id; }
    QString getActionName() const override { return {}; }
    QString getActionIcon() const override { return {}; }

private:
    const QString m_id;
};

/// The client's settings in a folder of their own, and the module on top of them.
class Fixture
{
public:
    Fixture();

    ZepaNotificationModule& module() { return *m_module; }
    /// The method is installed with the module.
    IdleMethod& idleMethod() { return m_idle; }
    void registerTypes(int count);
    static QString typeId(int number) { return u"type_%1"_s.arg(number); }
    void post(const QString& id, const QString& title);
    /// As if so many different postings had just been made; posting them would take a time that grows with the square.
    void rememberPostings(int count);
    void forgetPostings();

private:
    QTemporaryDir m_folder;
    zepa::Settings m_settings;
    IdleMethod m_idle{u"idle"_s};
    std::unique_ptr<ZepaNotificationModule> m_module;
};
