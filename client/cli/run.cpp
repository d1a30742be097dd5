// SPDX-License-Identifier: Apache-2.0
#include "client/cli/run.h"

#include "client/cli/command_line.h"
#include "client/cli/job.h"
#include "client/cli/output.h"
#include "client/cli/standard_streams.h"
#include "client/finish_delivering.h"
#include "kit/files/regular_file.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

constexpr qint64 longestInput = qint64{16} * 1024 * 1024;

} // namespace

std::optional<QByteArray> readInput(const CommandLine& line)
{
    const QString name = line.command()->inputFile(line.parser());
    if (name.isNull())
        return QByteArray();
    const bool isInput = name == u"-"_s;
    std::optional<QByteArray> content;
    // A file that is too long is refused below, with a sentence of its own.
    if (isInput)
        content = readStandardInput(longestInput);
    else if (QFile file(name); RegularFile::openToRead(name, RegularFile::anySize).moveTo(file))
        content = file.read(longestInput + 1);
    const QString what = isInput ? u"standard input"_s : onOneLine(name);
    if (!content) {
        printError(u"cannot read %1; give a file, or - for standard input"_s.arg(what));
        return std::nullopt;
    }
    if (content->size() > longestInput) {
        printError(u"%1 is too large (limit 16 MiB)"_s.arg(what));
        return std::nullopt;
    }
    return content;
}

int runHere(const CommandLine& line, const QByteArray& input, Client& client)
{
    Job job({QDir::currentPath(), input}, nullptr);
    line.command()->start(line.parser(), client, job);
    if (!job.code()) {
        QEventLoop loop;
        QObject::connect(&job, &Job::finished, &loop, &QEventLoop::quit);
        // Ended too when the user quits.
        loop.exec();
        job.hurry();
    }
    // The desktop reads what it is sent when this program handles events, and those end with it.
    if (line.command()->reachesTheUser())
        finishDelivering(client);
    return job.code().value_or(Failure);
}

} // namespace zepa::cli
