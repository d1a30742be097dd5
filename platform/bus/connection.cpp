// SPDX-License-Identifier: Apache-2.0
#include "bus/connection_core.h"

#include <QCoreApplication>
#include <QThread>

#include <unistd.h>

#include <utility>

namespace zepa::bus {

namespace {

/// Not destroyed by what runs at the very end of a process: exit() may be called in the middle of anything.
Connection* sharedConnection = nullptr;

void endSharedConnection()
{
    delete std::exchange(sharedConnection, nullptr);
}

std::shared_ptr<const int> shareDescriptor(int descriptor)
{
    return {new int(descriptor), [](const int* open) {
                ::close(*open);
                delete open;
            }};
}

/// Reads the value of one entry where it is known and of its type.
void readCredential(MessageReader& reader, const QString& key, Credentials& result)
{
    const auto isValueOf = [&](const char* name, const char* type) {
        return key == QLatin1StringView(name) && reader.enterVariant(type);
    };
    std::uint32_t number = 0;
    int descriptor = -1;
    if (isValueOf("UnixUserID", "u")) {
        if (reader.read(number))
            result.userId = number;
    } else if (isValueOf("ProcessID", "u")) {
        if (reader.read(number))
            result.processId = number;
    } else if (isValueOf("LinuxSecurityLabel", "ay")) {
        reader.read(result.securityLabel);
    } else if (isValueOf("ProcessFD", "h")) {
        if (reader.readDescriptor(descriptor))
            result.processDescriptor = shareDescriptor(descriptor);
    } else {
        return;
    }
    reader.leave();
}

std::optional<Credentials> credentialsIn(const Message& reply)
{
    MessageReader reader(reply);
    if (reply.isError() || !reader.enterArray("{sv}"))
        return std::nullopt;
    Credentials result;
    for (QString key; reader.enterEntry("sv") && reader.read(key); reader.leave())
        readCredential(reader, key, result);
    return result;
}

} // namespace

Connection::Connection(QObject* parent) : QObject(parent), m_core(std::make_shared<ConnectionCore>(*this))
{}

Connection::~Connection()
{
    m_core->detach();
}

Connection* Connection::shared()
{
    const QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || QCoreApplication::closingDown())
        return nullptr;
    Q_ASSERT(QThread::currentThread() == application->thread());
    if (sharedConnection == nullptr) {
        sharedConnection = new Connection;
        qAddPostRoutine(endSharedConnection);
    }
    return sharedConnection;
}

void Connection::open()
{
    m_core->open();
}

void Connection::close()
{
    m_core->close();
}

Connection::State Connection::state() const
{
    return m_core->state();
}

QByteArray Connection::uniqueName() const
{
    return m_core->uniqueName();
}

Message Connection::newCall(const char* destination, const char* path, const char* interface, const char* member)
{
    return m_core->newCall(destination, path, interface, member);
}

Message Connection::newSignal(const char* path, const char* interface, const char* member, const char* destination)
{
    return m_core->newSignal(path, interface, member, destination);
}

Message Connection::newReply(const Message& call)
{
    return m_core->newReply(call);
}

Message Connection::newError(const Message& call, const char* name, const QString& text)
{
    return m_core->newError(call, name, text);
}

bool Connection::canCall() const
{
    return m_core->canCall();
}

int Connection::callsUnderWay() const
{
    return m_core->calls().underWay();
}

void Connection::call(const Message& message, const QObject* context, std::function<void(const Message&)> reply,
                      CallOptions options)
{
    m_core->call(message, context, std::move(reply), std::move(options));
}

bool Connection::send(const Message& message)
{
    return m_core->send(message);
}

Registration Connection::subscribe(const SignalMatch& match, std::function<void(const Message&)> handler,
                                   std::function<void(const QString&)> failed)
{
    return Registration(m_core->signalTable().add(match, std::move(handler), std::move(failed)));
}

Registration Connection::exportObject(const QByteArray& path, const QByteArray& introspection,
                                      std::function<void(const Message&)> handler)
{
    return Registration(m_core->objects().add(path, introspection, std::move(handler)));
}

void Connection::requestName(const QByteArray& name, const QObject* context, std::function<void(NameResult)> result)
{
    constexpr std::uint32_t doNotQueue = 4;
    Message question = m_core->busCall("RequestName");
    question.append(name.constData()).append(doNotQueue);
    call(question, context, [result = std::move(result)](const Message& reply) {
        std::uint32_t code = 0;
        if (reply.isError() || !MessageReader(reply).read(code))
            return result(NameResult::Failed);
        constexpr std::uint32_t isOwner = 1;
        constexpr std::uint32_t isTaken = 3;
        constexpr std::uint32_t wasOwner = 4;
        if (code == isOwner || code == wasOwner)
            return result(NameResult::Owned);
        result(code == isTaken ? NameResult::Taken : NameResult::Failed);
    });
}

void Connection::releaseName(const QByteArray& name)
{
    send(m_core->busCall("ReleaseName").append(name.constData()));
}

void Connection::credentials(const QByteArray& uniqueName, const QObject* context,
                             std::function<void(const std::optional<Credentials>&)> result, int limit)
{
    Message question = m_core->busCall("GetConnectionCredentials");
    question.append(uniqueName.constData());
    call(question, context, [result = std::move(result)](const Message& reply) { result(credentialsIn(reply)); },
         {.limit = limit});
}

} // namespace zepa::bus
