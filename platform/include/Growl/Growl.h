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

/* The members that are marked as unused may hold anything: they are never read, and null is fine. */
struct Growl_Delegate
{
    size_t size; /* unused */
    CFStringRef applicationName;
    /* "AllNotifications": array of the names that may be posted; "DefaultNotifications": array of those of them that
       are enabled, all when it is absent. */
    CFDictionaryRef registrationDictionary;
    CFDataRef applicationIconData;
    /* What a missing service would be installed or updated with: unused, as the desktop brings its own. */
    CFStringRef growlInstallationWindowTitle;
    CFStringRef growlInstallationInformation;
    CFStringRef growlUpdateWindowTitle;
    CFStringRef growlUpdateInformation;
    /* Unused: the record is read during Growl_SetDelegate and never again, so it needs no owner. */
    unsigned referenceCount;
    void* (*retain)(void*);
    void (*release)(void*);
    /* Unused: postings wait by themselves for a service that is about to start. Growl_IsRunning says what is known. */
    void (*growlIsReady)(void);
    /* The context is borrowed, and equal to the one that was posted. */
    void (*growlNotificationWasClicked)(CFPropertyListRef clickContext);
    void (*growlNotificationTimedOut)(CFPropertyListRef clickContext);
};

struct Growl_Notification
{
    size_t size;             /* unused */
    CFStringRef name;        /* null counts as empty */
    CFStringRef title;       /* null: the name is shown instead */
    CFStringRef description; /* may be null */
    CFDataRef iconData;      /* a picture file's bytes; null: the application's icon */
    signed int priority;     /* -2 to 2 */
    unsigned reserved : 31;  /* unused */
    unsigned isSticky : 1;
    CFPropertyListRef clickContext;                        /* null: nobody wants an answer */
    void (*clickCallback)(CFPropertyListRef clickContext); /* null: the delegate is told of a click */
    CFStringRef identifier;                                /* unused: a posting never replaces another */
};

/* Registers the application. The record is read during the call; what it says counts until the next call, and the
   record may go away meanwhile. The same pointer again registers again. Null withdraws: nobody is told any more what
   becomes of the pop-ups posted until then, a later delegate neither. A delegate that follows without a withdrawal is
   told. */
CF_EXPORT Boolean Growl_SetDelegate(struct Growl_Delegate* newDelegate);
/* Whether a notification service runs or can be started by the bus. True while the bus has not said yet. */
CF_EXPORT Boolean Growl_IsRunning(void);
/* Shows a pop-up; one whose name is not registered is dropped. Nothing of the record is kept after the call. With the
   application object, what is still clickable leaves the screen. */
CF_EXPORT void Growl_PostNotification(const struct Growl_Notification* notification);

#ifdef __cplusplus
}
#endif
