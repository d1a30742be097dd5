// SPDX-License-Identifier: Apache-2.0
#include "kit/files/regular_file.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// Not blocking, for the sake of what may take the name of a regular file before it is opened.
constexpr int safely = O_NONBLOCK | O_CLOEXEC | O_NOCTTY;
constexpr mode_t forOwner = 0600;

} // namespace

RegularFile RegularFile::openToRead(const QString& path, qint64 mostBytes, Links links)
{
    RegularFile file(mostBytes);
    file.open(path, O_RDONLY, links);
    return file;
}

RegularFile RegularFile::openToAppend(const QString& path, Links links)
{
    constexpr int append = O_WRONLY | O_APPEND;
    RegularFile file(anySize);
    file.open(path, append, links);
    if (file.state() != State::Missing)
        return file;
    // Exclusively: nothing is made where a link leads.
    const int made =
        ::open(QFile::encodeName(path).constData(), append | safely | O_CREAT | O_EXCL | O_NOFOLLOW, forOwner);
    if (made < 0 && errno == EEXIST) {
        file.open(path, append, links);
        return file;
    }
    if (made >= 0)
        ::fchmod(made, forOwner);
    file.accept(made);
    return file;
}

void RegularFile::open(const QString& path, int flags, Links links)
{
    // A name with a zero in it would be cut there, and another file would be opened.
    if (path.isEmpty() || path.contains(QChar::Null))
        return fail(EINVAL);
    const QByteArray name = QFile::encodeName(path);
    const bool follows = links == Links::Follow;
    if ((follows ? ::stat(name.constData(), &m_status) : ::lstat(name.constData(), &m_status)) != 0)
        return fail(errno);
    m_state = judge();
    if (m_state == State::Open)
        accept(::open(name.constData(), flags | safely | (follows ? 0 : O_NOFOLLOW)));
}

RegularFile::RegularFile(RegularFile&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
    , m_error(other.m_error)
    , m_state(std::exchange(other.m_state, State::Failed))
    , m_status(other.m_status)
    , m_mostBytes(other.m_mostBytes)
{}

RegularFile::~RegularFile()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

/// Takes what open() gave. Judged once more: another file may have taken the name meanwhile.
void RegularFile::accept(int descriptor)
{
    if (descriptor < 0)
        return fail(errno);
    m_descriptor = descriptor;
    if (::fstat(descriptor, &m_status) != 0)
        fail(errno);
    else
        m_state = judge();
    if (m_state != State::Open)
        ::close(std::exchange(m_descriptor, -1));
}

void RegularFile::fail(int error)
{
    m_error = error;
    m_state = error == ENOENT ? State::Missing : error == ELOOP ? State::Link : State::Failed;
}

RegularFile::State RegularFile::judge() const
{
    if (S_ISLNK(m_status.st_mode))
        return State::Link;
    if (!S_ISREG(m_status.st_mode))
        return State::NotRegular;
    return m_status.st_size > m_mostBytes ? State::TooLarge : State::Open;
}

QString RegularFile::reason() const
{
    switch (m_state) {
    case State::Open:
        return {};
    case State::Link:
        return u"a symbolic link"_s;
    case State::NotRegular:
        return u"not a regular file"_s;
    case State::TooLarge:
        return u"larger than %1 bytes"_s.arg(m_mostBytes);
    case State::Missing:
        return QString::fromStdString(std::generic_category().message(ENOENT));
    case State::Failed:
        break;
    }
    return QString::fromStdString(std::generic_category().message(m_error));
}

std::optional<QByteArray> RegularFile::readAll() const
{
    if (!isOpen())
        return std::nullopt;
    QByteArray content;
    char block[16384];
    for (;;) {
        const ssize_t count = ::read(m_descriptor, block, sizeof block);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            return content;
        content.append(block, count);
        // It may grow while it is read.
        if (content.size() > m_mostBytes)
            return std::nullopt;
    }
}

bool RegularFile::moveTo(QFile& device)
{
    if (!isOpen())
        return false;
    m_state = State::Failed;
    const int descriptor = std::exchange(m_descriptor, -1);
    if (device.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return true;
    ::close(descriptor);
    return false;
}

} // namespace zepa
