// SPDX-License-Identifier: Apache-2.0
#include "client/instance/caller_policy.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <utility>

// The header of glibc 2.36 forgets to say so.
extern "C" {
#include <sys/pidfd.h>

using namespace Qt::StringLiterals;
}

namespace zepa::instance {

namespace {

QString foreign()
{
    return u"the running Zepa accepts no commands from sandboxed programs"_s;
}

/// Where a link leads; null when that cannot be said.
QByteArray target(const QByteArray& link)
{
    std::array<char, PATH_MAX> buffer{};
    const ssize_t size = ::readlink(link.constData(), buffer.data(), buffer.size());
    return size < 0 ? QByteArray() : QByteArray(buffer.data(), size);
}

/// The content of a small file of the system's. Null when it cannot be read, empty when there is no such thing here.
QByteArray content(const QByteArray& path)
{
    const SharedDescriptor file = shareDescriptor(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    // Without a security module, reading its attribute is "invalid".
    const auto nothing = [] { return errno == ENOENT || errno == EINVAL ? QByteArray("") : QByteArray(); };
    if (!file)
        return nothing();
    QByteArray all("");
    std::array<char, 4096> buffer{};
    while (true) {
        const ssize_t size = ::read(*file, buffer.data(), buffer.size());
        if (size < 0 && errno == EINTR)
            continue;
        if (size <= 0)
            return size == 0 ? all : nothing();
        all.append(buffer.data(), size);
    }
}

bool isSnapLabel(const QByteArray& label)
{
    return label.startsWith("snap.");
}

/// Whether a snap runs in one of the control groups: ".../snap.NAME.APP-ID.scope".
bool isSnapGroup(const QByteArray& groups)
{
    return groups.contains("/snap.");
}

} // namespace

QString unknownCaller(const char* what)
{
    return u"the running Zepa accepts no commands from programs that it cannot identify: %1"_s.arg(
        QString::fromLatin1(what));
}

SharedDescriptor shareDescriptor(int descriptor)
{
    if (descriptor < 0)
        return nullptr;
    return {new int(descriptor), [](const int* open) {
                ::close(*open);
                delete open;
            }};
}

CallerLook::CallerLook(Caller caller, QByteArray processes)
    : m_caller(std::move(caller)), m_processes(std::move(processes))
{
    if (!m_caller.processDescriptor && m_caller.process > 0)
        m_caller.processDescriptor = shareDescriptor(::pidfd_open(m_caller.process, 0));
}

std::optional<QString> CallerLook::quickProblem() const
{
    if (!m_caller.user)
        return unknownCaller("the bus does not know its user");
    if (*m_caller.user != ::geteuid())
        return u"the running Zepa accepts no commands from programs of other users"_s;
    if (m_caller.process <= 0 || !m_caller.processDescriptor)
        return unknownCaller("the bus does not know its process, or the process has ended");
    if (const QString problem = problemWithProcess(); !problem.isEmpty())
        return problem;
    const QByteArray files = target(path("ns/mnt"));
    const QByteArray root = target(path("root"));
    if (files.isEmpty() || root.isEmpty())
        return unknownCaller("its files cannot be inspected");
    if (files != target(m_processes + "/self/ns/mnt") || root != "/")
        return std::nullopt;
    // It sees the files that we see: wherever that is, it is there with us.
    return isStillThere() ? QString() : unknownCaller("it has ended");
}

QString CallerLook::problem() const
{
    if (const auto problem = quickProblem())
        return *problem;
    const SharedDescriptor root =
        shareDescriptor(::open(path("root").constData(), O_PATH | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
    if (!root)
        return unknownCaller("its root folder cannot be opened");
    struct stat info
    {};
    if (::fstatat(*root, ".flatpak-info", &info, AT_SYMLINK_NOFOLLOW) == 0)
        return foreign();
    if (errno != ENOENT)
        return unknownCaller("its root folder cannot be inspected");
    return isStillThere() ? QString() : unknownCaller("it has ended");
}

QByteArray CallerLook::path(const char* name) const
{
    return m_processes + '/' + QByteArray::number(m_caller.process) + '/' + name;
}

/// What the system says of it, its files aside.
QString CallerLook::problemWithProcess() const
{
    const QByteArray label = content(path("attr/current"));
    const QByteArray groups = content(path("cgroup"));
    if (label.isNull() || groups.isNull())
        return unknownCaller("the system does not describe its process");
    if (isSnapLabel(m_caller.label) || isSnapLabel(label) || isSnapGroup(groups))
        return foreign();
    return {};
}

/// Whether what was read was about this process and not about one that got its number later.
bool CallerLook::isStillThere() const
{
    pollfd end{*m_caller.processDescriptor, POLLIN, 0};
    return ::poll(&end, 1, 0) == 0;
}

} // namespace zepa::instance
