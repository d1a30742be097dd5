// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace zepa {

/// Starts programs and forgets them, a few at a time.
///
/// A program begins in the user's home, in a session of its own, with nothing to read, its output thrown away, no
/// other file open, and this process's environment with the caller's variables added. It lives on when the runner
/// goes; until then the runner sees its end, so that no zombie stays. Needs an event loop for that.
class CommandRunner
{
public:
    static constexpr std::size_t mostAtOnce = 4;

    CommandRunner();
    ~CommandRunner();
    Q_DISABLE_COPY_MOVE(CommandRunner)

    /// Starts `words[0]`, looked for in PATH unless it has a slash, with the other words as its arguments; no shell
    /// has a part in it, not even for a script without a first line. Empty when it runs, else why it does not.
    QString start(const QStringList& words, const QHash<QString, QString>& environment);

    /// How many of them run.
    std::size_t running() const;

private:
    class Child;
    std::vector<std::unique_ptr<Child>> m_children;
};

} // namespace zepa
