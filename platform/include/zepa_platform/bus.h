// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QLatin1StringView>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

struct sd_bus_message;

/// The session bus without waiting: connecting, authenticating, matches, names and calls are states that change with
/// the events that the program handles. Nothing blocks, nothing throws, no thread is started.
///
/// Main thread only, and only while there is a QCoreApplication. Every handler is called from the event loop, never
/// from inside the function that it was given to, and may run an event loop of its own or destroy what called it.
namespace zepa::bus {

class ConnectionCore;

/// One D-Bus message. Copies are the same message.
///
/// What arrived is read with MessageReader. What is to be sent is built with append() in the order of its signature; a
/// value that does not fit (a text with a NUL, a broken object path, a container that does not match) makes the message
/// unsound, and an unsound message is never sent.
class Q_DECL_EXPORT Message
{
public:
    enum class Kind { None, Call, Reply, Error, Signal };

    Message() = default;
    Message(const Message& other);
    Message(Message&& other) noexcept;
    Message& operator=(Message other) noexcept;
    ~Message();

    // Valid as long as a copy of the message exists; empty where the message has no such field.
    Kind kind() const;
    QLatin1StringView sender() const; ///< the unique name, or org.freedesktop.DBus for the bus itself
    QLatin1StringView path() const;
    QLatin1StringView interface() const;
    QLatin1StringView member() const;
    QLatin1StringView signature() const;
    /// Of an error, whether it came from the other side, from the bus or from this process (Disconnected, NoReply,
    /// LimitsExceeded, InvalidArgs of org.freedesktop.DBus.Error).
    QLatin1StringView errorName() const;
    QString errorText() const;
    bool isError() const { return kind() == Kind::Error; }
    /// The bus, or this process, had no room for the call (LimitsExceeded), and its receiver did not get it. Later
    /// there may be room.
    bool isOverLimits() const;
    bool expectsReply() const;

    /// Null for what was built without a connection, and for a reply that nobody wants. Appending does nothing then.
    bool isNull() const { return m_message == nullptr && m_localError == nullptr; }
    bool isSound() const { return m_message != nullptr && m_isSound; }

    Message& append(bool value);
    Message& append(std::uint8_t value);
    Message& append(std::int32_t value);
    Message& append(std::uint32_t value);
    Message& append(std::int64_t value);
    Message& append(std::uint64_t value);
    Message& append(double value);
    /// Unpaired surrogates become U+FFFD.
    Message& append(QStringView text);
    Message& append(const QString& text) { return append(QStringView(text)); }
    /// UTF-8; anything else makes the message unsound.
    Message& append(const char* text);
    Message& append(const QStringList& texts); ///< "as"
    Message& append(const QByteArray& bytes);  ///< "ay"
    template <typename T>
    Message& append(const T& value) = delete;
    Message& appendObjectPath(const char* path);

    /// Each open needs its close(). `contents` is the signature of what is inside.
    Message& openArray(const char* contents);
    Message& openStruct(const char* contents);
    Message& openVariant(const char* contents);
    Message& openEntry(const char* contents);
    Message& close();
    /// An entry of an open "a{sv}".
    template <typename T>
    Message& appendEntry(const char* key, const T& value)
    {
        return openEntry("sv").append(key).openVariant(signatureOf(value)).append(value).close().close();
    }

    /// Whether the bus may start the owner of the destination; true at first.
    Message& setAutoStart(bool isAllowed);

private:
    friend class ConnectionCore;
    friend class MessageReader;
    friend class Transport;

    static constexpr const char* signatureOf(bool) { return "b"; }
    static constexpr const char* signatureOf(std::uint8_t) { return "y"; }
    static constexpr const char* signatureOf(std::int32_t) { return "i"; }
    static constexpr const char* signatureOf(std::uint32_t) { return "u"; }
    static constexpr const char* signatureOf(std::int64_t) { return "x"; }
    static constexpr const char* signatureOf(std::uint64_t) { return "t"; }
    static constexpr const char* signatureOf(double) { return "d"; }
    static const char* signatureOf(const QStringList&) { return "as"; }
    static const char* signatureOf(const QByteArray&) { return "ay"; }
    static const char* signatureOf(const QString&) { return "s"; }
    static constexpr const char* signatureOf(QStringView) { return "s"; }
    static constexpr const char* signatureOf(const char*) { return "s"; }

