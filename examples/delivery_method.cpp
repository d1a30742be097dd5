// SPDX-License-Identifier: Apache-2.0
// A delivery method of your own, from its fields to a delivery. The client brings three more to look at, in
// kit/extra_methods/: speech, a log file, commands.
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "kit/settings/settings.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTextStream>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Prints events on standard output.
class PrintMethod final : public ZepaNotificationMethod
{
public:
    PrintMethod()
    {
        // What a rule can set, with the values that a new rule begins with.
        fields = {ZepaField::checkBox(u"With the name of the type"_s, u"with_type"_s, false, {}, {})};
        // One type gets a rule by itself, and with its own setting. The others are silent until the user adds a rule.
        ZepaField withType = fields.first();
        withType.setChecked(true);
        setDefaultNotificationConfig(u"error_notify"_s, {withType});
    }

    QString getId() const override { return u"example_print_method"_s; }
    QString getActionName() const override { return u"print"_s; }
    QString getActionIcon() const override { return {}; }

    void postNotification(unsigned int /*sequence*/, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& /*icon*/, const QString& /*extra*/,
                          const QList<ZepaField>& config, const ZepaPluginAction& /*action*/,
                          const QList<ZepaArg>& /*args*/) override
    {
        // Settings come in no particular order: look for the identifier.
        bool withType = false;
        for (const ZepaField& field : config) {
            if (field.getId() == u"with_type"_s)
                withType = field.isChecked();
        }
        // Main thread: whatever takes long belongs elsewhere, and a text from outside is data, never a command.
        QTextStream(stdout) << (withType ? notification->getName() + u": "_s : QString()) << title << u": "_s << text
                            << Qt::endl;
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QTemporaryDir folder;
    const zepa::Settings settings(folder.path());
    PrintMethod print; // yours, not the module's: it goes after the module
    const std::unique_ptr<ZepaNotificationModule> module(ZepaNotificationModule::getInstance());
    // Before init(): the module reads the rules of each type once, for all methods that it knows by then.
    module->installNotificationMethod(&print);
    ZepaNotificationModule::init();

    module->postNotification(u"error_notify"_s, u"Disk"_s, u"It is full."_s, {}, {}, {}, {});
    QList<ZepaField> config = print.fields;
    module->addNotificationRule(u"message_sent"_s, print.getId(), config);
    module->postNotification(u"message_sent"_s, u"Ann"_s, u"At eight."_s, {}, {}, {}, {});
    return 0;
}
