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

namespace {

class HintPosting : public ModuleTest
{
protected:
    HintPosting() { RecordingGrowl::reset(); }

    static ZepaField sticky(bool on) { return ProbeMethod::box(QStringLiteral("sticky"), on); }
    const RecordedPopup& post(const QString& title, const QString& text, const QList<ZepaField>& config = {},
                              const ZepaPluginAction& reaction = ZepaPluginAction(), const QString& icon = QString(),
                              unsigned int sequence = 0)
    {
        method.postNotification(sequence, &notification, title, text, icon, QStringLiteral("extra"), config, reaction,
                                {});
        return RecordingGrowl::popups.last();
    }
    /// What the pop-up shows for a title or text.
    QString shown(const QString& text) { return post(text, QString()).title; }

    ZepaHintNotificationMethod method;
    ZepaNotification notification{QStringLiteral("id"), QStringLiteral("Message received"), QString(), QString()};
    const ZepaPluginAction action{[] {}};
    const QString a = QStringLiteral("a");
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
    const RecordedPopup& popup = post(QStringLiteral("title"), QStringLiteral("text"));
    EXPECT_EQ(popup.size, sizeof(Growl_Notification));
    EXPECT_EQ(popup.name, QStringLiteral("Message received"));
    EXPECT_EQ(popup.title, QStringLiteral("title"));
    EXPECT_EQ(popup.description, QStringLiteral("text"));
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
    EXPECT_EQ(RecordingGrowl::calls.join(QLatin1Char(' ')), QStringLiteral("running set post running set post"));
}

TEST_F(HintPosting, DoesNothingWhenGrowlIsNotRunningEvenWithAnAction)
{
    RecordingGrowl::running = false;
    auto alive = std::make_shared<int>();
    const std::weak_ptr<int> watch = alive;
    method.postNotification(0, &notification, a, a, QString(), QString(), {},
                            ZepaPluginAction([alive = std::move(alive)] {}), {});
    EXPECT_EQ(RecordingGrowl::calls.join(QLatin1Char(' ')), QStringLiteral("running"));
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
    EXPECT_FALSE(post(a, a, {ProbeMethod::box(QStringLiteral("Sticky"), true)}).sticky);
    EXPECT_FALSE(post(a, a).sticky);
}

TEST_F(HintPosting, TakesTheImageMarkerOutAndKeepsBothBlanks)
{
    EXPECT_EQ(shown(QStringLiteral("New image:/tmp/a.png:image message")), QStringLiteral("New  message"));
}

TEST_F(HintPosting, TakesEverythingFromTheFirstMarkerToTheLast)
{
    const QString text = post(a, QStringLiteral("image:a:image x image:b:image")).description;
    EXPECT_TRUE(text.isEmpty());
    EXPECT_FALSE(text.isNull());
}

TEST_F(HintPosting, TakesMarkersOutAsTheGreedyExpressionSays)
{
    EXPECT_EQ(shown(QStringLiteral("a image:x\ny:image b")), QStringLiteral("a  b"));
    EXPECT_EQ(shown(QStringLiteral("aimage::imageb")), QStringLiteral("ab"));
    EXPECT_EQ(shown(QStringLiteral("image:image")), QStringLiteral("image:image"));
    EXPECT_EQ(shown(QStringLiteral("image:x")), QStringLiteral("image:x"));
    EXPECT_EQ(shown(QStringLiteral(":image x image:")), QStringLiteral(":image x image:"));
    EXPECT_EQ(shown(QStringLiteral("IMAGE:x:IMAGE")), QStringLiteral("IMAGE:x:IMAGE"));
    EXPECT_EQ(shown(QStringLiteral("image:a image:b:image c")), QStringLiteral(" c"));
    EXPECT_EQ(shown(QStringLiteral("image:a:image:image")), QStringLiteral(""));
    const QString surrogate = QString(QChar(0xd800));
    EXPECT_EQ(shown(surrogate + QStringLiteral("image:x") + surrogate + QStringLiteral(":image!")),
              surrogate + QLatin1Char('!'));
}

TEST_F(HintPosting, LeavesTheCallersTextsAlone)
{
    const QString title = QStringLiteral("a image:b:image");
    post(title, title);
    EXPECT_EQ(title, QStringLiteral("a image:b:image"));
}

TEST_F(HintPosting, GivesNoStringForANullTextAndAnEmptyOneForAnEmptyText)
{
    const RecordedPopup& without = post(QString(), QString());
    EXPECT_TRUE(without.title.isNull());
    EXPECT_TRUE(without.description.isNull());
    const RecordedPopup& empty = post(QStringLiteral(""), QStringLiteral(""));
    EXPECT_FALSE(empty.title.isNull());
    EXPECT_FALSE(empty.description.isNull());
    EXPECT_TRUE(empty.title.isEmpty());
    const RecordedPopup& withAction = post(QString(), QString(), {}, action);
    EXPECT_TRUE(withAction.title.isNull());
}

TEST_F(HintPosting, SurvivesATypeWithoutAName)
{
    ZepaNotification nameless(QStringLiteral("id"), QString(), QString(), QString());
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
    const QString file = host.settings.filePath(QStringLiteral("picture.bmp"));
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
    const QString file = host.settings.filePath(QStringLiteral("picture.png"));
    ASSERT_TRUE(savePicture(file, Qt::green, settledAge));
    const QByteArray first = post(a, a, {}, {}, file).icon;
    const QByteArray second = post(a, a, {}, {}, file).icon;
    EXPECT_EQ(colourOf(first), QColor(Qt::green));
    EXPECT_EQ(second, first);
}

TEST_F(HintPosting, NoticesThatAPictureFileHasChanged)
{
    const QString file = host.settings.filePath(QStringLiteral("picture.bmp"));
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
    const QString file = host.settings.filePath(QStringLiteral("picture.bmp"));
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
    const QString green = host.settings.filePath(QStringLiteral("green.bmp"));
    const QString red = host.settings.filePath(QStringLiteral("red.bmp"));
    const QString link = host.settings.filePath(QStringLiteral("picture.bmp"));
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
    ASSERT_TRUE(savePicture(host.settings.filePath(QStringLiteral("picture.png")), Qt::green));
    ASSERT_TRUE(savePicture(host.settings.filePath(QStringLiteral("picture.of.anna.png")), Qt::red));
    const QString plain = host.settings.filePath(QStringLiteral("picture"));
    const QString dotted = host.settings.filePath(QStringLiteral("picture.of.anna"));
    ASSERT_FALSE(QPixmap(plain).isNull());
    ASSERT_TRUE(QPixmap(dotted).isNull());
    EXPECT_EQ(colourOf(post(a, a, {}, {}, plain).icon), QColor(Qt::green));
    EXPECT_TRUE(post(a, a, {}, {}, dotted).icon.isNull());
}

TEST_F(HintPosting, HandsNoPictureOnWhenItsFileIsGone)
{
    const QString file = host.settings.filePath(QStringLiteral("picture.png"));
    ASSERT_TRUE(savePicture(file, Qt::green, settledAge));
    EXPECT_FALSE(post(a, a, {}, {}, file).icon.isNull());
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_TRUE(post(a, a, {}, {}, file).icon.isNull());
}

TEST_F(HintPosting, HandsNoPictureOnForAMissingOrUnreadableFileOrAnEmptyPath)
{
    const QString file = host.settings.filePath(QStringLiteral("text.png"));
    QFile text(file);
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("no picture") > 0);
    text.close();
    EXPECT_TRUE(post(a, a, {}, {}, file).icon.isNull());
    EXPECT_TRUE(post(a, a, {}, {}, QStringLiteral("/nowhere/x.png")).icon.isNull());
    EXPECT_TRUE(post(a, a, {}, {}, QStringLiteral("")).icon.isNull());
}

TEST_F(HintPosting, WritesItsNumberInFullIntoTheClickContext)
{
    EXPECT_EQ(post(a, a, {}, action, {}, 0).contextText, QStringLiteral("0"));
    EXPECT_EQ(post(a, a, {}, action, {}, std::numeric_limits<unsigned int>::max()).contextText,
              QStringLiteral("4294967295"));
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
    const QString file = host.settings.filePath(QStringLiteral("picture.png"));
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
