// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// What a run of the program left behind.
struct Outcome
{
    int code = -1; ///< -1 when the program crashed or did not end
    QString out;
    QString err;

    QStringList lines() const { return out.split(u'\n', Qt::SkipEmptyParts); }
    QJsonArray json() const;
};

/// The real program with a settings folder of the test's own: no display, no session bus, no sound server.
class Program : public testing::Test
{
protected:
    /// Runs `zepa ARGUMENTS --settings FOLDER` with `input` on its standard input.
    Outcome run(const QStringList& arguments, const QByteArray& input = {});
    /// Runs `zepa ARGUMENTS` as they stand.
    Outcome runBare(const QStringList& arguments, const QByteArray& input = {});

    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString ruleFile(const QString& type) const { return path(QStringLiteral("settings/notifications/") + type); }
    void write(const QString& name, const QByteArray& content) const;
    QByteArray read(const QString& name) const;

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    QTemporaryDir m_folder;
};
