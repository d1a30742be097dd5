// SPDX-License-Identifier: Apache-2.0
#include "bus/bus_program.h"

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <vector>

namespace zepa::bus {

namespace {

/// Only what may be called after fork() in a program with threads.
[[noreturn]] void runProgram(const std::vector<char*>& words, int socket)
{
    // A grandchild belongs to nobody, so nobody has to wait for its end: sd-bus would, while it closes.
    if (fork() != 0)
        _exit(0);
    setsid();
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    signal(SIGPIPE, SIG_DFL); // NOLINT(bugprone-unused-return-value,cert-err33-c): nothing could be done
    if (dup2(socket, STDIN_FILENO) >= 0 && dup2(socket, STDOUT_FILENO) >= 0)
        execv(words.front(), words.data() + 1);
    constexpr int notFound = 127;
    _exit(notFound);
}

} // namespace

int startBusProgram(const QList<QByteArray>& program)
{
    std::array<int, 2> sockets = {-1, -1};
    if (program.size() < 2 || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets.data()) != 0)
        return -1;
    QList<QByteArray> copies = program;
    std::vector<char*> words;
    for (QByteArray& word : copies)
        words.push_back(word.data());
    words.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0)
        runProgram(words, sockets[1]);
    close(sockets[1]);
    if (child < 0) {
        close(sockets[0]);
        return -1;
    }
    // It ends at once; the program is its child.
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    return sockets[0];
}

} // namespace zepa::bus
