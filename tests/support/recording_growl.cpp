// SPDX-License-Identifier: Apache-2.0
#include "recording_growl.h"

using namespace Qt::StringLiterals;

bool RecordingGrowl::running = true;
QStringList RecordingGrowl::calls;
Growl_Delegate* RecordingGrowl::delegate = nullptr;
QList<QStringList> RecordingGrowl::registrations;
QList<RecordedPopup> RecordingGrowl::popups;
std::function<void()> RecordingGrowl::whileRegistering;
std::function<void()> RecordingGrowl::whilePosting;

void RecordingGrowl::reset()
{
    for (const RecordedPopup& popup : std::as_const(popups)) {
        if (popup.context != nullptr)
            CFRelease(popup.context);
        for (CFTypeRef object : popup.kept)
            CFRelease(object);
    }
    running = true;
    calls.clear();
    delegate = nullptr;
    registrations.clear();
    popups.clear();
    whileRegistering = nullptr;
    whilePosting = nullptr;
}

QString RecordingGrowl::toQString(CFStringRef string)
{
    if (string == nullptr)
        return {};
    QString text(static_cast<qsizetype>(CFStringGetLength(string)), Qt::Uninitialized);
    CFStringGetCharacters(string, CFRange{0, CFStringGetLength(string)}, reinterpret_cast<UniChar*>(text.data()));
    return text.isNull() ? u""_s : text;
}

Boolean Growl_SetDelegate(Growl_Delegate* newDelegate)
{
    RecordingGrowl::calls.append(u"set"_s);
    RecordingGrowl::delegate = newDelegate;
    QStringList names;
    const auto array =
        static_cast<CFArrayRef>(CFDictionaryGetValue(newDelegate->registrationDictionary, CFSTR("AllNotifications")));
    for (CFIndex i = 0; i < CFArrayGetCount(array); ++i)
        names.append(RecordingGrowl::toQString(static_cast<CFStringRef>(CFArrayGetValueAtIndex(array, i))));
    RecordingGrowl::registrations.append(names);
    if (RecordingGrowl::whileRegistering)
        RecordingGrowl::whileRegistering();
    return true;
}

Boolean Growl_IsRunning()
{
    RecordingGrowl::calls.append(u"running"_s);
    return RecordingGrowl::running;
}

void Growl_PostNotification(const Growl_Notification* notification)
{
    RecordingGrowl::calls.append(u"post"_s);
    RecordedPopup popup;
    popup.size = notification->size;
    popup.name = RecordingGrowl::toQString(notification->name);
    popup.title = RecordingGrowl::toQString(notification->title);
    popup.description = RecordingGrowl::toQString(notification->description);
    if (notification->iconData != nullptr)
        popup.icon = QByteArray(reinterpret_cast<const char*>(CFDataGetBytePtr(notification->iconData)),
                                static_cast<qsizetype>(CFDataGetLength(notification->iconData)));
    popup.priority = notification->priority;
    popup.reserved = notification->reserved;
    popup.sticky = notification->isSticky != 0;
    popup.context = notification->clickContext;
    if (popup.context != nullptr) {
        CFRetain(popup.context);
        popup.contextText = RecordingGrowl::toQString(static_cast<CFStringRef>(popup.context));
    }
    for (CFTypeRef object :
         {static_cast<CFTypeRef>(notification->name), static_cast<CFTypeRef>(notification->title),
          static_cast<CFTypeRef>(notification->description), static_cast<CFTypeRef>(notification->iconData)}) {
        if (object != nullptr)
            popup.kept.append(CFRetain(object));
    }
    popup.hasCallback = notification->clickCallback != nullptr;
    popup.hasIdentifier = notification->identifier != nullptr;
    RecordingGrowl::popups.append(popup);
    if (RecordingGrowl::whilePosting)
        RecordingGrowl::whilePosting();
}
