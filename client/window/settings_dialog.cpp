// SPDX-License-Identifier: Apache-2.0
#include "client/window/settings_dialog.h"

#include "client/client.h"
#include "client/window/client_requests.h"
#include "kit/settings_page/notification_settings.h"
#include "kit/settings_page/sample_posting.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace zepa {

SettingsDialog::SettingsDialog(Client& client, QWidget* parent)
    : QDialog(parent), m_page(new NotificationSettings(client.ruleStore(), this))
{
    setWindowTitle(tr("Notification settings"));
    setObjectName(u"notificationSettings"_s);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowMinMaxButtonsHint |
                   Qt::WindowCloseButtonHint);

    auto* close = new QPushButton(tr("&Close"), m_page);
    close->setObjectName(u"close"_s);
    // Enter belongs to the field that has the focus.
    close->setAutoDefault(false);
    m_page->buttonRow().addWidget(close);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_page);

    connect(close, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    connect(&ClientRequests::instance(), &ClientRequests::commandCarriedOut, this, &SettingsDialog::refresh);
    connect(m_page, &NotificationSettings::sampleWanted, this,
            [this, &client](const QString& type) { m_page->showSampleResult(postSample(client.recorder(), type)); });
    resize(QSize(1120, 780).boundedTo(screen()->availableSize() * 9 / 10));
}

void SettingsDialog::refresh()
{
    m_page->refresh();
}

} // namespace zepa
