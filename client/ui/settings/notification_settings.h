// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QDialog>

class QBoxLayout;
class QLabel;
class QPushButton;
class QSplitter;
class QTableView;

namespace zepa {

class Client;
class ElidedLabel;
class FieldForm;
class LiveText;
class RuleEditor;
class RulePane;
class RuleTableModel;

/// The window in which the user says which events reach them by which methods, and how.
///
/// A table of types and methods with a mark where a rule is; below, the settings of the chosen rule and those of the
/// whole client. Every change is made and on disk at once, and can be undone as long as the window lives; closing it
/// only hides it. All of it works with the keyboard alone.
class NotificationSettings final : public QDialog
{
    Q_OBJECT

public:
    /// The client must have started, and must outlive the window.
    explicit NotificationSettings(Client& client, QWidget* parent = nullptr);

public Q_SLOTS:
    /// Shows what someone else changed meanwhile. The window does it by itself when it is activated, and after each
    /// command that was handed over by another start of the program.
    void refresh();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeTable();
    QWidget* makePanes();
    QLayout* makeButtons();
    void makeActions();
    void showChosenPair();
    void showSettings();
    void showHistory();
    void postSample();
    void say(const QString& text);

    Client& m_client;
    RuleEditor* m_editor;
    RuleTableModel* m_model;
    QSplitter* m_parts;
    QTableView* m_table;
    RulePane* m_pane;
    FieldForm* m_settings;
    QBoxLayout* m_panes;
    QPushButton* m_undo;
    QPushButton* m_redo;
    ElidedLabel* m_undoText;
    QLabel* m_said;
    LiveText* m_live;
};

} // namespace zepa
