// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/window/settings_dialog.h"
#include "kit/rules/method_titles.h"
#include "real_client.h"

#include <QAbstractItemModel>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTableView>
#include <QTest>

namespace zepa::test {

/// The window on a real client, driven by mouse and keyboard only.
class SettingsWindow : public RealClient
{
protected:
    SettingsWindow() { open(); }
    ~SettingsWindow() override { window.reset(); }

    void open()
    {
        window = std::make_unique<SettingsDialog>(*client);
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void restart()
    {
        window.reset();
        RealClient::restart();
        open();
    }

    template <typename Widget = QWidget>
    Widget* find(const char* name) const
    {
        auto* found = window->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_TRUE(found) << name;
        return found;
    }
    QTableView* table() const { return find<QTableView>("rules"); }

    QModelIndex cell(const QString& type, const QString& method) const
    {
        const auto types = typesInOrder(client->module());
        const auto methods = methodsInOrder(client->module());
        int row = 0;
        while (types[row]->getId() != type)
            ++row;
        int column = 0;
        while (column < methods.size() && methods[column]->getId() != method)
            ++column;
        return table()->model()->index(row, column);
    }

    /// Clicks the middle of the cell, where the mark is.
    void clickMark(const QModelIndex& index) const
    {
        table()->scrollTo(index);
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, table()->visualRect(index).center());
    }
    /// Clicks the cell beside its mark.
    void clickCell(const QModelIndex& index) const
    {
        table()->scrollTo(index);
        QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, table()->visualRect(index).topLeft() + QPoint(3, 3));
    }
    static void click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    /// What the keyboard would do: the key goes to whoever has the focus.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        QWidget* target = QApplication::focusWidget();
        ASSERT_TRUE(target);
        QTest::keyClick(target, key, modifiers);
    }
    void type(const QString& text) const { QTest::keyClicks(QApplication::focusWidget(), text); }

    QString said() const { return find<QLabel>("said")->text(); }

    std::unique_ptr<SettingsDialog> window;
};

} // namespace zepa::test
