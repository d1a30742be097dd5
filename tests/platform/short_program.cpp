// SPDX-License-Identifier: Apache-2.0
// A program that asks the desktop for everything and ends after a few events. Its argument says otherwise:
//   at-once   ends before any event
//   settled   ends as soon as its pop-up is on the screen; again: the same with a second application object
//   flood     posts 20,000 more before it ends
//   exit      posts fifty and calls exit() from an event when its standard input says something or ends
#include <Growl/Growl.h>
#include <zepa_platform/attention.h>
#include <zepa_platform/popups.h>

#include <QGuiApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <unistd.h>

#include <cstdlib>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

int run(int argc, char** argv)
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
    if (when == u"at-once"_s)
        return 0;
    const int more = when == u"flood"_s ? 20000 : when == u"exit"_s ? 49 : 0;
    for (int i = 0; i < more; ++i)
        Growl_PostNotification(&notification);
    if (when == u"exit"_s) {
        QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
        QObject::connect(&input, &QSocketNotifier::activated, &application, [] { std::exit(0); });
        return QGuiApplication::exec() + 1;
    }
    QTimer beat;
    if (when == u"settled"_s || when == u"again"_s) {
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

} // namespace

int main(int argc, char** argv)
{
    const int result = run(argc, argv);
    const bool isAgain = argc > 1 && std::strcmp(argv[1], "again") == 0;
    return result == 0 && isAgain ? run(argc, argv) : result;
}
