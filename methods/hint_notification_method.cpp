// SPDX-License-Identifier: Apache-2.0
#include "methods/hint_notification_method.h"

#include "core/method_ids.h"
#include "core/notification.h"
#include "core/notification_module.h"
#include "core/type_ids.h"
#include "methods/picture_cache.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QPixmap>
#include <QSet>

#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

ZepaHintNotificationMethod* hnminstance = nullptr;

namespace {

/// The methods that were made and not destroyed yet. hnminstance may point to one that is gone, and never tells.
QSet<const ZepaHintNotificationMethod*>& livingMethods()
{
    static QSet<const ZepaHintNotificationMethod*> living;
    return living;
}

/// One reference on a CoreFoundation object, given up at the end. May hold null, which CFRelease must never see.
template <typename Ref>
class Owned
{
public:
    explicit Owned(Ref object) : ref(object) {}
    Owned(Owned&& other) noexcept : ref(std::exchange(other.ref, nullptr)) {}
    ~Owned()
    {
        if (ref != nullptr)
            CFRelease(ref);
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    Owned& operator=(Owned&&) = delete;

    Ref get() const { return ref; }

private:
    Ref ref;
};

/// A new string with the UTF-16 units of `text`; none for a null text.
CFStringRef qStringToCFStringRef(const QString& text)
{
    if (text.isNull())
        return nullptr;
    const auto* bytes = reinterpret_cast<const UInt8*>(text.utf16());
    const auto length = static_cast<CFIndex>(text.size()) * static_cast<CFIndex>(sizeof(char16_t));
    return CFStringCreateWithBytes(kCFAllocatorDefault, bytes, length, kCFStringEncodingUnicode, false);
}

/// New data with the picture as a PNG file; none for a null pixmap.
CFDataRef qPixmapToCFDataRef(const QPixmap& pixmap)
{
    if (pixmap.isNull())
        return nullptr;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    pixmap.save(&buffer, "PNG");
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.RetainCount): the caller's, whatever the name of the function begins with
    return CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bytes.constData()), bytes.size());
}

/// The text without what stands from the first "image:" to the last ":image" behind it. A search and not a regular
/// expression, which would refuse a text with an unpaired surrogate.
QString withoutImageMarker(QString text)
{
    const QString opening = u"image:"_s;
    const QString closing = u":image"_s;
    const qsizetype first = text.indexOf(opening);
    const qsizetype last = text.lastIndexOf(closing);
    if (first < 0 || last < first + opening.size())
        return text;
    return text.remove(first, last + closing.size() - first);
}

/// The posting's number as a property-list string; what Growl hands back is compared with it by value.
Owned<CFPropertyListRef> makeClickContext(unsigned int sequence)
{
    const Owned<CFStringRef> text(qStringToCFStringRef(u"<string>%1</string>"_s.arg(sequence)));
    const Owned<CFDataRef> bytes(
        CFStringCreateExternalRepresentation(kCFAllocatorDefault, text.get(), kCFStringEncodingMacRoman, 0));
    CFStringRef error = nullptr;
    Owned<CFPropertyListRef> context(
        CFPropertyListCreateFromXMLData(kCFAllocatorDefault, bytes.get(), kCFPropertyListImmutable, &error));
    if (error != nullptr) {
        CFShow(error);
        CFRelease(error);
    }
    return context;
}

bool isStickyField(const ZepaField& field)
{
    return field.getId() == u"sticky"_s;
}

const CFStringRef& allNotificationsKey()
{
    static const CFStringRef key = CFSTR("AllNotifications");
    return key;
}

