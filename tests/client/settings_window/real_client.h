// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "client/client.h"
#include "client/rules/rule_editor.h"
#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_module.h"
#include "core/notification_rule.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <memory>

namespace zepa::test {

inline const QString message = QStringLiteral("message_received");
inline const QString typing = QStringLiteral("typing_started_notify");
inline const QString popup = QStringLiteral("zepa_hint_notification");
inline const QString sound = QStringLiteral("zepa_sound_notification_method");
inline const QString chat = QStringLiteral("zepa_chat_window_notification_method");

/// A real client on a settings folder of its own.
class RealClient : public testing::Test
{
protected:
    RealClient() : client(std::make_unique<Client>(folder.path())), editor(std::make_unique<RuleEditor>(*client)) {}
    ~RealClient() override { editor.reset(); }

    /// Ends the client and starts it again with what is on the disk.
    void restart()
    {
        editor.reset();
        client.reset();
        client = std::make_unique<Client>(folder.path());
        editor = std::make_unique<RuleEditor>(*client);
    }

    QString ruleFile(const QString& type) const { return folder.filePath(QStringLiteral("notifications/") + type); }

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