    explicit Message(sd_bus_message* message) : m_message(message) {}
    static Message localError(const char* name);
    Message& note(int result, std::size_t bytes);
    Message& appendBasic(char type, const void* value, std::size_t bytes);
    Message& open(char type, const char* contents);

    sd_bus_message* m_message = nullptr;
    const char* m_localError = nullptr; ///< static storage
    bool m_isSound = true;
    std::size_t m_bytes = 0; ///< appended so far, without padding
};

/// Reads the arguments of a message in their order, and trusts neither its types nor its sizes: what is of another type
/// than asked for is not read, and the result is false. Values are written only when the result is true.
class Q_DECL_EXPORT MessageReader
{
public:
    /// Starts at the first argument. One reader for a message at a time.
    explicit MessageReader(const Message& message);

    bool read(bool& value);
    bool read(std::uint8_t& value);
    bool read(std::int32_t& value);
    bool read(std::uint32_t& value);
    bool read(std::int64_t& value);
    bool read(std::uint64_t& value);
    bool read(double& value);
    bool read(QString& text);
    bool read(QStringList& texts);
    bool read(QByteArray& bytes);
    /// Of the type "h": a copy, closed on exec(), that the caller closes.
    bool readDescriptor(int& descriptor);
    template <typename First, typename Second, typename... Rest>
    bool read(First& first, Second& second, Rest&... rest)
    {
        return read(first) && read(second, rest...);
    }

    bool enterArray(const char* contents);
    bool enterStruct(const char* contents);
    bool enterVariant(const char* contents);
    /// False at the end of the array, too.
    bool enterEntry(const char* contents);
    /// Leaves the innermost container, read or not.
    bool leave();
    /// Passes over one value of any type.
    bool skip();
    bool atEnd() const; ///< of the innermost container, or of the message

private:
    bool readBasic(char type, void* value);
    bool enter(char type, const char* contents);

    Message m_message;
};

/// A registration that ends with this object. It outlives the connection without harm.
class Q_DECL_EXPORT Registration
{
public:
    Registration() = default;
    explicit Registration(std::shared_ptr<void> state) : m_state(std::move(state)) {}

    void end() { m_state.reset(); }

private:
    std::shared_ptr<void> m_state;
};

/// Which signals are wanted. Empty fields match everything.
struct SignalMatch
{
    /// A unique name, org.freedesktop.DBus, or a well-known name: then the signal must come from its current owner.
    QByteArray sender = {};
    QByteArray path = {};
    QByteArray interface = {};
    QByteArray member = {};
    QByteArray firstArgument = {};
    /// Only what is sent to this connection alone: the bus need not be asked for it.
    bool isDirected = false;
};

struct CallOptions
{
    /// After this time without a reply a call ends with NoReply, in milliseconds.
    int limit = 5000;
    /// Gets a reply that comes after that; not an error.
    std::function<void(const Message&)> late = {};
    /// And up to this time, in milliseconds from the call.
    int lateLimit = 600000;
};

enum class NameResult {
    Owned, ///< now or before
    Taken, ///< by another connection
    Failed ///< the bus did not say
};

struct Credentials
{
    std::optional<std::uint32_t> userId;
    std::optional<std::uint32_t> processId;
    /// Names the process for good, while a number may come to be another's. Null where the bus does not offer it;
    /// closed with its last copy.
    std::shared_ptr<const int> processDescriptor;
    QByteArray securityLabel; ///< what the security module calls the process; empty without one
};

/// A connection to the session bus.
///
/// Once opened it stays so until close(): when the bus goes, or does not come, it tries again after a second at first
/// and half a minute at last. The environment is read anew for each attempt, unless zepaSetSessionBusAddress() said
/// where the bus is. Replies and signals are delivered only when they come from whom was asked: a unique name, the
/// owner of a well-known name, or the bus.
class Q_DECL_EXPORT Connection : public QObject
{
    Q_OBJECT

public:
    enum class State {
        Closed,  ///< not opened, or the last attempt failed and another follows
        Opening, ///< the first attempt, or the first after the bus went: not known yet
        Open     ///< the bus has answered the introduction
    };

    /// An address may keep silent for this time divided by the number of addresses, in milliseconds.
    static constexpr int openingLimit = 5000;
    /// Calls of others than the bus that canCall() lets be under way. Fewer for a while when the bus has refused one
    /// for its limits: as many as it took, and every second one more.
    static constexpr int callLimit = 50;
    /// And those that call() accepts: room for calls that no queue of their caller's can hold.
    static constexpr int hardCallLimit = 64;
    /// What may wait for the socket, in bytes; one message may exceed it.
    static constexpr std::size_t byteLimit = 16777216;

