// SPDX-License-Identifier: Apache-2.0
#include "shown_texts.h"

#include "kit/widgets/sealed_document.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolTip>

#include <gtest/gtest.h>

namespace zepa::test {

namespace {

QString withoutMarkup(const QString& text)
{
    SealedDocument document;
    document.setHtml(text);
    return document.toPlainText();
}

QString withoutMnemonics(const QString& text)
{
    QString shown;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && ++i == text.size())
            break;
        shown += text[i];
    }
    return shown;
}

QString shownBy(const QLabel& label)
{
    const bool isRich =
        label.textFormat() == Qt::RichText || (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
    if (isRich)
        return withoutMarkup(label.text());
    return label.buddy() ? withoutMnemonics(label.text()) : label.text();
}

/// Shows the tip and paints it, which is when Qt reads the pictures that it names.
QString shownByTip(const QString& text, QWidget& owner)
{
    if (text.isEmpty())
        return {};
    QToolTip::showText(owner.mapToGlobal(QPoint(1, 1)), text, &owner);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        auto* tip = qobject_cast<QLabel*>(window);
        if (!tip || !tip->inherits("QTipLabel") || tip->text() != text)
            continue;
        tip->grab();
        return shownBy(*tip);
    }
    ADD_FAILURE() << "no tool tip is shown for " << text.toStdString();
    return {};
}

void addHeader(QStringList& texts, const QAbstractItemModel& model, Qt::Orientation orientation, QWidget& view)
{
    const int count = orientation == Qt::Horizontal ? model.columnCount() : model.rowCount();
    for (int section = 0; section < count; ++section) {
        texts += model.headerData(section, orientation).toString();
        texts += shownByTip(model.headerData(section, orientation, Qt::ToolTipRole).toString(), view);
    }
}

void addItems(QStringList& texts, QAbstractItemView& view)
{
    const QAbstractItemModel* model = view.model();
    if (!model || qobject_cast<QHeaderView*>(&view))
        return;
    for (int row = 0; row < model->rowCount(view.rootIndex()); ++row) {
        for (int column = 0; column < model->columnCount(view.rootIndex()); ++column) {
            const QModelIndex index = model->index(row, column, view.rootIndex());
            for (const int role : {Qt::DisplayRole, Qt::AccessibleTextRole, Qt::AccessibleDescriptionRole})
                texts += index.data(role).toString();
            texts += shownByTip(index.data(Qt::ToolTipRole).toString(), view);
        }
    }
    addHeader(texts, *model, Qt::Horizontal, view);
    addHeader(texts, *model, Qt::Vertical, view);
}

void addContent(QStringList& texts, QWidget& widget)
{
    if (const auto* label = qobject_cast<QLabel*>(&widget)) {
        texts += shownBy(*label);
        widget.grab();
    }
    if (const auto* button = qobject_cast<QAbstractButton*>(&widget))
        texts += withoutMnemonics(button->text());
    if (const auto* group = qobject_cast<QGroupBox*>(&widget))
        texts += withoutMnemonics(group->title());
    if (const auto* line = qobject_cast<QLineEdit*>(&widget))
        texts += {line->text(), line->placeholderText()};
    if (const auto* edit = qobject_cast<QPlainTextEdit*>(&widget))
        texts += {edit->toPlainText(), edit->placeholderText()};
    if (const auto* edit = qobject_cast<QTextEdit*>(&widget))
        texts += edit->toPlainText();
    if (const auto* number = qobject_cast<QSpinBox*>(&widget))
        texts += number->text();
    if (const auto* box = qobject_cast<QComboBox*>(&widget)) {
        for (int i = 0; i < box->count(); ++i)
            texts += box->itemText(i);
    }
    if (auto* view = qobject_cast<QAbstractItemView*>(&widget))
        addItems(texts, *view);
}

} // namespace

QStringList actionTexts(const QWidget& menu)
{
    QStringList texts;
    const QList<QAction*> actions = menu.actions();
    for (const QAction* action : actions)
        texts += withoutMnemonics(action->text());
    return texts;
}

QStringList shownTexts(QWidget& window)
{
    QStringList texts{window.windowTitle()};
    QWidgetList widgets = window.findChildren<QWidget*>();
    widgets.prepend(&window);
    for (QWidget* widget : std::as_const(widgets)) {
        addContent(texts, *widget);
        texts += actionTexts(*widget);
        texts += shownByTip(widget->toolTip(), *widget);
        if (QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(widget)) {
            for (const QAccessible::Text part : {QAccessible::Name, QAccessible::Description, QAccessible::Value})
                texts += heard->text(part);
        }
    }
    texts.removeAll(QString());
    return texts;
}

} // namespace zepa::test
