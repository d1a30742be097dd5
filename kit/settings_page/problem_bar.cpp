// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/problem_bar.h"

#include "kit/rules/rule_editor.h"
#include "kit/widgets/plain_widgets.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace zepa {

ProblemBar::ProblemBar(RuleEditor& editor, QWidget* parent)
    : QFrame(parent), m_editor(editor), m_text(makePlainLabel(this)), m_retry(new QPushButton(tr("&Try again"), this))
{
    setFrameShape(QFrame::StyledPanel);
    auto* icon = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    icon->setAccessibleName(tr("Warning"));
    m_text->setObjectName(u"problem"_s);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_retry->setObjectName(u"retry"_s);
    m_retry->setAutoDefault(false);

    auto* layout = new QHBoxLayout(this);
    layout->addWidget(icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_retry);

    connect(&editor, &RuleEditor::problemChanged, this, &ProblemBar::showProblem);
    connect(m_retry, &QPushButton::clicked, &editor, &RuleEditor::retry);
    showProblem();
}

void ProblemBar::showProblem()
{
    m_text->setText(m_editor.problem());
    m_text->setAccessibleName(m_editor.problem());
    m_retry->setVisible(m_editor.canRetry());
    setVisible(!m_editor.problem().isEmpty());
}

} // namespace zepa
