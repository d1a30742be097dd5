// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

/// What a run of the program left behind.
struct Outcome
{
    int code = -1; ///< -1 when the program crashed or did not end
    QString out;
    QString err;

    QStringList lines() const { return out.split(u'\n', Qt::SkipEmptyParts); }
    QJsonArray json() const;
};

/// Runs the real program with a folder of its own for settings and files, which is the working directory, too.
class ProgramRunner
{
public:
    /// Runs `zepa ARGUMENTS --settings FOLDER` with `input` on its standard input, to the end.
    Outcome run(const QStringList& arguments, const QByteArray& input = {});
    /// Runs `zepa ARGUMENTS` as they stand.
    Outcome runBare(const QStringList& arguments, const QByteArray& input = {});

    /// The same in two steps: what comes between can happen while the program runs.
    std::unique_ptr<QProcess> start(const QStringList& arguments, const QByteArray& input = {});
    static Outcome finish(QProcess& process);

    QString inFolder(const QString& name) const { return m_folder.filePath(name); }
    QString ruleFile(const QString& type) const { return inFolder(u"settings/notifications/"_s + type); }
    void write(const QString& name, const QByteArray& content) const;
    QByteArray read(const QString& name) const;

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    std::unique_ptr<QProcess> startBare(const QStringList& arguments, const QByteArray& input);

    QTemporaryDir m_folder;
};

/// No display, no session bus, no sound server.
class Program : public testing::Test, protected ProgramRunner
{};
