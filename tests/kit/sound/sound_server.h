// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <vector>

/// A private PulseAudio server with one null sink. Made without privileges or hardware; ended with the object.
class SoundServer
{
public:
    SoundServer();
    ~SoundServer();
    Q_DISABLE_COPY_MOVE(SoundServer)

    /// Empty when the machine has what is needed; otherwise what is missing.
    static QString missing();

    /// Starts the server and lets this process's sounds go to it. False when it does not come up.
    bool start();
    /// As if it crashed; start() starts another one at the same address.
    void kill();
    void stop();       ///< it no longer answers (SIGSTOP)
    void continueIt(); ///< after stop()
    QString address() const;

private:
    QTemporaryDir m_folder;
    QProcess m_server;
};

/// Records what the sink of a server sounds, as 16 bit samples, mono, 44.1 kHz.
class SoundRecorder
{
public:
    /// Waits until the recording has begun; isRunning() is false when it did not.
    explicit SoundRecorder(const SoundServer& server);
    ~SoundRecorder();
    Q_DISABLE_COPY_MOVE(SoundRecorder)

    bool isRunning() const { return m_begun; }
    /// Records that many more seconds of sound, and returns everything since the last take().
    std::vector<float> take(double seconds);

private:
    QByteArray newBytes();

    QTemporaryDir m_folder;
    QFile m_file;
    QProcess m_recorder;
    bool m_begun = false;
};
