// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/client.h"
#include "client/journal/journal_text.h"
#include "client/posting/announce.h"
#include "core/notification_module.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

/// A client with settings of its own, and the last line of its journal.
class JournalClient
{
protected:
    using Verdict = zepa::Verdict;

    zepa::Report post(const QString& type, const QString& title = QStringLiteral("Ann"), bool hasAction = false)
    {
        zepa::Posting posting;
        posting.type = type;
        posting.title = title;
        posting.text = QStringLiteral("Lunch?");
        posting.buddy = ZepaBuddy(QStringLiteral("Ann"), QStringLiteral("Ann"), ZepaBuddy::Contact);
        posting.wantsAnswer = hasAction;
        return announce(m_client, posting);
    }

    const zepa::JournalEntry& last() { return m_client.journal().entry(m_client.journal().rowCount() - 1); }
    Verdict verdict() { return last().verdict(); }
    std::string why() { return zepa::whyNoPopup(last()).toStdString(); }
    std::string details() { return zepa::detailsText(last()).toStdString(); }

    QTemporaryDir m_folder;
    zepa::Client m_client{m_folder.path()};

    const QString m_received = QStringLiteral("message_received");
    const QString m_popups = QStringLiteral("zepa_hint_notification");
    const QString m_sounds = QStringLiteral("zepa_sound_notification_method");
};