/// Registers with Growl. The dictionary owns, besides its own references, the creation references of `names` and of
/// every string in it; releaseRegistration() gives all of them up.
void registerNames(Growl_Delegate& delegate, CFArrayRef names)
{
    const void* keys[] = {allNotificationsKey()};
    const void* values[] = {names};
    delegate.registrationDictionary = CFDictionaryCreate(
        kCFAllocatorDefault, keys, values, 1, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
    Growl_SetDelegate(&delegate);
}

void releaseRegistration(Growl_Delegate& delegate)
{
    if (delegate.registrationDictionary == nullptr)
        return;
    const auto names =
        static_cast<CFArrayRef>(CFDictionaryGetValue(delegate.registrationDictionary, allNotificationsKey()));
    // The creation references of the names and of their array are the dictionary's own, beside the borrowed ones that
    // the analyzer sees here.
    // NOLINTBEGIN(clang-analyzer-osx.cocoa.RetainCount): as said
    const CFIndex count = CFArrayGetCount(names);
    for (CFIndex i = 0; i < count; ++i)
        CFRelease(CFArrayGetValueAtIndex(names, i));
    CFRelease(delegate.registrationDictionary);
    CFRelease(names);
    // NOLINTEND(clang-analyzer-osx.cocoa.RetainCount)
    delegate.registrationDictionary = nullptr;
}

} // namespace

ZepaHintNotificationMethod::ZepaHintNotificationMethod()
    : growlDelegate{}
    , notificationArray(CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks))
    , pictures(std::make_unique<PictureCache>(qPixmapToCFDataRef))
{
    hnminstance = this;
    livingMethods().insert(this);

    growlDelegate.size = sizeof(growlDelegate);
    growlDelegate.applicationName = CFSTR("Zepa");
    growlDelegate.referenceCount = 1;
    growlDelegate.growlNotificationWasClicked = notificationClicked;
    growlDelegate.growlNotificationTimedOut = notificationTimedOut;

    ZepaField sticky =
        ZepaField::checkBox(QCoreApplication::translate("translation", "Sticky",
                                                        "sticky notification, stays visible until user accepts it"),
                            u"sticky"_s, false, u""_s, QStringList());
    fields.append(sticky);
    sticky.setChecked(false);
    for (const QLatin1StringView id :
         {ZepaTypeId::messageReceivedInitial, ZepaTypeId::messageReceivedBackground, ZepaTypeId::messageReceived,
          ZepaTypeId::loggedIn, ZepaTypeId::info, ZepaTypeId::error, ZepaTypeId::email})
        setDefaultNotificationConfig(id, {sticky});

    // Identifiers, not display names, and only the first three of the seven: both are meant. This registration lasts
    // until the module installs the method. A CFSTR() needs its literal.
    const void* names[] = {CFSTR("message_received_initial"),
                           CFSTR("message_received_background"),
                           CFSTR("message_received"),
                           CFSTR("logged_in"),
                           CFSTR("info_notify"),
                           CFSTR("error_notify"),
                           CFSTR("email_notify")};
    constexpr CFIndex registeredAtFirst = 3;
    registerNames(growlDelegate, CFArrayCreate(kCFAllocatorDefault, names, registeredAtFirst, &kCFTypeArrayCallBacks));
}

ZepaHintNotificationMethod::~ZepaHintNotificationMethod()
{
    livingMethods().remove(this);
    CFRelease(growlDelegate.applicationName);
    releaseRegistration(growlDelegate);
    for (auto entry = pendingActions.constBegin(); entry != pendingActions.constEnd(); ++entry)
        CFRelease(entry.key());
}

QString ZepaHintNotificationMethod::getId() const
{
    return ZepaMethodId::hint;
}

QString ZepaHintNotificationMethod::getActionName() const
{
    return QCoreApplication::translate("translation", "Display a Growl notification",
                                       "growl - Mac OS X system wide notification method");
}

QString ZepaHintNotificationMethod::getActionIcon() const
{
    return {};
}

void ZepaHintNotificationMethod::registerNotification(ZepaNotification* /*notification*/)
{
    registerNotifications(ZepaNotificationModule::getInstance()->getNotifications().values());
}

void ZepaHintNotificationMethod::registerNotifications(const QList<ZepaNotification*>& notifications)
{
    std::vector<const void*> names;
    names.reserve(static_cast<std::size_t>(notifications.size()));
    for (const ZepaNotification* notification : notifications) {
        // An array takes no null: a type without a name is registered under the empty one.
        const QString& name = notification->getName();
        names.push_back(qStringToCFStringRef(name.isNull() ? u""_s : name));
    }
    CFArrayRef array =
        CFArrayCreate(kCFAllocatorDefault, names.data(), static_cast<CFIndex>(names.size()), &kCFTypeArrayCallBacks);
    releaseRegistration(growlDelegate);
    registerNames(growlDelegate, array);
}

