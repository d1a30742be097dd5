// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

namespace zepa {

/// Where a log goes and how large it may become.
struct LogTarget
{
    /// An absolute path.
    QString file;
    /// A line that would make the file larger begins a new file.
    qint64 mostBytes = 0;
    /// How many older files stay, as FILE.1 (the newest), FILE.2 and so on. 0: the old content is thrown away.
    int olderFiles = 0;
};

/// Adds one line to the log. Empty when that is done, else why not; then the file is as it was.
///
/// A new file can be read by its owner alone. Only a regular file is written, never what a symbolic link stands for,
/// and never a device or a pipe. Several programs may write the same log at the same time: lines stay whole. Never
/// waits for another program.
QString appendToLog(const LogTarget& target, const QByteArray& line);

} // namespace zepa
