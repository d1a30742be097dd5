// SPDX-License-Identifier: Apache-2.0
#include "picture_checks.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace Qt::StringLiterals;

namespace {

std::string described(const QWidget& widget)
{
    QString text = QString::fromLatin1(widget.metaObject()->className());
    if (!widget.objectName().isEmpty())
        text += u' ' + widget.objectName();
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        text += u" \"%1\""_s.arg(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        text += u" \"%1\""_s.arg(button->text());
    return text.toStdString();
}

/// Labels that shorten their text themselves are a class of their own.
bool isPlainLabel(const QWidget& widget)
{
    return widget.metaObject() == &QLabel::staticMetaObject;
}

void checkRoom(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget); label && isPlainLabel(widget)) {
        if (label->wordWrap()) {
            EXPECT_GE(label->height(), label->heightForWidth(label->width())) << described(widget);
        } else {
            EXPECT_GE(label->width(), label->sizeHint().width()) << described(widget);
        }
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget); button && !button->text().isEmpty()) {
        EXPECT_GE(button->width(), button->sizeHint().width()) << described(widget);
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        const int longest = box->fontMetrics().horizontalAdvance(box->currentText());
        EXPECT_GE(box->width(), longest) << described(widget);
    }
    if (qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
        qobject_cast<const QLineEdit*>(&widget)) {
        EXPECT_GE(widget.height(), widget.fontMetrics().height()) << described(widget);
    }
}

/// What a scroll area holds may be larger than what is seen of it.
bool isScrolled(const QWidget& widget)
{
    const QWidget* parent = widget.parentWidget();
    return parent && qobject_cast<const QAbstractScrollArea*>(parent->parentWidget()) &&
           static_cast<const QAbstractScrollArea*>(parent->parentWidget())->viewport() == parent;
}

bool isReachedByKeyboard(const QWidget& widget)
{
    return widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0 && !widget.focusProxy();
}

} // namespace

void checkDrawing(const QImage& picture, bool isDark)
{
    ASSERT_FALSE(picture.isNull());
    const QImage pixels = picture.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> colours;
    double brightness = 0;
    for (int y = 0; y < pixels.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
        for (int x = 0; x < pixels.width(); ++x) {
            ++colours[line[x]];
            brightness += qGray(line[x]);
        }
    }
    const double count = double(pixels.width()) * pixels.height();
    EXPECT_GT(colours.size(), 50);
    EXPECT_LT(*std::max_element(colours.cbegin(), colours.cend()), count * 0.98);
    if (isDark) {
        EXPECT_LT(brightness / count, 90);
    } else {
        EXPECT_GT(brightness / count, 165);
    }
}

void checkWidgets(const QWidget& window)
{
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    int checked = 0;
    for (const QWidget* widget : widgets) {
        if (!widget->isVisible() || widget->window() != &window)
            continue;
        ++checked;
        checkRoom(*widget);
        if (!isScrolled(*widget)) {
            // Right to left, Qt's splitter places its parts one pixel too far.
            const int slack = qobject_cast<const QSplitter*>(widget->parentWidget()) ? 1 : 0;
            EXPECT_TRUE(widget->parentWidget()->rect().adjusted(-slack, 0, slack, 0).contains(widget->geometry()))
                << described(*widget);
        }
        if (isReachedByKeyboard(*widget)) {
            QAccessibleInterface* access = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
            ASSERT_NE(access, nullptr) << described(*widget);
            EXPECT_FALSE(access->text(QAccessible::Name).isEmpty()) << described(*widget);
        }
    }
    EXPECT_GT(checked, 3);
}
