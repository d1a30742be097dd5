// SPDX-License-Identifier: Apache-2.0
#include "client/cli/script.h"

#include "entries.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::fuzz {

void readScriptFile(const QByteArray& input)
{
    const QStringList types{u"message_received"_s, u"logged_in"_s};
    const QString nowhere = u"/nonexistent"_s;
    const cli::Script script = cli::readScript(input, u"script"_s, {nowhere, nowhere}, types);
    for (const QString& problem : script.problems) {
        require(problem.startsWith(u"script:"_s), "a problem names its place");
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
