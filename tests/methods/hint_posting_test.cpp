// SPDX-License-Identifier: Apache-2.0
#include "methods/hint_notification_method.h"
#include "module_test.h"

#include <QColor>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPixmap>
#include <QThread>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

class HintPosting : public ModuleTest
{
protected:
    HintPosting() { RecordingGrowl::reset(); }

    static ZepaField sticky(bool on) { return ProbeMethod::box(u"sticky"_s, on); }
    const RecordedPopup& post(const QString& title, const QString& text, const QList<ZepaField>& config = {},
                              const ZepaPluginAction& reaction = ZepaPluginAction(), const QString& icon = QString(),
                              unsigned int sequence = 0)
    {
        method.postNotification(sequence, &notification, title, text, icon, u"extra"_s, config, reaction, {});
        return RecordingGrowl::popups.last();
    }
    /// What the pop-up shows for a title or text.
    QString shown(const QString& text) { return post(text, QString()).title; }

    ZepaHintNotificationMethod method;
    ZepaNotification notification{u"id"_s, u"Message received"_s, QString(), QString()};
    const ZepaPluginAction action{[] {}};
    const QString a = u"a"_s;
};

/// Long enough for a written file to count as settled, in milliseconds.
constexpr int settledAge = 150;

/// Saves a small picture of one colour, and waits until the file is of that age.
bool savePicture(const QString& file, const QColor& colour, int age = 0)
{
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(colour);
    if (!picture.save(file))
        return false;
    QThread::msleep(static_cast<unsigned long>(age));
    return true;
}

QColor colourOf(const QByteArray& encoded)
{
    return QImage::fromData(encoded).pixelColor(0, 0);
}

} // namespace

TEST_F(HintPosting, FillsTheRecordWithTheDisplayNameAndNothingThatIsNotAsked)
{
    const RecordedPopup& popup = post(u"title"_s, u"text"_s);
    EXPECT_EQ(popup.size, sizeof(Growl_Notification));
    EXPECT_EQ(popup.name, u"Message received"_s);
    EXPECT_EQ(popup.title, u"title"_s);
    EXPECT_EQ(popup.description, u"text"_s);
    EXPECT_TRUE(popup.icon.isNull());
    EXPECT_EQ(popup.priority, 0);
    EXPECT_EQ(popup.reserved, 0U);
    EXPECT_FALSE(popup.sticky);
    EXPECT_EQ(popup.context, nullptr);
    EXPECT_FALSE(popup.hasCallback);
    EXPECT_FALSE(popup.hasIdentifier);
}

TEST_F(HintPosting, RegistersAgainAtEveryPostingThatFindsGrowlRunning)
{
    post(a, a);
    post(a, a, {}, action);
    EXPECT_EQ(RecordingGrowl::calls.join(QLatin1Char(' ')), u"running set post running set post"_s);
}

TEST_F(HintPosting, DoesNothingWhenGrowlIsNotRunningEvenWithAnAction)
{
    RecordingGrowl::running = false;
    auto alive = std::make_shared<int>();
    const std::weak_ptr<int> watch = alive;
    method.postNotification(0, &notification, a, a, QString(), QString(), {},
                            ZepaPluginAction([alive = std::move(alive)] {}), {});
    EXPECT_EQ(RecordingGrowl::calls.join(QLatin1Char(' ')), u"running"_s);
    EXPECT_TRUE(watch.expired()) << "the action is kept";
}

// Never sticky with an action, sticky without one: this is odd and meant.
TEST_F(HintPosting, IsNotStickyWithAnActionThoughTheRuleSaysSoAndIsWithoutOne)
{
    EXPECT_FALSE(post(a, a, {sticky(true)}, action).sticky);
    EXPECT_TRUE(post(a, a, {sticky(true)}).sticky);
}

TEST_F(HintPosting, TakesTheLastStickyFieldAndNoOther)
{
    EXPECT_FALSE(post(a, a, {sticky(true), sticky(false)}).sticky);
    EXPECT_TRUE(post(a, a, {sticky(false), sticky(true)}).sticky);
    EXPECT_FALSE(post(a, a, {ProbeMethod::box(u"Sticky"_s, true)}).sticky);
    EXPECT_FALSE(post(a, a).sticky);
}

TEST_F(HintPosting, TakesTheImageMarkerOutAndKeepsBothBlanks)
{
    EXPECT_EQ(shown(u"New image:/tmp/a.png:image message"_s), u"New  message"_s);
}

TEST_F(HintPosting, TakesEverythingFromTheFirstMarkerToTheLast)
{
    const QString text = post(a, u"image:a:image x image:b:image"_s).description;
    EXPECT_TRUE(text.isEmpty());
    EXPECT_FALSE(text.isNull());
}

