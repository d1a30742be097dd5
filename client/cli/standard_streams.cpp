// SPDX-License-Identifier: Apache-2.0
#include "client/cli/standard_streams.h"

#include "client/cli/exit_code.h"

#include <QString>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

bool isOutputLost = false;

} // namespace

void reserveClosedStreams()
{
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // The lowest free number is taken, and those below are open by now.
        if (::fcntl(number, F_GETFD) < 0 && errno == EBADF)
            static_cast<void>(::open("/", O_PATH));
    }
}

void writeToStream(Stream stream, const QByteArray& bytes)
{
    std::FILE* file = stream == Stream::Output ? stdout : stderr;
    const auto size = static_cast<std::size_t>(bytes.size());
    const bool isWritten = std::fwrite(bytes.constData(), 1, size, file) == size && std::fflush(file) == 0;
    if (isWritten || stream != Stream::Output || isOutputLost)
        return;
    isOutputLost = true;
    const OutputTo ourselves(nullptr);
    printError(u"cannot write to standard output: %1"_s.arg(qt_error_string(errno)));
}

int exitCodeAfterOutput(int code)
{
    return code == Success && isOutputLost ? Failure : code;
}

std::optional<QByteArray> readStandardInput(qsizetype most)
{
    constexpr qsizetype piece = 65536;
    QByteArray content;
    while (content.size() <= most) {
        const qsizetype before = content.size();
        content.resize(before + std::min(piece, most + 1 - before));
        const ssize_t count =
            ::read(STDIN_FILENO, content.data() + before, static_cast<std::size_t>(content.size() - before));
        const int error = errno;
        content.resize(before + std::max<ssize_t>(count, 0));
        if (count == 0)
            break;
        if (count > 0 || error == EINTR)
            continue;
        pollfd input{STDIN_FILENO, POLLIN, 0};
        if (error != EAGAIN || (::poll(&input, 1, -1) < 0 && errno != EINTR))
            return std::nullopt;
    }
    return content;
}

} // namespace zepa::cli
