// SPDX-License-Identifier: Apache-2.0
#include "pictures.h"

#include "picture_checks.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Variant
{
    QString name;
    bool isDark = false;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

QPalette darkPalette()
{
    const QColor window(0x2b, 0x2d, 0x30);
    const QColor base(0x1e, 0x1f, 0x22);
    const QColor text(0xe6, 0xe6, 0xe6);
    const QColor faint(0x8a, 0x8c, 0x90);
    QPalette palette(text, window, window.lighter(150), window.darker(150), window.darker(120), text, Qt::white, base,
                     window);
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2b));
    palette.setColor(QPalette::Button, QColor(0x3a, 0x3d, 0x41));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xca));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6c, 0xa8, 0xff));
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

QList<Variant> variants()
{
    if (qApp->devicePixelRatio() > 1.0)
        return {{u"200"_s}};
    return {{u"light"_s}, {u"dark"_s, true}, {u"right-to-left"_s, false, Qt::RightToLeft}};
}

void settle(QWidget& window)
{
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    // What is shown late (a client that starts after the first drawing, news from the event loop) is shown by then.
    for (int round = 0; round < 20; ++round)
        QTest::qWait(5);
}

} // namespace

void takePictures(const QString& name, const std::function<std::unique_ptr<QWidget>()>& makeWindow)
{
    const QString folder = QString::fromUtf16(ZEPA_PICTURES);
    ASSERT_TRUE(QDir().mkpath(folder));
    QApplication::setFont(QFont(u"DejaVu Sans"_s, 10));
    const QList<Variant> all = variants();
    for (const Variant& variant : all) {
        SCOPED_TRACE((name + u' ' + variant.name).toStdString());
        QApplication::setPalette(variant.isDark ? darkPalette() : QApplication::style()->standardPalette());
        QApplication::setLayoutDirection(variant.direction);
        const std::unique_ptr<QWidget> window = makeWindow();
        window->show();
        settle(*window);

        const QImage picture = window->grab().toImage();
        EXPECT_TRUE(picture.save(folder + name + u'-' + variant.name + u".png"_s));
        EXPECT_EQ(picture.size(), window->size() * window->devicePixelRatio());
        EXPECT_EQ(window->layoutDirection(), variant.direction);
        checkDrawing(picture, variant.isDark);
        checkWidgets(*window);
    }
}