TEST_F(HintPosting, TakesMarkersOutAsTheGreedyExpressionSays)
{
    EXPECT_EQ(shown(u"a image:x\ny:image b"_s), u"a  b"_s);
    EXPECT_EQ(shown(u"aimage::imageb"_s), u"ab"_s);
    EXPECT_EQ(shown(u"image:image"_s), u"image:image"_s);
    EXPECT_EQ(shown(u"image:x"_s), u"image:x"_s);
    EXPECT_EQ(shown(u":image x image:"_s), u":image x image:"_s);
    EXPECT_EQ(shown(u"IMAGE:x:IMAGE"_s), u"IMAGE:x:IMAGE"_s);
    EXPECT_EQ(shown(u"image:a image:b:image c"_s), u" c"_s);
    EXPECT_EQ(shown(u"image:a:image:image"_s), u""_s);
    const QString surrogate = QString(QChar(0xd800));
    EXPECT_EQ(shown(surrogate + u"image:x"_s + surrogate + u":image!"_s), surrogate + QLatin1Char('!'));
}

TEST_F(HintPosting, LeavesTheCallersTextsAlone)
{
    const QString title = u"a image:b:image"_s;
    post(title, title);
    EXPECT_EQ(title, u"a image:b:image"_s);
}

TEST_F(HintPosting, GivesNoStringForANullTextAndAnEmptyOneForAnEmptyText)
{
    const RecordedPopup& without = post(QString(), QString());
    EXPECT_TRUE(without.title.isNull());
    EXPECT_TRUE(without.description.isNull());
    const RecordedPopup& empty = post(u""_s, u""_s);
    EXPECT_FALSE(empty.title.isNull());
    EXPECT_FALSE(empty.description.isNull());
    EXPECT_TRUE(empty.title.isEmpty());
    const RecordedPopup& withAction = post(QString(), QString(), {}, action);
    EXPECT_TRUE(withAction.title.isNull());
}

TEST_F(HintPosting, SurvivesATypeWithoutAName)
{
    ZepaNotification nameless(u"id"_s, QString(), QString(), QString());
    method.postNotification(0, &nameless, a, a, QString(), QString(), {}, action, {});
    EXPECT_TRUE(RecordingGrowl::popups.last().name.isNull());
}

TEST_F(HintPosting, KeepsSurrogatePairsAsTheyAre)
{
    const QString text = QString::fromUtf8("\xf0\x9f\x98\x80 and \xf0\x9d\x84\x9e");
    ASSERT_EQ(text.size(), 9);
    EXPECT_EQ(shown(text), text);
}

TEST_F(HintPosting, HandsThePictureOnAsAPngFile)
{
    const QString file = host.settings.filePath(u"picture.bmp"_s);
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(Qt::green);
    ASSERT_TRUE(picture.save(file));
    for (const ZepaPluginAction& each : {ZepaPluginAction(), action}) {
        const QByteArray icon = post(a, a, {}, each, file).icon;
        EXPECT_TRUE(icon.startsWith("\x89PNG"));
        EXPECT_EQ(QImage::fromData(icon).convertToFormat(QImage::Format_RGB32), picture);
    }
}

TEST_F(HintPosting, HandsTheSamePictureOnForTheSameFile)
{
    const QString file = host.settings.filePath(u"picture.png"_s);
    ASSERT_TRUE(savePicture(file, Qt::green, settledAge));
    const QByteArray first = post(a, a, {}, {}, file).icon;
    const QByteArray second = post(a, a, {}, {}, file).icon;
    EXPECT_EQ(colourOf(first), QColor(Qt::green));
    EXPECT_EQ(second, first);
}

TEST_F(HintPosting, NoticesThatAPictureFileHasChanged)
{
    const QString file = host.settings.filePath(u"picture.bmp"_s);
    ASSERT_TRUE(savePicture(file, Qt::green, settledAge));
    EXPECT_EQ(colourOf(post(a, a, {}, {}, file).icon), QColor(Qt::green));
    EXPECT_EQ(colourOf(post(a, a, {}, {}, file).icon), QColor(Qt::green));
    const qint64 size = QFileInfo(file).size();
    const QDateTime modified = QFileInfo(file).lastModified();
    ASSERT_TRUE(savePicture(file, Qt::red));
    // Of the same length, and with its old time of modification.
    QFile changed(file);
    ASSERT_TRUE(changed.open(QIODevice::ReadWrite) && changed.setFileTime(modified, QFileDevice::FileModificationTime));
    changed.close();
    ASSERT_EQ(QFileInfo(file).size(), size);
    EXPECT_EQ(colourOf(post(a, a, {}, {}, file).icon), QColor(Qt::red));
}

TEST_F(HintPosting, NoticesEveryChangeOfAFileThatIsBeingWritten)
{
    const QString file = host.settings.filePath(u"picture.bmp"_s);
    for (const Qt::GlobalColor colour : {Qt::green, Qt::red, Qt::blue, Qt::green, Qt::red}) {
        ASSERT_TRUE(savePicture(file, colour));
        EXPECT_EQ(colourOf(post(a, a, {}, {}, file).icon), QColor(colour));
    }
}

