// SPDX-License-Identifier: Apache-2.0
#include "client/cli/job.h"

#include <QDir>

#include <utility>

namespace zepa::cli {

Job::Job(Origin origin, OutputSink* sink, QObject* parent) : QObject(parent), m_origin(std::move(origin)), m_sink(sink)
{}

QString Job::path(const QString& name) const
{
    return name.isEmpty() ? name : QDir(m_origin.folder).absoluteFilePath(name);
}

void Job::speak(const std::function<void()>& talk)
{
    const OutputTo here(m_sink);
    talk();
}

void Job::finish(int code)
{
    if (m_code)
        return;
    m_code = code;
    Q_EMIT finished();
}

void Job::hurry()
{
    if (!m_code)
        Q_EMIT hurried();
}

} // namespace zepa::cli
