// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QFile>

/// Opens `file` for reading, or for writing from its beginning, where its name leads to a regular file or, for writing,
/// to nothing yet. Pipes, devices, sockets and folders count as files that cannot be opened. Never waits.
///
/// What is not on a disk, such as ":/picture.png", opens as QFile does it. The name of a `file` that was opened is
/// empty otherwise.
bool openRegularFile(QFile& file, QIODevice::OpenMode mode);

/// Opens the picture that QImageReader would read for `path`: that file, or else the first that has the ending of a
/// picture format behind that name. Returns the name of the file that was opened; null when there is none.
QString openPictureFile(QFile& file, const QString& path);
