// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Growl/Growl.h>

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

/// One pop-up as Growl got it, read at once, since the record is not kept.
struct RecordedPopup
{
    std::size_t size = 0;
    QString name;
    QString title;
    /// Null when Growl got no description.
    QString description;
    /// Null when Growl got no picture.
    QByteArray icon;
    int priority = -1;
    unsigned reserved = 1;
    bool sticky = false;
    /// Holds a reference of its own until RecordingGrowl::reset(), as Growl does while the pop-up shows; null when
    /// there is none.
    CFPropertyListRef context = nullptr;
    QString contextText;
    /// Name, title, description and picture, as far as there are any; each with a reference of its own like `context`.
    QList<CFTypeRef> kept;
    bool hasCallback = false;
    bool hasIdentifier = false;
};

/// Growl's three functions as a record of calls. They are defined in the test program, whose symbols come before the
/// platform library's, so that the very library that users run is what calls them.
struct RecordingGrowl
{
    static bool running;
    /// "set", "running" and "post", in order.
    static QStringList calls;
    static Growl_Delegate* delegate;
    /// The names of each registration, in order. Null strings stand for nothing registered.
    static QList<QStringList> registrations;
    static QList<RecordedPopup> popups;
    /// Called inside Growl_SetDelegate, when set.
    static std::function<void()> whileRegistering;
    /// Called inside Growl_PostNotification, when set.
    static std::function<void()> whilePosting;

    /// Gives up the references and forgets everything.
    static void reset();
    static QString toQString(CFStringRef string);
};
