// SPDX-License-Identifier: Apache-2.0
#include "client/cli/script.h"

#include "entries.h"

#include <algorithm>

namespace zepa::fuzz {

void readScriptFile(const QByteArray& input)
{
    const QStringList types{QStringLiteral("message_received"), QStringLiteral("logged_in")};
    const QString nowhere = QStringLiteral("/nonexistent");
    const cli::Script script = cli::readScript(input, QStringLiteral("script"), {nowhere, nowhere}, types);
    for (const QString& problem : script.problems) {
        require(problem.startsWith(QStringLiteral("script:")), "a problem names its place");
        require(std::none_of(problem.begin(), problem.end(), [](QChar c) { return c < u' '; }),
                "a problem is one line without control characters");
    }
    if (!script.problems.isEmpty())
        return;
    double time = 0;
    for (const cli::Event& event : script.events) {
        require(types.contains(event.type) && !event.title.isNull(), "an event has a type and a title");
        require(event.at >= time && event.at <= cli::latestTime, "events are in the order of time");
        require(event.icon.isEmpty(), "no picture that is not there");
        time = event.at;
    }
}

} // namespace zepa::fuzz
