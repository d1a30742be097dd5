// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace zepa {

class RuleEditor;

/// Says what of the editor's changes could not be written, as long as it is so, and offers to try again.
class ProblemBar final : public QFrame
{
    Q_OBJECT

public:
    explicit ProblemBar(RuleEditor& editor, QWidget* parent = nullptr);

private:
    void showProblem();

    RuleEditor& m_editor;
    QLabel* m_text;
    QPushButton* m_retry;
};

} // namespace zepa
