// SPDX-License-Identifier: Apache-2.0
#include "module_test.h"

#include "host/tray_icon.h"

#include <QPixmap>

using namespace Qt::StringLiterals;

namespace {

const QString name = u"mail"_s;

class TrayIcons : public ModuleTest
{
protected:
    static QIcon picture(int size)
    {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::blue);
        return QIcon(pixmap);
    }
    static QStringList calls(const char* text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); }
};

} // namespace

TEST_F(TrayIcons, AreMadeWithAPictureAndShownTheFirstTime)
{
    ZepaTrayIcon* icon = module().setTrayIcon(name, picture(3));
    EXPECT_EQ(host.icons[icon].calls, calls("made icon visible"));
    EXPECT_EQ(icon->icon().availableSizes().value(0), QSize(3, 3));
    EXPECT_EQ(icon->parent(), nullptr);
    EXPECT_EQ(module().getTrayIcon(name), icon);
}

TEST_F(TrayIcons, AreNotShownAgainWhenTheClientHidThem)
{
    ZepaTrayIcon* icon = module().setTrayIcon(name, picture(3));
    icon->setVisible(false);
    EXPECT_EQ(module().setTrayIcon(name, picture(4)), icon);
    EXPECT_EQ(host.icons[icon].calls, calls("made icon visible hidden icon"));
    EXPECT_FALSE(icon->isVisible());
    EXPECT_EQ(icon->icon().availableSizes().value(0), QSize(4, 4));
}

TEST_F(TrayIcons, AreNeverMadeByALookUp)
{
    module();
    EXPECT_EQ(module().getTrayIcon(name), nullptr);
    EXPECT_EQ(host.iconsMade.size(), 1);
}

TEST_F(TrayIcons, AreListedWithoutTheMainOne)
{
    ZepaTrayIcon* mail = module().setTrayIcon(name, picture(3));
    ZepaTrayIcon* calendar = module().setTrayIcon(u"calendar"_s, picture(3));
    EXPECT_EQ(module().getTrayIcons().size(), 2);
    EXPECT_TRUE(module().getTrayIcons().contains(mail));
    EXPECT_TRUE(module().getTrayIcons().contains(calendar));
}

TEST_F(TrayIcons, HaveANameUnlessTheyAreTheMainOneOrStrangers)
{
    ZepaTrayIcon* icon = module().setTrayIcon(name, picture(3));
    ZepaTrayIcon stranger(nullptr);
    EXPECT_EQ(module().getTrayIconId(icon), name);
    EXPECT_TRUE(module().getTrayIconId(module().getTrayIcon()).isNull());
    EXPECT_TRUE(module().getTrayIconId(&stranger).isNull());
    EXPECT_TRUE(module().getTrayIconId(nullptr).isNull());
}

TEST_F(TrayIcons, AreHandedBackStillVisibleWhenRemoved)
{
    const std::unique_ptr<ZepaTrayIcon> removed([this] {
        module().setTrayIcon(name, picture(3));
        return module().removeTrayIcon(name);
    }());
    ASSERT_NE(removed, nullptr);
    EXPECT_TRUE(removed->isVisible());
    EXPECT_EQ(host.icons[removed.get()].calls, calls("made icon visible"));
    EXPECT_EQ(module().getTrayIcon(name), nullptr);
    closeModule();
    EXPECT_EQ(host.icons[removed.get()].calls, calls("made icon visible"));
}

TEST_F(TrayIcons, AreAllDeletedByAnEmptyNameThoughAnEmptyNameIsAKeyLikeAnyOther)
{
    ZepaTrayIcon* unnamed = module().setTrayIcon(u""_s, picture(3));
    ZepaTrayIcon* mail = module().setTrayIcon(name, picture(3));
    EXPECT_EQ(module().getTrayIcon(u""_s), unnamed);
    EXPECT_EQ(module().removeTrayIcon(u""_s), nullptr);
    EXPECT_EQ(host.icons[unnamed].calls.last(), u"deleted"_s);
    EXPECT_EQ(host.icons[mail].calls.last(), u"deleted"_s);
    EXPECT_TRUE(module().getTrayIcons().isEmpty());
    EXPECT_NE(host.icons[module().getTrayIcon()].calls.last(), u"deleted"_s);
}

TEST_F(TrayIcons, AreNotRemovedByAnUnknownName)
{
    module().setTrayIcon(name, picture(3));
    EXPECT_EQ(module().removeTrayIcon(u"unknown"_s), nullptr);
    EXPECT_EQ(module().getTrayIcons().size(), 1);
}

TEST_F(TrayIcons, AreDeletedWithTheModule)
{
    const ZepaTrayIcon* main = module().getTrayIcon();
    const ZepaTrayIcon* mail = module().setTrayIcon(name, picture(3));
    closeModule();
    EXPECT_EQ(host.icons[main].calls.last(), u"deleted"_s);
    EXPECT_EQ(host.icons[mail].calls.last(), u"deleted"_s);
}
