// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/types.h>

#include <memory>
#include <optional>

/// Who may call: programs of the same user outside of sandboxes. Others could set a rule that runs a program, and so
/// leave their sandbox. What cannot be found out counts as foreign.
namespace zepa::instance {

/// An open file descriptor, closed with its last owner.
using SharedDescriptor = std::shared_ptr<const int>;
/// Takes the descriptor over; null for a negative one.
SharedDescriptor shareDescriptor(int descriptor);

/// The refusal of a caller that could not be looked up, and `what` it was that could not.
QString unknownCaller(const char* what);

/// What the bus says of the process behind a connection.
struct Caller
{
    std::optional<uid_t> user;
    /// 0: not known.
    pid_t process = 0;
    /// Names the process for good, while a number may come to be another's. Null where the bus does not offer it.
    SharedDescriptor processDescriptor;
    /// What the security module calls the process; empty without one.
    QByteArray label;
};

/// Looks at a caller's process. Holds on to the process from when it is made, so that another that gets its number
/// later is not taken for it.
class CallerLook
{
public:
    /// `processes` is where the system tells of processes.
    explicit CallerLook(Caller caller, QByteArray processes = "/proc");

    /// Why the caller is refused, as far as can be said without its files; "" when it may call. Nothing when its root
    /// folder must be looked at, too: that may be on a file system that does not answer.
    std::optional<QString> quickProblem() const;
    /// Why the caller is refused; "" when it may call. May take for ever: for a thread of its own.
    QString problem() const;

private:
    QByteArray path(const char* name) const;
    QString problemWithProcess() const;
    bool isStillThere() const;

    Caller m_caller;
    const QByteArray m_processes;
};

} // namespace zepa::instance
