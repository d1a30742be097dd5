// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/client.h"
#include "core/notification_module.h"
#include "kit/journal/announce.h"
#include "kit/journal/journal_text.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

/// A client with settings of its own, and the last line of its journal.
class JournalClient
{
protected:
    using Verdict = zepa::Verdict;

    zepa::Report post(const QString& type, const QString& title = u"Ann"_s, bool hasAction = false)
    {
        zepa::Posting posting;
        posting.type = type;
        posting.title = title;
        posting.text = u"Lunch?"_s;
        posting.buddy = ZepaBuddy(u"Ann"_s, u"Ann"_s, ZepaBuddy::Contact);
        posting.wantsAnswer = hasAction;
        return announce(m_client.recorder(), posting);
    }

    const zepa::JournalEntry& last() { return m_client.journal().entry(m_client.journal().rowCount() - 1); }
    Verdict verdict() { return last().verdict(); }
    std::string why() { return zepa::whyNoPopup(last()).toStdString(); }
    std::string details() { return zepa::detailsText(last()).toStdString(); }

    QTemporaryDir m_folder;
    zepa::Client m_client{m_folder.path()};

    const QString m_received = u"message_received"_s;
    const QString m_popups = u"zepa_hint_notification"_s;
    const QString m_sounds = u"zepa_sound_notification_method"_s;
};
