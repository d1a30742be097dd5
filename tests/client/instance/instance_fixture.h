// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/client/program/program.h"
#include "tests/platform/service_fixture.h"

#include <QDBusMessage>
#include <QVariantList>

using namespace Qt::StringLiterals;

/// A running client with its window, started in the root folder, and other programs that find it on a private bus.
class InstanceTest : public ServiceTest, protected ProgramRunner
{
protected:
    /// Starts `zepa` without a verb and returns when it has its name on the bus.
    void startFirst();
    QProcess& first() { return *m_first; }
    void endFirst();
    /// A start without a verb and without waiting; `settings` is relative to the test's folder.
    std::unique_ptr<QProcess> startWindow(const QString& settings = u"settings"_s);

    /// Whether somebody has the name of the client with these settings.
    bool isClientThere(const QString& settings = u"settings"_s);
    QString clientName(const QString& settings = u"settings"_s) const;
    /// A call of the first client.
    QDBusMessage message(const QString& method, const QVariantList& arguments) const;
    /// Calls the first client from this process.
    QDBusMessage call(const QString& method, const QVariantList& arguments) const;

    /// Lets the event loop run until the process has printed `text`.
    static bool waitForOutput(QProcess& process, const QByteArray& text);

private:
    std::unique_ptr<QProcess> m_first;
};