    explicit Connection(QObject* parent = nullptr);
    ~Connection() override;
    Q_DISABLE_COPY_MOVE(Connection)

    /// The one that the process shares; ends with the application object. Null when there is no such object or it is
    /// ending. It is not opened yet.
    static Connection* shared();

    /// Connects, and again when it is lost. While another attempt is waited for, and the last one is a second old, it
    /// is made now.
    void open();
    /// Ends every call with Disconnected. Takes no time; what has not reached the socket is lost.
    void close();
    State state() const;
    bool isOpen() const { return state() == State::Open; }
    QByteArray uniqueName() const; ///< empty unless it is open

    // Messages to build. Null unless it is open.
    Message newCall(const char* destination, const char* path, const char* interface, const char* member);
    Message newSignal(const char* path, const char* interface, const char* member, const char* destination = nullptr);
    /// Null also when the caller wants no reply.
    Message newReply(const Message& call);
    /// `name` must be a valid error name.
    Message newError(const Message& call, const char* name, const QString& text);

    /// Whether there is room for another call: not as many as callLimit allows are under way, and the socket's queue is
    /// short. A call counts until its reply has come: a call that ended by its limit is still on somebody's list.
    bool canCall() const;
    int callsUnderWay() const;

    /// `reply` gets the reply or an error, exactly once, unless `context` was destroyed before. A message that is null,
    /// unsound or beyond hardCallLimit gets its error without being sent. Calls of the bus itself are not counted.
    void call(const Message& message, const QObject* context, std::function<void(const Message&)> reply,
              CallOptions options = {});
    /// Sends without wanting a reply. False when the message was dropped: null, unsound, or the queue is full.
    bool send(const Message& message);

    /// Calls `handler` for each such signal. `failed`, if any, gets the error's name when the bus refuses the match; it
    /// is asked again later, and anew on each connection.
    Registration subscribe(const SignalMatch& match, std::function<void(const Message&)> handler,
                           std::function<void(const QString&)> failed = {});

    /// `handler` gets every method call to `path`, whatever its interface, but those of Peer, Introspectable and
    /// Properties; it or someone later sends one reply or error for each. `introspection` is what the object has to say
    /// of itself: <interface> elements. Objects stay over connections.
    Registration exportObject(const QByteArray& path, const QByteArray& introspection,
                              std::function<void(const Message&)> handler);

    void requestName(const QByteArray& name, const QObject* context, std::function<void(NameResult)> result);
    void releaseName(const QByteArray& name);
    /// Who a connection is; nothing when the bus does not say within `limit` milliseconds.
    void credentials(const QByteArray& uniqueName, const QObject* context,
                     std::function<void(const std::optional<Credentials>&)> result, int limit = 5000);

Q_SIGNALS:
    /// Matches have been asked for already: what is sent now comes after them.
    void opened();
    /// Open no longer, or the first attempt failed. The calls have been ended already.
    void closed();
    /// canCall() is true again.
    void roomForCalls();

private:
    friend class ServiceWatcher;

    const std::shared_ptr<ConnectionCore> m_core;
};

/// Follows who owns a name, and whether the bus can start an owner.
class Q_DECL_EXPORT ServiceWatcher : public QObject
{
    Q_OBJECT

public:
    /// `name` is well-known or unique. `connection` may end before.
    ServiceWatcher(Connection& connection, const QByteArray& name, QObject* parent = nullptr);
    ~ServiceWatcher() override;
    Q_DISABLE_COPY_MOVE(ServiceWatcher)

    /// Whether the bus has said who owns it. An error counts as "nobody"; it is asked again later.
    bool isKnown() const;
    QByteArray owner() const; ///< a unique name; empty for none and while it is not known
    /// Whether the bus can start an owner; nothing while it has not said. Asked for from the first call on.
    std::optional<bool> isActivatable();

Q_SIGNALS:
    /// Also with the new owner empty, and when the bus went.
    void ownerChanged(const QByteArray& oldOwner, const QByteArray& newOwner);
    /// isKnown() or isActivatable() may have another result.
    void changed();

private:
    struct State;
    const std::unique_ptr<State> m_state;
};

} // namespace zepa::bus
