// SPDX-License-Identifier: Apache-2.0
#include "client/cli/command.h"

#include "client/cli/job.h"

namespace zepa::cli {

void Command::start(const QCommandLineParser& line, Client& client, Job& job) const
{
    job.finish(run(line, client));
}

int Command::run(const QCommandLineParser& /*line*/, Client& /*client*/) const
{
    return Failure;
}

} // namespace zepa::cli
