// SPDX-License-Identifier: Apache-2.0
// A program that asks the desktop for everything and ends after a few events. Its argument says otherwise:
//   at-once   ends before any event
//   settled   ends as soon as its pop-up is on the screen; again: the same with a second application object
//   flood COUNT with-icons|without-icons   says "ready" when its pop-up is on the screen, waits for a line of standard
//             input, posts so many more and says "ending" when it ends
//   exit      posts fifty and calls exit() from an event when its standard input says something or ends
#include <Growl/Growl.h>
#include <zepa_platform/attention.h>
#include <zepa_platform/popups.h>

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QSocketNotifier>
#include <QTimer>

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

void say(const char* line)
{
    std::cout << line << std::endl;
}

/// A picture file that differs from the others.
CFDataRef newIcon(int number)
{
    constexpr int side = 128;
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(QColor(number, 0, 0));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return CFDataCreate(nullptr, reinterpret_cast<const UInt8*>(bytes.constData()), bytes.size());
}

void postMany(Growl_Notification notification, int count, bool hasIcons)
{
    constexpr int iconCount = 50;
    std::vector<CFDataRef> icons;
    for (int number = 0; hasIcons && number < iconCount; ++number)
        icons.push_back(newIcon(number));
    for (int number = 0; number < count; ++number) {
        if (hasIcons)
            notification.iconData = icons[static_cast<std::size_t>(number) % icons.size()];
        Growl_PostNotification(&notification);
    }
    for (const CFDataRef icon : icons)
        CFRelease(icon);
}

/// Lets the event loop run until the pop-up is on the screen.
int runUntilSettled()
{
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, &beat, [] {
        if (zepaPopupsOnTheirWay() == 0)
            QCoreApplication::quit();
    });
    beat.start(5);
    return QGuiApplication::exec();
}

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
    if (when == u"exit"_s) {
        postMany(notification, 49, false);
        QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
        QObject::connect(&input, &QSocketNotifier::activated, &application, [] { std::exit(0); });
        return QGuiApplication::exec() + 1;
    }
    if (when == u"settled"_s || when == u"again"_s)
        return runUntilSettled();
    const bool isFlood = when == u"flood"_s;
    if (isFlood) {
        runUntilSettled();
        say("ready");
        std::string line;
        std::getline(std::cin, line);
        const QStringList arguments = QCoreApplication::arguments();
        postMany(notification, arguments.value(2).toInt(), arguments.value(3) == u"with-icons"_s);
    }
    // Long enough for a bus that is greeted to be sent a connection's first words.
    QTimer::singleShot(500, &application, &QCoreApplication::quit);
    const int result = QGuiApplication::exec();
    if (isFlood)
        say("ending");
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    const int result = run(argc, argv);
    const bool isAgain = argc > 1 && std::strcmp(argv[1], "again") == 0;
    return result == 0 && isAgain ? run(argc, argv) : result;
}
