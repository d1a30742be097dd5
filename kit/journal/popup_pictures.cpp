// SPDX-License-Identifier: Apache-2.0
#include "kit/journal/popup_pictures.h"

#include "kit/files/regular_file.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cerrno>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// Each may hold an open file.
constexpr int mostEntries = 32;

/// The file that Qt loads for `path`: where nothing has that name and it has no ending, the first with one of the
/// endings that Qt knows.
QString fileFor(const QString& path)
{
    const QFileInfo named(path);
    if (named.exists() || !named.completeSuffix().isEmpty())
        return path;
    const QList<QByteArray> endings = QImageReader::supportedImageFormats();
    for (const QByteArray& ending : endings) {
        QString file = path + u'.' + QString::fromLatin1(ending);
        const QFileInfo found(file);
        if (found.exists() && !found.isDir())
            return file;
    }
    return path;
}

/// Drawings refer to other files, which Qt opens without a look at what they are.
bool isDrawing(const QByteArray& format)
{
    return format == "svg" || format == "svgz";
}

QSize fitting(const QSize& size)
{
    return size.scaled(QSize(PopupPictures::longestSide, PopupPictures::longestSide), Qt::KeepAspectRatio)
        .expandedTo(QSize(1, 1));
}

bool isSmall(const QSize& size)
{
    return std::max(size.width(), size.height()) <= PopupPictures::longestSide;
}

} // namespace

/// A picture in memory that has a path, and leaves nothing on any disk.
class PopupPictures::Copy
{
public:
    explicit Copy(const QByteArray& content) : m_descriptor(::memfd_create("picture", MFD_CLOEXEC))
    {
        for (qsizetype done = 0; m_descriptor >= 0 && done < content.size();) {
            const ssize_t count =
                ::write(m_descriptor, content.constData() + done, static_cast<std::size_t>(content.size() - done));
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return;
            done += count;
        }
        m_isWhole = m_descriptor >= 0;
    }
    ~Copy()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }
    Q_DISABLE_COPY_MOVE(Copy)

    bool isWhole() const { return m_isWhole; }
    QString path() const { return u"/proc/self/fd/%1"_s.arg(m_descriptor); }

private:
    const int m_descriptor;
    bool m_isWhole = false;
};

struct PopupPictures::Entry
{
    PopupPicture picture;
    std::unique_ptr<Copy> copy;     ///< null when the file itself is handed on
    std::optional<FileState> state; ///< none when there was no such file
    bool isSettled = false;         ///< when it was looked at
};

PopupPictures::PopupPictures() : m_entries(mostEntries)
{}

PopupPictures::~PopupPictures() = default;

PopupPicture PopupPictures::prepare(const QString& path)
{
    if (path.isEmpty() || path.startsWith(u':'))
        return {path, {}};
    const QString file = fileFor(path);
    const Entry* known = m_entries.object(file);
    if (known && known->isSettled && known->state == FileState::of(file))
        return known->picture;
    auto entry = look(file);
    PopupPicture picture = entry->picture;
    // Kept also for a file that may still change in this moment: the copy has to live until the library has loaded it.
    if (entry->state)
        m_entries.insert(file, entry.release());
    return picture;
}

std::unique_ptr<PopupPictures::Entry> PopupPictures::look(const QString& file)
{
    auto entry = std::make_unique<Entry>();
    const auto refused = [&entry](const QString& problem) {
        entry->picture.problem = problem;
        return std::move(entry);
    };
    RegularFile opened = RegularFile::openToRead(file, mostBytes);
    if (opened.isOpen() || opened.state() == RegularFile::State::TooLarge) {
        entry->state = FileState(opened.status());
        entry->isSettled = entry->state->isSettled();
    }
    if (!opened.isOpen())
        return refused(opened.reason());
    const qint64 bytes = opened.status().st_size;

    QFile device(file);
    opened.moveTo(device);
    QImageReader reader(&device);
    const QByteArray format = reader.format();
    if (isDrawing(format))
        return refused(u"a vector image, which can refer to other files"_s);
    // Asked before anything is decoded: a few bytes can declare gigabytes.
    const QSize size = reader.size();
    if (format.isEmpty() || size.isEmpty())
        return refused(u"not an image"_s);
    if (qint64(size.width()) * size.height() > mostPixels)
        return refused(
            u"%1 x %2 pixels, more than %3 million"_s.arg(size.width()).arg(size.height()).arg(mostPixels / 1'000'000));
    if (isSmall(size) && bytes <= smallFile) {
        entry->picture.path = file;
        return entry;
    }
    entry->copy = copyOf(reader);
    if (!entry->copy)
        return refused(u"a damaged image"_s);
    entry->picture.path = entry->copy->path();
    return entry;
}

std::unique_ptr<PopupPictures::Copy> PopupPictures::copyOf(QImageReader& reader)
{
    ++m_decodedCount;
    // A photograph can be decoded at a fraction of its size.
    const QSize size = reader.size();
    if (!isSmall(size) && reader.format() == "jpeg")
        reader.setScaledSize(fitting(size));
    QImage image = reader.read();
    // A picture of two colours would be scaled to black and white.
    if (!image.isNull() && !isSmall(image.size()))
        image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                    .scaled(fitting(image.size()), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QBuffer encoded;
    encoded.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&encoded, "PNG"))
        return nullptr;
    auto copy = std::make_unique<Copy>(encoded.data());
    return copy->isWhole() ? std::move(copy) : nullptr;
}

} // namespace zepa
