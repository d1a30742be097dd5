// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/client.h"
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"
#include "kit/rules/rule_editor.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace zepa::test {

inline const QString message = u"message_received"_s;
inline const QString typing = u"typing_started_notify"_s;
inline const QString popup = u"zepa_hint_notification"_s;
inline const QString sound = u"zepa_sound_notification_method"_s;
inline const QString chat = u"zepa_chat_window_notification_method"_s;

/// A real client on a settings folder of its own.
class RealClient : public testing::Test
{
protected:
    RealClient()
        : client(std::make_unique<Client>(folder.path())), editor(std::make_unique<RuleEditor>(client->ruleStore()))
    {}
    ~RealClient() override { editor.reset(); }

    /// Ends the client and starts it again with what is on the disk.
    void restart()
    {
        editor.reset();
        client.reset();
        client = std::make_unique<Client>(folder.path());
        editor = std::make_unique<RuleEditor>(client->ruleStore());
    }

    QString ruleFile(const QString& type) const { return folder.filePath(u"notifications/"_s + type); }

    /// What the rule file holds as bytes; null when it cannot be read.
    QByteArray stored(const QString& type) const
    {
        QFile file(ruleFile(type));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// The type's rules as "method field=value ...", newest first.
    QStringList rules(const QString& type) const
    {
        QStringList texts;
        const QList<RuleState> states = rulesOf(client->module(), type);
        for (const RuleState& state : states) {
            QString text = state.method;
            for (const ZepaField& field : state.fields)
                text += u' ' + field.getId() + u'=' + field.getText();
            texts.append(text);
        }
        return texts;
    }

    /// What a client that starts now would find.
    QStringList rulesAfterRestart(const QString& type)
    {
        restart();
        QStringList found = rules(type);
        found.sort();
        return found;
    }

    static QStringList sorted(QStringList texts)
    {
        texts.sort();
        return texts;
    }

    QTemporaryDir folder;
    std::unique_ptr<Client> client;
    std::unique_ptr<RuleEditor> editor;
};

} // namespace zepa::test
