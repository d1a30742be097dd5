// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/command/command_runner.h"

#include "kit/extra_methods/child_environment.h"

#include <QDir>
#include <QFile>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

// The header of glibc 2.36 forgets to say so.
extern "C" {
#include <sys/pidfd.h>

using namespace Qt::StringLiterals;
}

namespace zepa {

/// A program that runs. Its descriptor becomes readable when it ends.
class CommandRunner::Child
{
public:
    Child(pid_t process, int descriptor)
        : m_process(process), m_descriptor(descriptor), m_end(descriptor, QSocketNotifier::Read)
    {}
    ~Child()
    {
        m_end.setEnabled(false);
        ::close(m_descriptor);
    }
    Q_DISABLE_COPY_MOVE(Child)

    QSocketNotifier& end() { return m_end; }
    void bury()
    {
        ::waitpid(m_process, nullptr, WNOHANG);
        m_end.setEnabled(false);
        m_hasEnded = true;
    }
    bool hasEnded() const { return m_hasEnded; }

private:
    const pid_t m_process;
    const int m_descriptor;
    QSocketNotifier m_end;
    bool m_hasEnded = false;
};

namespace {

/// Strings as the system's calls take them: pointers to bytes that live as long as this, and a null pointer.
class PointerList
{
public:
    explicit PointerList(const QStringList& strings)
    {
        for (const QString& string : strings)
            m_bytes.push_back(QFile::encodeName(string));
        for (QByteArray& bytes : m_bytes)
            m_pointers.push_back(bytes.data());
        m_pointers.push_back(nullptr);
    }
    char* const* data() const { return m_pointers.data(); }

private:
    std::vector<QByteArray> m_bytes;
    std::vector<char*> m_pointers;
};

/// What a new program begins with.
class Surroundings
{
public:
    Surroundings()
    {
        posix_spawn_file_actions_init(&m_files);
        posix_spawn_file_actions_addopen(&m_files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&m_files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&m_files, STDOUT_FILENO, STDERR_FILENO);
        posix_spawn_file_actions_addclosefrom_np(&m_files, STDERR_FILENO + 1);
        const QString home = QDir::homePath();
        if (QDir(home).exists())
            posix_spawn_file_actions_addchdir_np(&m_files, QFile::encodeName(home).constData());

        // Qt ignores SIGPIPE; a program that writes into a closed pipe expects to be ended by it.
        sigset_t signals;
        posix_spawnattr_init(&m_attributes);
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&m_attributes, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&m_attributes, &signals);
        posix_spawnattr_setflags(
            &m_attributes, static_cast<short>(POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
    }
    ~Surroundings()
    {
        posix_spawnattr_destroy(&m_attributes);
        posix_spawn_file_actions_destroy(&m_files);
    }
    Q_DISABLE_COPY_MOVE(Surroundings)

    const posix_spawn_file_actions_t* files() const { return &m_files; }
    const posix_spawnattr_t* attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_files;
    posix_spawnattr_t m_attributes;
};

QStringList environmentWith(const QHash<QString, QString>& more)
{
    QProcessEnvironment environment = childEnvironment();
    for (auto variable = more.cbegin(); variable != more.cend(); ++variable)
        environment.insert(variable.key(), variable.value());
    return environment.toStringList();
}

QString reason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error)); // NOLINT(concurrency-mt-unsafe): one thread
}

} // namespace

CommandRunner::CommandRunner() = default;
CommandRunner::~CommandRunner() = default;

std::size_t CommandRunner::running() const
{
    return static_cast<std::size_t>(
        std::count_if(m_children.cbegin(), m_children.cend(), [](const auto& child) { return !child->hasEnded(); }));
}

QString CommandRunner::start(const QStringList& words, const QHash<QString, QString>& environment)
{
    // Not when it ended: its notifier was telling us just then.
    std::erase_if(m_children, [](const auto& child) { return child->hasEnded(); });
    if (m_children.size() >= mostAtOnce)
        return u"%1 commands run already"_s.arg(mostAtOnce);
    const PointerList arguments(words);
    const PointerList variables(environmentWith(environment));
    const Surroundings surroundings;
    pid_t process = 0;
    const int error = ::posix_spawnp(&process, arguments.data()[0], surroundings.files(), surroundings.attributes(),
                                     arguments.data(), variables.data());
    if (error != 0)
        return reason(error);
    const int descriptor = ::pidfd_open(process, 0);
    if (descriptor < 0)
        return u"runs, but its end cannot be seen: "_s + reason(errno);
    Child& child = *m_children.emplace_back(std::make_unique<Child>(process, descriptor));
    QObject::connect(&child.end(), &QSocketNotifier::activated, &child.end(), [&child] { child.bury(); });
    return {};
}

} // namespace zepa
