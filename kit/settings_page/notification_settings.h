// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/kit_export.h"
#include "kit/rules/rule_store.h"

#include <QWidget>

class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSplitter;
class QTableView;

namespace zepa {

class ElidedLabel;
class FieldForm;
class ScreenReaderText;
class RuleEditor;
class RulePane;
class RuleTableModel;

/// The page on which users say which events reach them by which methods, and how. Put it into a dialog or a window of
/// your own (examples/settings_page.cpp).
///
/// A table of types and methods with a mark where a rule is; below, the settings of the chosen rule and those of the
/// whole client. Every change is made and on disk at once, and can be undone as long as the page lives. All of it works
/// with the keyboard alone.
class ZEPA_KIT_EXPORT NotificationSettings final : public QWidget
{
    Q_OBJECT

public:
    /// What the store names must outlive the page. Without setSoundProbe(), a sound file counts as playable if it
    /// exists.
    explicit NotificationSettings(const RuleStore& store, QWidget* parent = nullptr);

    /// The row of buttons at the bottom, for more of them behind its own.
    QHBoxLayout& buttonRow() const { return *m_buttons; }

public Q_SLOTS:
    /// Shows what someone else changed meanwhile. The page does it by itself when its window is activated.
    void refresh();
    /// Shows what became of a sample, and tells it to a screen reader.
    void showSampleResult(const QString& text) { say(text); }

Q_SIGNALS:
    /// The user wants to see and hear what the rules of this type do: post an event of it (postSample() does), and show
    /// the result.
    void sampleWanted(const QString& typeId);

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeTable();
    QWidget* makePanes();
    void makeButtons();
    void makeActions();
    void showChosenPair();
    void showSettings();
    void showHistory();
    void say(const QString& text);

    RuleEditor* m_editor;
    RuleTableModel* m_model;
    QSplitter* m_parts;
    QTableView* m_table;
    RulePane* m_pane;
    FieldForm* m_settings;
    QBoxLayout* m_panes;
    QHBoxLayout* m_buttons;
    QPushButton* m_undo;
    QPushButton* m_redo;
    ElidedLabel* m_undoText;
    QLabel* m_said;
    ScreenReaderText* m_live;
};

} // namespace zepa
