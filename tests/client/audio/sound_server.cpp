// SPDX-License-Identifier: Apache-2.0
#include "tests/client/audio/sound_server.h"

#include <QStandardPaths>

#include <algorithm>
#include <csignal>
#include <cstring>

namespace {

constexpr int patience = 30'000;

void send(const QProcess& process, int signal)
{
    if (process.processId() > 0)
        ::kill(static_cast<pid_t>(process.processId()), signal);
}

} // namespace

SoundServer::SoundServer() = default;

SoundServer::~SoundServer()
{
    kill();
}

QString SoundServer::missing()
{
    for (const QString& program : {QStringLiteral("pulseaudio"), QStringLiteral("parec"), QStringLiteral("pactl")}) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            return program + QStringLiteral(" is not installed");
    }
    return {};
}

QString SoundServer::address() const
{
    return QStringLiteral("unix:") + m_folder.filePath(QStringLiteral("native"));
}

bool SoundServer::start()
{
    const QString socket = m_folder.filePath(QStringLiteral("native"));
    QFile::remove(socket); // what a server that was killed left
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), m_folder.path());
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.path());
    environment.remove(QStringLiteral("PULSE_SERVER"));
    m_server.setProcessEnvironment(environment);
    m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_server.start(QStringLiteral("pulseaudio"),
                   {QStringLiteral("-n"), QStringLiteral("--daemonize=no"), QStringLiteral("--use-pid-file=no"),
                    QStringLiteral("--exit-idle-time=-1"), QStringLiteral("--disallow-exit"),
                    QStringLiteral("--realtime=no"), QStringLiteral("--high-priority=no"),
                    QStringLiteral("--log-level=0"),
                    QStringLiteral("--load=module-native-protocol-unix socket=%1 auth-anonymous=1").arg(socket),
                    QStringLiteral("--load=module-null-sink sink_name=test rate=44100 channels=2 format=s16le")});
    qputenv("PULSE_SERVER", address().toUtf8());
    if (!m_server.waitForStarted(patience))
        return false;

    // The socket is there before the sink is: ask until the sink answers.
    for (int attempt = 0; attempt < 100 && m_server.state() == QProcess::Running; ++attempt) {
        QProcess asked;
        asked.start(QStringLiteral("pactl"), {QStringLiteral("-s"), address(), QStringLiteral("list"),
                                              QStringLiteral("short"), QStringLiteral("sinks")});
        asked.waitForFinished(patience);
        if (asked.readAllStandardOutput().contains("test"))
            return true;
        m_server.waitForFinished(50);
    }
    return false;
}

void SoundServer::kill()
{
    if (m_server.state() == QProcess::NotRunning)
        return;
    m_server.kill();
    m_server.waitForFinished(patience);
}

void SoundServer::stop()
{
    send(m_server, SIGSTOP);
}

void SoundServer::continueIt()
{
    send(m_server, SIGCONT);
}

SoundRecorder::SoundRecorder(const SoundServer& server) : m_file(m_folder.filePath(QStringLiteral("recording")))
{
    // Into a file, since a pipe that nobody reads for a while would make the recorder lose sound.
    m_recorder.setStandardOutputFile(m_file.fileName());
    m_recorder.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_recorder.start(QStringLiteral("parec"),
                     {QStringLiteral("-s"), server.address(), QStringLiteral("-d"), QStringLiteral("test.monitor"),
                      QStringLiteral("--latency-msec=5"), QStringLiteral("--format=s16le"),
                      QStringLiteral("--rate=44100"), QStringLiteral("--channels=1")});
    m_begun = m_recorder.waitForStarted(patience) && m_file.open(QFile::ReadOnly) && !take(0.01).empty();
}

SoundRecorder::~SoundRecorder()
{
    m_recorder.kill();
    m_recorder.waitForFinished(patience);
}

QByteArray SoundRecorder::newBytes()
{
    const qint64 whole = (m_file.size() - m_file.pos()) / 2 * 2;
    return m_file.read(whole);
}

std::vector<float> SoundRecorder::take(double seconds)
{
    QByteArray bytes = newBytes();
    const qsizetype enough = bytes.size() + static_cast<qsizetype>(seconds * 44100) * 2;
    for (int attempt = 0; attempt < 1000 && bytes.size() < enough; ++attempt) {
        m_recorder.waitForFinished(20);
        bytes += newBytes();
    }

    std::vector<float> samples;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2) {
        qint16 sample = 0;
        std::memcpy(&sample, bytes.constData() + i, 2);
        samples.push_back(static_cast<float>(sample) / 32768.0F);
    }
    return samples;
}
