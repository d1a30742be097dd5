// SPDX-License-Identifier: Apache-2.0
#include "methods/hint_notification_method.h"
#include "methods/sound_notification_method.h"
#include "module_test.h"

#include <QImage>
#include <QPixmap>

#include <dlfcn.h>

using namespace Qt::StringLiterals;

// What the methods call of others, seen at the calls: the program's definitions come before those of its libraries.

namespace {

/// "context", "picture" and "argument" in the order of the calls.
QStringList calls;
QList<QStringList> boxOptions;
QStringList boxTexts;
bool doesSavingFail = false;

template <typename Function>
Function next(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

CFDataRef CFStringCreateExternalRepresentation(CFAllocatorRef allocator, CFStringRef string, CFStringEncoding encoding,
                                               UInt8 lossByte)
{
    calls.append(u"context"_s);
    static const auto make =
        next<decltype(&CFStringCreateExternalRepresentation)>("CFStringCreateExternalRepresentation");
    return make(allocator, string, encoding, lossByte);
}

bool QPixmap::save(QIODevice* device, const char* format, int quality) const
{
    calls.append(u"picture"_s);
    return !doesSavingFail && toImage().save(device, format, quality);
}

ZepaField ZepaField::checkBox(const QString& label, const QString& id, bool checked, const QString& text,
                              const QStringList& options)
{
    boxTexts.append(text);
    boxOptions.append(options);
    static const auto make =
        next<decltype(&ZepaField::checkBox)>("_ZN9ZepaField8checkBoxERK7QStringS2_bS2_RK5QListIS0_E");
    return make(label, id, checked, text, options);
}

ZepaBuddy ZepaArg::toBuddy() const
{
    calls.append(u"argument"_s);
    for (qsizetype i = 0; RecordingHost::current != nullptr && i < RecordingHost::current->settingsRead.size(); ++i)
        calls.append(u"after a setting"_s);
    static const auto convert = next<ZepaBuddy (*)(const ZepaArg*)>("_ZNK7ZepaArg7toBuddyEv");
    return convert(this);
}

namespace {

class CallsOut : public ModuleTest
{
protected:
    CallsOut()
    {
        calls.clear();
        boxTexts.clear();
        boxOptions.clear();
    }
    ~CallsOut() override { doesSavingFail = false; }

    void post(ZepaNotificationMethod& method, const QString& id, const ZepaPluginAction& action,
              const QList<ZepaArg>& args = {})
    {
        ZepaNotification notification(id, id, QString(), QString());
        QImage picture(3, 2, QImage::Format_RGB32);
        picture.fill(Qt::red);
        const QString file = host.settings.filePath(u"picture.bmp"_s);
        ASSERT_TRUE(picture.save(file));
        method.postNotification(0, &notification, id, id, file, QString(), {}, action, args);
    }
};

} // namespace

TEST_F(CallsOut, OfAPopupMakeTheClickContextBeforeThePicture)
{
    ZepaHintNotificationMethod method;
    post(method, u"event"_s, ZepaPluginAction([] {}));
    EXPECT_EQ(calls, QStringList({u"context"_s, u"picture"_s}));
    calls.clear();
    post(method, u"event"_s, ZepaPluginAction());
    EXPECT_EQ(calls, QStringList({u"picture"_s}));
}

TEST_F(CallsOut, OfAPopupHandEmptyDataOnWhenThePictureCannotBeSaved)
{
    ZepaHintNotificationMethod method;
    doesSavingFail = true;
    post(method, u"event"_s, ZepaPluginAction());
    const RecordedPopup& popup = RecordingGrowl::popups.last();
    // Name, title, description and the picture.
    ASSERT_EQ(popup.kept.size(), 4);
    EXPECT_TRUE(popup.icon.isEmpty());
    EXPECT_EQ(CFDataGetLength(static_cast<CFDataRef>(popup.kept.last())), 0);
}

TEST_F(CallsOut, ForTheStickyBoxGiveAnEmptyTextAndNoOptions)
{
    const ZepaHintNotificationMethod method;
    ASSERT_EQ(boxTexts.size(), 1);
    EXPECT_TRUE(boxTexts.first().isEmpty() && !boxTexts.first().isNull());
    EXPECT_EQ(boxOptions, QList<QStringList>({QStringList()}));
}

TEST_F(CallsOut, OfAnAlertTakeTheSenderBeforeTheSettingWhateverThatSays)
{
    ZepaSoundNotificationMethod method;
    const ZepaArg sender = ZepaArg::fromBuddy(ZepaBuddy(u"ann"_s, QString(), ZepaBuddy::Contact));
    for (const char* choice : {"never", "always", "buddies_only"}) {
        calls.clear();
        host.settingsRead.clear();
        host.alerts = QString::fromLatin1(choice);
        post(method, u"alert_received_notify"_s, ZepaPluginAction(), {sender});
        EXPECT_EQ(calls, QStringList({u"argument"_s})) << choice;
        EXPECT_EQ(host.settingsRead.size(), 1);
    }
}
