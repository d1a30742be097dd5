// SPDX-License-Identifier: Apache-2.0
#include "irregular_file.h"
#include "methods/hint_notification_method.h"
#include "module_test.h"

#include <QBuffer>
#include <QColor>
#include <QDir>
#include <QImage>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace {

class HintPictures : public ModuleTest
{
protected:
    QString path(const QString& name) const { return host.settings.filePath(name); }
    /// The picture that the pop-up gets for a path; null when it gets none.
    QImage shown(const QString& icon)
    {
        method.postNotification(0, &notification, u"title"_s, QString(), icon, QString(), {}, ZepaPluginAction(), {});
        return QImage::fromData(RecordingGrowl::popups.last().icon).convertToFormat(QImage::Format_RGB32);
    }
    static QImage picture(Qt::GlobalColor colour)
    {
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }

    ZepaHintNotificationMethod method;
    ZepaNotification notification{u"id"_s, u"name"_s, QString(), QString()};
    const QString png = u"picture.png"_s;
};

class IrregularHintPictures : public HintPictures, public testing::WithParamInterface<Irregular>
{};

} // namespace

TEST_P(IrregularHintPictures, AreNotShown)
{
    if (!makeIrregular(GetParam(), path(png)))
        GTEST_SKIP() << "the path of the temporary folder is too long for a socket";
    EXPECT_TRUE(shown(path(png)).isNull());
    // The path without its ending leads to it, too.
    EXPECT_TRUE(shown(path(u"picture"_s)).isNull());
}

INSTANTIATE_TEST_SUITE_P(Kind, IrregularHintPictures,
                         testing::Values(Irregular::Pipe, Irregular::LinkToPipe, Irregular::Device, Irregular::Socket,
                                         Irregular::Folder),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST_F(HintPictures, AreNotTakenOutOfAPipe)
{
    QByteArray encoded;
    QBuffer buffer(&encoded);
    ASSERT_TRUE(buffer.open(QIODevice::WriteOnly) && picture(Qt::green).save(&buffer, "BMP"));
    const FilledPipe pipe(path(png), encoded);
    EXPECT_TRUE(shown(path(png)).isNull());
    EXPECT_EQ(pipe.takeText(), encoded);
}

TEST_F(HintPictures, AreFoundBehindAPathAtWhichThereIsAFolder)
{
    ASSERT_TRUE(QDir().mkdir(path(u"picture"_s)) && picture(Qt::green).save(path(png)));
    ASSERT_FALSE(QPixmap(path(u"picture"_s)).isNull());
    EXPECT_EQ(shown(path(u"picture"_s)), picture(Qt::green));
}

TEST_F(HintPictures, MayBeBuiltIntoTheProgram)
{
    // One that Qt's own library brings.
    const QString builtIn = u":/qt-project.org/styles/commonstyle/images/standardbutton-ok-16.png"_s;
    ASSERT_FALSE(QPixmap(builtIn).isNull());
    EXPECT_EQ(shown(builtIn).size(), QPixmap(builtIn).size());
    const QString withoutEnding = builtIn.chopped(4);
    ASSERT_FALSE(QPixmap(withoutEnding).isNull());
    EXPECT_EQ(shown(withoutEnding).size(), QPixmap(builtIn).size());
}

TEST_F(HintPictures, MayBeInAFolderOfASearchPath)
{
    ASSERT_TRUE(picture(Qt::green).save(path(png)));
    QDir::setSearchPaths(u"pictures"_s, {u"/nowhere"_s, host.settings.path()});
    EXPECT_EQ(shown(u"pictures:picture.png"_s), picture(Qt::green));
    EXPECT_EQ(shown(u"pictures:picture"_s), picture(Qt::green));
    QDir::setSearchPaths(u"pictures"_s, {});
}

TEST_F(HintPictures, AreReadWhateverTheirEndingSays)
{
    ASSERT_TRUE(picture(Qt::red).save(path(png), "BMP"));
    EXPECT_EQ(shown(path(png)), picture(Qt::red));
}

TEST_F(HintPictures, WithARelativePathAreLookedForInTheWorkingFolder)
{
    ASSERT_TRUE(picture(Qt::green).save(path(png)));
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(host.settings.path()));
    EXPECT_EQ(shown(png), picture(Qt::green));
    ASSERT_TRUE(QDir::setCurrent(before));
    EXPECT_TRUE(shown(png).isNull());
}
