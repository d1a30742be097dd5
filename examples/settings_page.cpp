// SPDX-License-Identifier: Apache-2.0
// The page on which rules are edited, in a dialog of your own.
#include "settings_page.h"

#include "kit/journal/recorded_methods.h"
#include "kit/rules/protected_module.h"
#include "kit/settings/settings.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char** argv)
{
    const QApplication app(argc, argv);
    zepa::Settings settings(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    zepa::RecordedMethods recorded;
    zepa::ProtectedModule notifications({.wrapMethods = [&recorded](auto& module) { recorded.wrapIn(module); }});
    if (!notifications.start())
        return 1; // another program holds the rule files
    PreferencesDialog dialog(notifications.ruleStore(settings), recorded.recorder(notifications.module()));
    return dialog.exec();
}
