// SPDX-License-Identifier: Apache-2.0
// A program that asks the desktop for everything and ends after a few events; at once with the argument "at-once", with
// "settled" as soon as its pop-up is on the screen.
#include <Growl/Growl.h>
#include <zepa_platform/attention.h>
#include <zepa_platform/popups.h>

#include <QGuiApplication>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const void* name = CFSTR("Message");
    CFArrayRef names = CFArrayCreate(nullptr, &name, 1, &kCFTypeArrayCallBacks);
    const void* key = CFSTR("AllNotifications");
    const void* value = names;
    CFDictionaryRef dictionary =
        CFDictionaryCreate(nullptr, &key, &value, 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
    Growl_Delegate delegate{};
    delegate.registrationDictionary = dictionary;
    Growl_SetDelegate(&delegate);
    Growl_Notification notification{};
    notification.name = CFSTR("Message");
    notification.clickContext = CFSTR("context");
    Growl_PostNotification(&notification);
    zepaRequestAttention();
    CFRelease(dictionary);
    CFRelease(names);
    const QString when = QCoreApplication::arguments().value(1);
    if (when == QStringLiteral("at-once"))
        return 0;
    QTimer beat;
    if (when == QStringLiteral("settled")) {
        QObject::connect(&beat, &QTimer::timeout, &application, [] {
            if (zepaPopupsOnTheirWay() == 0)
                QCoreApplication::quit();
        });
        beat.start(5);
        return QGuiApplication::exec();
    }
    // Long enough for a bus that is greeted to be sent a connection's first words.
    QTimer::singleShot(500, &application, &QCoreApplication::quit);
    return QGuiApplication::exec();
}
