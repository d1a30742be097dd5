// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Growl's function interface, over the desktop's notification service (org.freedesktop.Notifications).
///
/// Main thread only, with a QCoreApplication. No function waits for the bus or the service; call-backs come from the
/// event loop, never from inside a function here.

#include <CoreFoundation/CoreFoundation.h>

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

struct Growl_Delegate
{
    size_t size;
    CFStringRef applicationName;
    /* "AllNotifications": array of the names that may be posted; "DefaultNotifications": array of those of them that
       are enabled, all when it is absent. */
    CFDictionaryRef registrationDictionary;
    CFDataRef applicationIconData;
    CFStringRef growlInstallationWindowTitle;
    CFStringRef growlInstallationInformation;
    CFStringRef growlUpdateWindowTitle;
    CFStringRef growlUpdateInformation;
    unsigned referenceCount;
    void* (*retain)(void*);
    void (*release)(void*);
    void (*growlIsReady)(void);
    /* The context is borrowed, and equal to the one that was posted. */
    void (*growlNotificationWasClicked)(CFPropertyListRef clickContext);
    void (*growlNotificationTimedOut)(CFPropertyListRef clickContext);
};

struct Growl_Notification
{
    size_t size;
    CFStringRef name;
    CFStringRef title;
    CFStringRef description;
    CFDataRef iconData;
    signed int priority; /* -2 to 2 */
    unsigned reserved : 31;
    unsigned isSticky : 1;
    CFPropertyListRef clickContext;
    void (*clickCallback)(CFPropertyListRef clickContext);
    CFStringRef identifier;
};

/* Registers the application. The record is read during the call; what it says counts until the next call, and the
   record may go away meanwhile. The same pointer again registers again. Null withdraws. */
CF_EXPORT Boolean Growl_SetDelegate(struct Growl_Delegate* newDelegate);
/* Whether a notification service runs or can be started by the bus. */
CF_EXPORT Boolean Growl_IsRunning(void);
/* Shows a pop-up; one whose name is not registered is dropped. Nothing of the record is kept after the call. */
CF_EXPORT void Growl_PostNotification(const struct Growl_Notification* notification);

#ifdef __cplusplus
}
#endif
