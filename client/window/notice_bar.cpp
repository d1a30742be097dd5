// SPDX-License-Identifier: Apache-2.0
#include "client/window/notice_bar.h"

#include "kit/widgets/plain_widgets.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace zepa {

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), m_text(makePlainLabel(this))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setWordWrap(true);
    auto* close = new QPushButton(tr("&Understood"), this);
    connect(close, &QPushButton::clicked, this, &QWidget::hide);

    auto* row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(close, 0, Qt::AlignTop);
    hide();
}

void NoticeBar::tell(const QString& text)
{
    m_text->setText(text);
    setAccessibleName(text);
    show();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

} // namespace zepa
