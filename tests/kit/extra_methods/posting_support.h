// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification.h"
#include "core/notification_method.h"
#include "core/notification_rule.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QString>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

/// Calls a delivery method the way the module does, through a rule.
class MethodCall
{
public:
    explicit MethodCall(ZepaNotificationMethod& method) : m_method(method), m_fields(method.fields) {}

    void set(const char* id, const QString& value)
    {
        bool isThere = false;
        for (ZepaField& field : m_fields) {
            if (field.getId() != QLatin1String(id))
                continue;
            field.setText(value);
            isThere = field.getText() == value;
        }
        ASSERT_TRUE(isThere) << id;
    }

    void post(const QString& title, const QString& text = {}, const QList<ZepaArg>& args = {})
    {
        ZepaNotificationRule rule(&m_type, &m_method, m_fields);
        rule(1, title, text, u"/pictures/ann.png"_s, {}, {}, args);
    }

private:
    ZepaNotification m_type{u"message_received"_s, u"Message received"_s, {}, {}};
    ZepaNotificationMethod& m_method;
    QList<ZepaField> m_fields;
};

/// Handles events until it holds; false when it does not within a minute.
inline bool handleEventsUntil(const std::function<bool()>& holds)
{
    QElapsedTimer clock;
    clock.start();
    while (!holds()) {
        if (clock.hasExpired(60'000))
            return false;
        QEventLoop loop;
        QTimer::singleShot(5, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return true;
}

/// The content of the file; null when there is none.
inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a program that /bin/sh reads.
inline void writeScript(const QString& path, const QByteArray& body)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + body);
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}
