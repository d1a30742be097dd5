// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/extra_methods.h"

#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "kit/settings/settings.h"
#include "kit/values/field_value.h"
#include "qt_printers.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QStringList ours{u"zepa_command_notification_method"_s, u"zepa_log_file_notification_method"_s,
                       u"zepa_speech_notification_method"_s};

class ExtraMethods : public testing::Test
{
protected:
    ExtraMethods()
    {
        const auto all = methods.all();
        for (ZepaNotificationMethod* method : all)
            module->installNotificationMethod(method);
        ZepaNotificationModule::init();
    }

    const QTemporaryDir m_folder;
    const zepa::Settings m_settings{m_folder.path()};
    zepa::ExtraMethods methods;
    const std::unique_ptr<ZepaNotificationModule> module{ZepaNotificationModule::getInstance()};
};

TEST_F(ExtraMethods, AreInstalledAndHaveNoRuleUntilTheUserAddsOne)
{
    const auto types = module->getNotifications().values();
    ASSERT_EQ(types.size(), 18);
    for (const QString& id : ours) {
        ASSERT_TRUE(module->getMethods().contains(id)) << id.toStdString();
        for (ZepaNotification* type : types) {
            const auto rules = module->getRules(type);
            for (const ZepaNotificationRule* rule : rules)
                EXPECT_NE(rule->getMethod()->getId(), id);
        }
    }
}

TEST_F(ExtraMethods, HaveANameAPictureAndFieldsThatADialogCanShow)
{
    for (const QString& id : ours) {
        const ZepaNotificationMethod& method = *module->getMethods().value(id);
        EXPECT_FALSE(method.getActionName().isEmpty());
        EXPECT_TRUE(QFile::exists(method.getActionIcon())) << method.getActionIcon().toStdString();
        EXPECT_FALSE(method.fields.isEmpty());
        QStringList ids;
        for (const ZepaField& field : method.fields) {
            EXPECT_FALSE(field.getLabel().isEmpty());
            EXPECT_TRUE(zepa::fieldAllows(field, field.getText())) << field.getId().toStdString();
            EXPECT_EQ(field.getItemIds().size(), field.getItemLabels().size());
            ids.append(field.getId());
        }
        EXPECT_EQ(ids.removeDuplicates(), 0);
    }
}

} // namespace
