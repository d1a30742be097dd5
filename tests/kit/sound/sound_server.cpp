// SPDX-License-Identifier: Apache-2.0
#include "tests/kit/sound/sound_server.h"

#include <QStandardPaths>

#include <algorithm>
#include <csignal>
#include <cstring>

using namespace Qt::StringLiterals;

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
    for (const QString& program : {u"pulseaudio"_s, u"parec"_s, u"pactl"_s}) {
        if (QStandardPaths::findExecutable(program).isEmpty())
            return program + u" is not installed"_s;
    }
    return {};
}

QString SoundServer::address() const
{
    return u"unix:"_s + m_folder.filePath(u"native"_s);
}

bool SoundServer::start()
{
    const QString socket = m_folder.filePath(u"native"_s);
    QFile::remove(socket); // what a server that was killed left
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"HOME"_s, m_folder.path());
    environment.insert(u"XDG_RUNTIME_DIR"_s, m_folder.path());
    environment.insert(u"XDG_CONFIG_HOME"_s, m_folder.path());
    environment.remove(u"PULSE_SERVER"_s);
    m_server.setProcessEnvironment(environment);
    m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_server.start(u"pulseaudio"_s,
                   {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
                    u"--disallow-exit"_s, u"--realtime=no"_s, u"--high-priority=no"_s, u"--log-level=0"_s,
                    u"--load=module-native-protocol-unix socket=%1 auth-anonymous=1"_s.arg(socket),
                    u"--load=module-null-sink sink_name=test rate=44100 channels=2 format=s16le"_s});
    qputenv("PULSE_SERVER", address().toUtf8());
    if (!m_server.waitForStarted(patience))
        return false;

    // The socket is there before the sink is: ask until the sink answers.
    for (int attempt = 0; attempt < 100 && m_server.state() == QProcess::Running; ++attempt) {
        QProcess asked;
        asked.start(u"pactl"_s, {u"-s"_s, address(), u"list"_s, u"short"_s, u"sinks"_s});
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

SoundRecorder::SoundRecorder(const SoundServer& server) : m_file(m_folder.filePath(u"recording"_s))
{
    // Into a file, since a pipe that nobody reads for a while would make the recorder lose sound.
    m_recorder.setStandardOutputFile(m_file.fileName());
    m_recorder.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_recorder.start(u"parec"_s, {u"-s"_s, server.address(), u"-d"_s, u"test.monitor"_s, u"--latency-msec=5"_s,
                                  u"--format=s16le"_s, u"--rate=44100"_s, u"--channels=1"_s});
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
