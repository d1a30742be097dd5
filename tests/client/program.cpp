// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QFile>
#include <QJsonDocument>
#include <QProcess>

QJsonArray Outcome::json() const
{
    return QJsonDocument::fromJson(out.toUtf8()).array();
}

Outcome Program::run(const QStringList& arguments, const QByteArray& input)
{
    return runBare(arguments + QStringList{QStringLiteral("--settings"), path(QStringLiteral("settings"))}, input);
}

Outcome Program::runBare(const QStringList& arguments, const QByteArray& input)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_folder.path());
    process.start(QStringLiteral(ZEPA_PROGRAM), arguments);
    process.write(input);
    process.closeWriteChannel();
    Outcome outcome;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        outcome.code = process.exitCode();
    outcome.out = QString::fromUtf8(process.readAllStandardOutput());
    outcome.err = QString::fromUtf8(process.readAllStandardError());
    return outcome;
}

void Program::write(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray Program::read(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
