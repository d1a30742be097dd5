// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/settings_page/notification_settings.h"
#include "kit/settings_page/sample_posting.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

/// A client's own preferences, with the notifications as one page among others.
class PreferencesDialog final : public QDialog
{
public:
    PreferencesDialog(const zepa::RuleStore& store, const zepa::Recorder& recorder)
    {
        auto* page = new zepa::NotificationSettings(store);
        connect(page, &zepa::NotificationSettings::sampleWanted, this,
                [page, recorder](const QString& type) { page->showSampleResult(postSample(recorder, type)); });
        auto* pages = new QTabWidget;
        pages->addTab(new QLabel(tr("The settings of your client")), tr("General"));
        pages->addTab(page, tr("Notifications"));
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(pages);
        layout->addWidget(buttons);
    }
};
