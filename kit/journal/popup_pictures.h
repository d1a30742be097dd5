// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/files/file_state.h"
#include "kit/kit_export.h"

#include <QCache>
#include <QString>

#include <memory>

class QImageReader;

namespace zepa {

/// A picture for a pop-up, made ready for the library, which loads whatever a posting names, as a whole and on the
/// main thread.
struct PopupPicture
{
    QString path;    ///< for the library; empty when there is no picture to show
    QString problem; ///< why there is none, in English and without the picture's name; empty when none was asked for
};

/// Looks at pictures before the library does: how large they are, and whether they are regular files. A small one is
/// handed on as it is, of a larger one a small copy is, made once for each state of its file. What is above the limits
/// is not decoded at all.
class ZEPA_KIT_EXPORT PopupPictures
{
public:
    static constexpr qint64 mostBytes = qint64{32} * 1024 * 1024;
    static constexpr qint64 mostPixels = qint64{4096} * 4096;
    /// The longest side of what is handed on, in pixels: more than pop-ups show.
    static constexpr int longestSide = 256;
    /// A file above this size is copied even if its picture is small.
    static constexpr qint64 smallFile = qint64{1024} * 1024;

    PopupPictures();
    ~PopupPictures();
    Q_DISABLE_COPY_MOVE(PopupPictures)

    /// For the path that a posting names. As for Qt, one that begins with ':' is built into the program, and the ending
    /// of a file's name may be missing. What is returned can be loaded until the next few calls, in this process alone.
    PopupPicture prepare(const QString& path);

    /// For tests: how many pictures were decoded so far.
    int decodedCount() const { return m_decodedCount; }

private:
    class Copy;
    struct Entry;

    std::unique_ptr<Entry> look(const QString& file);
    std::unique_ptr<Copy> copyOf(QImageReader& reader);

    QCache<QString, Entry> m_entries; ///< by file
    int m_decodedCount = 0;
};

} // namespace zepa