/// Two pictures of one length and, to the millisecond, of the same times; false when the machine is too slow for it.
bool saveTwins(const QString& first, const QColor& firstColour, const QString& second, const QColor& secondColour)
{
    for (int attempt = 0; attempt < 200; ++attempt) {
        if (!savePicture(first, firstColour) || !savePicture(second, secondColour))
            return false;
        const QFileInfo one(first);
        const QFileInfo other(second);
        if (one.size() == other.size() && one.lastModified() == other.lastModified() &&
            one.metadataChangeTime() == other.metadataChangeTime())
            return true;
    }
    return false;
}

TEST_F(HintPosting, NoticesThatAPathLeadsToAnotherFileOfTheSameSizeAndTime)
{
    const QString green = host.settings.filePath(u"green.bmp"_s);
    const QString red = host.settings.filePath(u"red.bmp"_s);
    const QString link = host.settings.filePath(u"picture.bmp"_s);
    if (!saveTwins(green, Qt::green, red, Qt::red))
        GTEST_SKIP() << "no two files were written within a millisecond";
    QThread::msleep(settledAge);
    ASSERT_TRUE(QFile::link(green, link));
    EXPECT_EQ(colourOf(post(a, a, {}, {}, link).icon), QColor(Qt::green));
    ASSERT_TRUE(QFile::remove(link) && QFile::link(red, link));
    EXPECT_EQ(colourOf(post(a, a, {}, {}, link).icon), QColor(Qt::red));
}

TEST_F(HintPosting, FindsThePictureOfAPathWithoutItsEndingWhereAPixmapWould)
{
    ASSERT_TRUE(savePicture(host.settings.filePath(u"picture.png"_s), Qt::green));
    ASSERT_TRUE(savePicture(host.settings.filePath(u"picture.of.anna.png"_s), Qt::red));
    const QString plain = host.settings.filePath(u"picture"_s);
    const QString dotted = host.settings.filePath(u"picture.of.anna"_s);
    ASSERT_FALSE(QPixmap(plain).isNull());
    ASSERT_TRUE(QPixmap(dotted).isNull());
    EXPECT_EQ(colourOf(post(a, a, {}, {}, plain).icon), QColor(Qt::green));
    EXPECT_TRUE(post(a, a, {}, {}, dotted).icon.isNull());
}

TEST_F(HintPosting, HandsNoPictureOnWhenItsFileIsGone)
{
    const QString file = host.settings.filePath(u"picture.png"_s);
    ASSERT_TRUE(savePicture(file, Qt::green, settledAge));
    EXPECT_FALSE(post(a, a, {}, {}, file).icon.isNull());
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_TRUE(post(a, a, {}, {}, file).icon.isNull());
}

TEST_F(HintPosting, HandsNoPictureOnForAMissingOrUnreadableFileOrAnEmptyPath)
{
    const QString file = host.settings.filePath(u"text.png"_s);
    QFile text(file);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("no picture") > 0);
    text.close();
    EXPECT_TRUE(post(a, a, {}, {}, file).icon.isNull());
    EXPECT_TRUE(post(a, a, {}, {}, u"/nowhere/x.png"_s).icon.isNull());
    EXPECT_TRUE(post(a, a, {}, {}, u""_s).icon.isNull());
}

TEST_F(HintPosting, WritesItsNumberInFullIntoTheClickContext)
{
    EXPECT_EQ(post(a, a, {}, action, {}, 0).contextText, u"0"_s);
    EXPECT_EQ(post(a, a, {}, action, {}, std::numeric_limits<unsigned int>::max()).contextText, u"4294967295"_s);
    const CFPropertyListRef context = post(a, a, {}, action, {}, 42).context;
    EXPECT_TRUE(CFEqual(context, CFSTR("42")));
}

TEST_F(HintPosting, LeavesTheTableOneReferenceOnTheContext)
{
    const RecordedPopup& popup = post(a, a, {}, action);
    // The other one is the recording Growl's.
    EXPECT_EQ(CFGetRetainCount(popup.context), 2);
}

TEST_F(HintPosting, GivesUpEveryStringThatItMadeForGrowl)
{
    const QString file = host.settings.filePath(u"picture.png"_s);
    ASSERT_TRUE(savePicture(file, Qt::green));
    for (const ZepaPluginAction& each : {ZepaPluginAction(), action}) {
        const RecordedPopup& popup = post(a, a, {}, each, file);
        // Name, title, description and picture, each with the recording Growl's reference alone.
        EXPECT_EQ(popup.kept.size(), 4);
        for (CFTypeRef object : popup.kept)
            EXPECT_EQ(CFGetRetainCount(object), 1);
    }
}

TEST_F(HintPosting, KeepsTheActionUntilAnAnswer)
{
    auto alive = std::make_shared<int>();
    const std::weak_ptr<int> watch = alive;
    post(a, a, {}, ZepaPluginAction([alive = std::move(alive)] {}));
    EXPECT_FALSE(watch.expired());
    notificationTimedOut(RecordingGrowl::popups.last().context);
    EXPECT_TRUE(watch.expired());
}
