// SPDX-License-Identifier: Apache-2.0
#include "program.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>

#include <csignal>
#include <sys/prctl.h>

using namespace Qt::StringLiterals;

QJsonArray Outcome::json() const
{
    return QJsonDocument::fromJson(out.toUtf8()).array();
}

Outcome ProgramRunner::run(const QStringList& arguments, const QByteArray& input)
{
    return finish(*start(arguments, input));
}

Outcome ProgramRunner::runBare(const QStringList& arguments, const QByteArray& input)
{
    return finish(*startBare(arguments, input));
}

std::unique_ptr<QProcess> ProgramRunner::start(const QStringList& arguments, const QByteArray& input)
{
    // Commands that only read do not make it.
    QDir(m_folder.path()).mkdir(u"settings"_s);
    const QStringList settings{u"--settings"_s, inFolder(u"settings"_s)};
    return startBare(arguments + settings, input);
}

std::unique_ptr<QProcess> ProgramRunner::startBare(const QStringList& arguments, const QByteArray& input)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(m_folder.path());
    process->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process->start(QString::fromUtf8(ZEPA_PROGRAM), arguments);
    process->write(input);
    process->closeWriteChannel();
    return process;
}

Outcome ProgramRunner::finish(QProcess& process)
{
    Outcome outcome;
    const bool isOver = process.state() == QProcess::NotRunning || process.waitForFinished(60000);
    if (isOver && process.exitStatus() == QProcess::NormalExit)
        outcome.code = process.exitCode();
    outcome.out = QString::fromUtf8(process.readAllStandardOutput());
    outcome.err = QString::fromUtf8(process.readAllStandardError());
    return outcome;
}

void ProgramRunner::write(const QString& name, const QByteArray& content) const
{
    QFile file(inFolder(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray ProgramRunner::read(const QString& name) const
{
    QFile file(inFolder(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