void ZepaHintNotificationMethod::postNotification(unsigned int sequence, ZepaNotification* notification,
                                                  const QString& title, const QString& text, const QString& icon,
                                                  const QString& /*extra*/, const QList<ZepaField>& config,
                                                  const ZepaPluginAction& action, const QList<ZepaArg>& /*args*/)
{
    if (!Growl_IsRunning())
        return;
    Growl_SetDelegate(&growlDelegate);

    const Owned<CFStringRef> name(qStringToCFStringRef(notification->getName()));
    const Owned<CFStringRef> heading(qStringToCFStringRef(withoutImageMarker(title)));
    const Owned<CFStringRef> body(qStringToCFStringRef(withoutImageMarker(text)));
    const Owned<CFPropertyListRef> context =
        action.isValid() ? makeClickContext(sequence) : Owned<CFPropertyListRef>(nullptr);
    const Owned<CFDataRef> picture(pictures->picture(icon));

    Growl_Notification popup{};
    popup.size = sizeof(popup);
    popup.name = name.get();
    popup.title = heading.get();
    popup.description = body.get();
    popup.iconData = picture.get();

    if (!action.isValid()) {
        for (const ZepaField& field : config) {
            if (isStickyField(field))
                popup.isSticky = field.isChecked() ? 1 : 0;
        }
        Growl_PostNotification(&popup);
        return;
    }

    // Never sticky with an action, whatever the rule says: this is meant.
    popup.clickContext = context.get();
    // The table holds one reference on each of its keys. Where equal contexts are one and the same object, the earlier
    // entry gives its place, and its reference, to this one.
    if (!pendingActions.contains(context.get()))
        CFRetain(context.get());
    const ZepaPluginAction replaced = std::exchange(pendingActions[context.get()], action);
    Growl_PostNotification(&popup);
}

namespace {

/// The contexts that wait for an answer when a call-back begins. Holds a reference on each, so that none is freed,
/// and no new one appears at its address, while an action answers, posts or takes everything down.
class WaitingContexts
{
public:
    explicit WaitingContexts(const QList<const void*>& contexts) : keys(contexts)
    {
        for (const void* key : keys)
            CFRetain(key);
    }
    ~WaitingContexts()
    {
        for (const void* key : keys)
            CFRelease(key);
    }
    WaitingContexts(const WaitingContexts&) = delete;
    WaitingContexts& operator=(const WaitingContexts&) = delete;

    QList<const void*>::const_iterator begin() const { return keys.cbegin(); }
    QList<const void*>::const_iterator end() const { return keys.cend(); }

private:
    const QList<const void*> keys;
};

/// hnminstance, unless the method that it points to is gone.
ZepaHintNotificationMethod* usableInstance()
{
    return livingMethods().contains(hnminstance) ? hnminstance : nullptr;
}

} // namespace

void notificationClicked(const void* clickContext)
{
    CFShow(clickContext);
    if (usableInstance() == nullptr)
        return;
    CFShow(clickContext);
    const WaitingContexts waiting(hnminstance->pendingActions.keys());
    for (const void* key : waiting) {
        CFShow(key);
        if (!CFEqual(clickContext, key))
            continue;
        // The action of an earlier round may have answered this one, or destroyed the module.
        ZepaHintNotificationMethod* method = usableInstance();
        if (method == nullptr || !method->pendingActions.contains(key))
            continue;
        const ZepaPluginAction action = method->pendingActions.take(key);
        CFRelease(key);
        action();
    }
}

void notificationTimedOut(const void* clickContext)
{
    if (usableInstance() == nullptr)
        return;
    const WaitingContexts waiting(hnminstance->pendingActions.keys());
    for (const void* key : waiting) {
        if (!CFEqual(clickContext, key))
            continue;
        ZepaHintNotificationMethod* method = usableInstance();
        if (method == nullptr || !method->pendingActions.contains(key))
            continue;
        // Taken out first: the client may notice that its action is gone, and post.
        const ZepaPluginAction forgotten = method->pendingActions.take(key);
        CFRelease(key);
    }
}
