// SPDX-License-Identifier: Apache-2.0
#include "methods/picture_cache.h"

#include "core/regular_file.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPixmap>

#include <algorithm>
#include <memory>
#include <utility>

#include <sys/stat.h>

CFDataRef PictureCache::picture(const QString& path)
{
    if (path.isEmpty())
        return nullptr;
    const QFileInfo file(path);
    const bool isKnown = file.isFile();
    // What QPixmap does with a path: without its ending a picture is found, of whose file nothing is known here, but
    // not where the path has a dot.
    if (!isKnown && !file.exists() && !file.completeSuffix().isEmpty()) {
        forget(path);
        return nullptr;
    }
    const State state = isKnown ? stateOf(file) : State();
    if (const Entry* entry = isKnown ? known(path) : nullptr; entry != nullptr && entry->file == state)
        return static_cast<CFDataRef>(CFRetain(entry->encoded));

    // By way of an image: a pixmap made from the path comes from Qt's own cache, which looks at whole seconds.
    QFile opened;
    const QImage image = openPictureFile(opened, path).isNull() ? QImage() : QImageReader(&opened).read();
    const CFDataRef encoded = encodePicture(QPixmap::fromImage(image));
    if (encoded == nullptr || !isKnown || !isSettled(state)) {
        forget(path);
        return encoded;
    }
    CFRetain(encoded);
    keep(path, std::make_unique<Entry>(encoded, state));
    return encoded;
}

const PictureCache::Entry* PictureCache::known(const QString& path) const
{
    return large != nullptr && path == largePath ? large.get() : pictures.object(path);
}

void PictureCache::keep(const QString& path, std::unique_ptr<Entry> entry)
{
    forget(path);
    const qsizetype size = CFDataGetLength(entry->encoded);
    if (size <= byteLimit) {
        pictures.insert(path, entry.release(), size);
    } else if (size <= largestKept) {
        largePath = path;
        large = std::move(entry);
    }
}

void PictureCache::forget(const QString& path)
{
    pictures.remove(path);
    if (path == largePath)
        large.reset();
}

PictureCache::State PictureCache::stateOf(const QFileInfo& file)
{
    struct stat numbers = {};
    // A file that is built into the program has none.
    if (stat(QFile::encodeName(file.filePath()).constData(), &numbers) != 0)
        numbers = {};
    return {file.size(), file.lastModified(), file.metadataChangeTime(), numbers.st_dev, numbers.st_ino};
}

/// A file that has just been written may be written once more within the same tick of the file system's clock.
bool PictureCache::isSettled(const State& state)
{
    constexpr int longestTick = 100;
    const QDateTime latest = state.changed.isValid() ? std::max(state.modified, state.changed) : state.modified;
    return latest.msecsTo(QDateTime::currentDateTimeUtc()) > longestTick;
}
