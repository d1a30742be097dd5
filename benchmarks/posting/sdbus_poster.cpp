// SPDX-License-Identifier: Apache-2.0
// A bare call of sd-bus in Qt's event loop (a socket notifier for each direction and one timer) with the arguments that
// the library would send, and nothing around it. Pictures are decoded before the call, each once.
#include "picture.h"
#include "poster.h"
#include "qt_loop.h"

#include <QApplication>
#include <QImage>
#include <QSocketNotifier>
#include <QTimer>

#include <poll.h>
#include <systemd/sd-bus.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <memory>
#include <stdexcept>

namespace {

void check(int result)
{
    if (result < 0)
        throw std::runtime_error("sd-bus refuses a call");
}

int ignoreReply(sd_bus_message* /*reply*/, void* /*data*/, sd_bus_error* /*error*/)
{
    return 0;
}

/// sd-bus driven by Qt's event loop.
class Connection
{
public:
    Connection()
    {
        check(sd_bus_new(&m_bus));
        check(sd_bus_set_address(m_bus, qgetenv("DBUS_SESSION_BUS_ADDRESS").constData()));
        check(sd_bus_set_bus_client(m_bus, 1));
        check(sd_bus_start(m_bus));
        m_readable = std::make_unique<QSocketNotifier>(sd_bus_get_fd(m_bus), QSocketNotifier::Read);
        m_writable = std::make_unique<QSocketNotifier>(sd_bus_get_fd(m_bus), QSocketNotifier::Write);
        m_timer.setSingleShot(true);
        QObject::connect(m_readable.get(), &QSocketNotifier::activated, [this] { process(); });
        QObject::connect(m_writable.get(), &QSocketNotifier::activated, [this] { process(); });
        QObject::connect(&m_timer, &QTimer::timeout, [this] { process(); });
        watch();
    }
    ~Connection() { sd_bus_close_unref(m_bus); }
    Q_DISABLE_COPY_MOVE(Connection)

    sd_bus* bus() const { return m_bus; }

    /// To be called after each call, too: what does not fit into the socket waits for it to become writable.
    void watch()
    {
        m_writable->setEnabled((sd_bus_get_events(m_bus) & POLLOUT) != 0);
        std::uint64_t until = UINT64_MAX;
        check(sd_bus_get_timeout(m_bus, &until));
        if (until == UINT64_MAX) {
            m_timer.stop();
            m_until = until;
        } else if (until != m_until) {
            m_until = until;
            m_timer.start(millisecondsUntil(until));
        }
    }

private:
    static int millisecondsUntil(std::uint64_t microseconds)
    {
        constexpr std::uint64_t inOneMillisecond = 1000;
        constexpr std::uint64_t inOneSecond = 1'000'000;
        timespec time{};
        clock_gettime(CLOCK_MONOTONIC, &time);
        const std::uint64_t now = static_cast<std::uint64_t>(time.tv_sec) * inOneSecond +
                                  static_cast<std::uint64_t>(time.tv_nsec) / inOneMillisecond;
        return microseconds <= now ? 0 : static_cast<int>((microseconds - now) / inOneMillisecond) + 1;
    }

    void process()
    {
        int result = 0;
        do {
            result = sd_bus_process(m_bus, nullptr);
            check(result);
        } while (result > 0);
        watch();
    }

    sd_bus* m_bus = nullptr;
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    QTimer m_timer;
    std::uint64_t m_until = UINT64_MAX;
};

class SdBusPoster : public Poster
{
public:
    void start() override { m_connection = std::make_unique<Connection>(); }
    void prepare(const std::string& title, const std::string& text, const std::string& icon) override
    {
        m_title = title;
        m_text = text;
        m_picture = preparedPicture(icon);
    }
    void post() override
    {
        sd_bus_message* message = nullptr;
        check(sd_bus_message_new_method_call(m_connection->bus(), &message, "org.freedesktop.Notifications",
                                             "/org/freedesktop/Notifications", "org.freedesktop.Notifications",
                                             "Notify"));
        check(sd_bus_message_append(message, "susssas", "Zepa", 0U, "", m_title.c_str(), m_text.c_str(), 0));
        check(sd_bus_message_open_container(message, 'a', "{sv}"));
        check(sd_bus_message_append(message, "{sv}", "urgency", "y", 1));
        check(sd_bus_message_append(message, "{sv}", "desktop-entry", "s", "zepa"));
        if (!m_picture.isNull())
            appendPicture(message);
        check(sd_bus_message_close_container(message));
        check(sd_bus_message_append(message, "i", -1));
        constexpr std::uint64_t timeLimit = 5'000'000;
        check(sd_bus_call_async(m_connection->bus(), nullptr, message, ignoreReply, nullptr, timeLimit));
        sd_bus_message_unref(message);
        m_connection->watch();
    }
    void settle(int microseconds) override { runEventLoop(microseconds); }

private:
    void appendPicture(sd_bus_message* message) const
    {
        constexpr int bitsPerSample = 8;
        constexpr int channels = 4;
        check(sd_bus_message_open_container(message, 'e', "sv"));
        check(sd_bus_message_append(message, "s", "image-data"));
        check(sd_bus_message_open_container(message, 'v', "(iiibiiay)"));
        check(sd_bus_message_open_container(message, 'r', "iiibiiay"));
        check(sd_bus_message_append(message, "iiibii", m_picture.width(), m_picture.height(),
                                    static_cast<int>(m_picture.bytesPerLine()), 1, bitsPerSample, channels));
        check(sd_bus_message_append_array(message, 'y', m_picture.constBits(),
                                          static_cast<std::size_t>(m_picture.sizeInBytes())));
        for (int i = 0; i < 3; ++i)
            check(sd_bus_message_close_container(message));
    }

    std::unique_ptr<Connection> m_connection;
    std::string m_title;
    std::string m_text;
    QImage m_picture;
};

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    SdBusPoster poster;
    return runPoster(poster);
}
