// SPDX-License-Identifier: Apache-2.0
#include "core/notification_module.h"
#include "kit/settings/settings.h"

#include <QApplication>
#include <QStandardPaths>

#include <memory>

using namespace Qt::StringLiterals;

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    // The host's services: settings and data types are the kit's, the other two are in smallest_bodies.cpp.
    const zepa::Settings settings(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    const std::unique_ptr<ZepaNotificationModule> module(ZepaNotificationModule::getInstance());
    // Delivery methods of your own go here, before init(): module->installNotificationMethod(&yours);
    ZepaNotificationModule::init();

    const ZepaArg ann = ZepaArg::fromBuddy(ZepaBuddy(u"ann"_s, u"Ann"_s, ZepaBuddy::Contact));
    const ZepaPluginAction answer([] { QApplication::quit(); });
    module->postNotification(u"message_received"_s, u"Ann"_s, u"Shall we meet at eight?"_s, QString(), QString(),
                             answer, {ann});
    return QApplication::exec(); // until the pop-up is clicked
}
