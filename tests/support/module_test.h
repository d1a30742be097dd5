// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "probe_method.h"
#include "qt_printers.h"
#include "recording_attention.h"
#include "recording_growl.h"
#include "recording_host.h"

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

/// A test with a module of its own, a recording host and a recording Growl.
class ModuleTest : public testing::Test
{
protected:
    ModuleTest()
    {
        RecordingGrowl::reset();
        RecordingAttention::requests = 0;
    }
    ~ModuleTest() override
    {
        closeModule();
        RecordingGrowl::reset();
    }

    /// The module, made when first asked for.
    ZepaNotificationModule& module()
    {
        if (!owner)
            owner.reset(ZepaNotificationModule::getInstance());
        return *owner;
    }
    void closeModule() { owner.reset(); }

    void registerType(const QString& id)
    {
        module().registerNotification(id, u"Name of "_s + id, QString(), QString());
    }
    ZepaNotification* type(const QString& id) { return module().getNotifications().value(id); }
    ZepaNotificationRule* addRule(const QString& id, ZepaNotificationMethod& method, QList<ZepaField> config = {})
    {
        return module().addNotificationRule(type(id), &method, config);
    }
    void post(const QString& id, const QString& title, const ZepaPluginAction& action = ZepaPluginAction(),
              const QList<ZepaArg>& args = {})
    {
        module().postNotification(id, title, u"text"_s, QString(), QString(), action, args);
    }

    RecordingHost host;

private:
    std::unique_ptr<ZepaNotificationModule> owner;
};
