// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/speech/speaker.h"

#include "kit/extra_methods/child_environment.h"

#include <chrono>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

const QString program = u"espeak-ng"_s;

/// More than the longest text takes at the slowest speed. A speaker that hangs on a dead sound server ends here.
constexpr auto patience = std::chrono::minutes(2);

} // namespace

Speaker::Speaker()
{
    m_process.setProgram(program);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    QObject::connect(&m_patience, &QTimer::timeout, &m_process, &QProcess::kill);
    QObject::connect(&m_process, &QProcess::errorOccurred, &m_process, [this](QProcess::ProcessError error) {
        // Every other error is followed by finished().
        if (error == QProcess::FailedToStart)
            ended(u"cannot be started: nothing is spoken"_s);
    });
    QObject::connect(&m_process, &QProcess::finished, &m_process, [this](int code, QProcess::ExitStatus status) {
        if (status != QProcess::NormalExit)
            ended(u"was ended while it spoke"_s);
        else
            ended(code == 0 ? QString() : u"could not speak: is there such a voice?"_s);
    });
}

Speaker::~Speaker()
{
    m_process.disconnect();
    // A killed process is gone in a moment; left to itself, it would speak on after the program's end.
    m_process.kill();
    m_process.waitForFinished(1000);
}

void Speaker::say(const Utterance& utterance)
{
    if (m_waiting.size() > mostWaiting)
        return m_faults.failed(program, u"too much to say: a text was dropped"_s);
    m_waiting.append(utterance);
    if (m_waiting.size() == 1)
        begin();
}

void Speaker::begin()
{
    // A copy: a failure to start may be told before start() returns.
    const Utterance utterance = m_waiting.constFirst();
    QStringList arguments{u"--stdin"_s, u"-b"_s, u"1"_s, u"-s"_s, QString::number(utterance.wordsPerMinute)};
    if (!utterance.voice.isEmpty())
        arguments += {u"-v"_s, utterance.voice};
    m_process.setArguments(arguments);
    m_patience.start();
    m_process.setProcessEnvironment(childEnvironment());
    m_process.start();
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.write(utterance.text.toUtf8());
    m_process.closeWriteChannel();
}

void Speaker::ended(const QString& problem)
{
    m_patience.stop();
    const Utterance done = m_waiting.takeFirst();
    const QString voice = program + (done.voice.isEmpty() ? QString() : u" -v "_s + done.voice);
    if (problem.isEmpty())
        m_faults.succeeded(voice);
    else
        m_faults.failed(voice, problem);
    // Not from within the signal of a process that is just ending.
    if (!m_waiting.isEmpty())
        QMetaObject::invokeMethod(
            &m_process, [this] { begin(); }, Qt::QueuedConnection);
}

} // namespace zepa
