// SPDX-License-Identifier: Apache-2.0
#include <zepa_platform/attention.h>

#include <QByteArray>
#include <QGuiApplication>

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace {

/// A bus that lets a client connect and never says a word.
class SilentBus
{
public:
    SilentBus()
        : m_path(qgetenv("XDG_RUNTIME_DIR") + "/silent-bus-" + QByteArray::number(getpid()))
        , m_listening(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::copy_n(m_path.begin(),
                    std::min<std::size_t>(static_cast<std::size_t>(m_path.size()), sizeof(address.sun_path) - 1),
                    address.sun_path);
        m_listens = bind(m_listening, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 &&
                    listen(m_listening, 1) == 0;
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + m_path);
    }
    ~SilentBus()
    {
        close(m_client);
        close(m_listening);
        unlink(m_path.constData());
    }
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;

    bool listens() const { return m_listens; }
    /// Waits for the client's connection.
    bool accepts()
    {
        m_client = accept4(m_listening, nullptr, nullptr, SOCK_CLOEXEC);
        return m_client >= 0;
    }
    /// Whether the client, which has not been answered, is still there: one that lost its patience hangs up.
    bool clientWaits() const
    {
        std::array<char, 256> greeting = {};
        ssize_t count = 0;
        while ((count = recv(m_client, greeting.data(), greeting.size(), MSG_DONTWAIT)) > 0) {
        }
        return count < 0 && errno == EAGAIN;
    }

private:
    const QByteArray m_path;
    const int m_listening;
    int m_client = -1;
    bool m_listens = false;
};

} // namespace

TEST(Attention, NeverWaitsForABusThatDoesNotAnswer)
{
    ASSERT_NE(QGuiApplication::applicationState(), Qt::ApplicationActive);
    SilentBus bus;
    ASSERT_TRUE(bus.listens());
    zepaRequestAttention();
    ASSERT_TRUE(bus.accepts());
    EXPECT_TRUE(bus.clientWaits());
}

TEST(Attention, IsHarmlessWithoutWindowsAndWithoutABus)
{
    ASSERT_TRUE(QGuiApplication::topLevelWindows().isEmpty());
    zepaRequestAttention();
    zepaRequestAttention();
    QCoreApplication::processEvents();
}
