// SPDX-License-Identifier: Apache-2.0
#include "client/termination.h"

#include "client/window/client_requests.h"
#include "kit/journal/event_wait.h"

#include <zepa_platform/popups.h>

#include <QCoreApplication>
#include <QSocketNotifier>

#include <chrono>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

namespace zepa {

namespace {

int wakeUp[2] = {-1, -1};
volatile std::sig_atomic_t receivedSignal = 0;

/// Nothing but this is safe at any moment.
void onSignal(int signal)
{
    receivedSignal = signal;
    [[maybe_unused]] const ssize_t written = ::write(wakeUp[1], "", 1);
}

} // namespace

void quitOnTermination()
{
    if (::pipe2(wakeUp, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* notifier = new QSocketNotifier(wakeUp[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [notifier] {
        notifier->setEnabled(false);
        // Only a pop-up that the service has named can be taken off the screen.
        handleEventsUntil([] { return zepaPopupsOnTheirWay() == 0; }, std::chrono::milliseconds(500));
        Q_EMIT ClientRequests::instance().quit();
    });
    for (const int signal : {SIGINT, SIGTERM}) {
        struct sigaction action = {};
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action.sa_handler = onSignal;
        action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

void endBySignal()
{
    if (receivedSignal == 0)
        return;
    std::fflush(nullptr);
    std::signal(receivedSignal, SIG_DFL);
    std::raise(receivedSignal);
}

} // namespace zepa
