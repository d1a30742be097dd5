// SPDX-License-Identifier: Apache-2.0
#include <zepa_platform/bus.h>

#include <fcntl.h>
#include <systemd/sd-bus.h>

namespace zepa::bus {

MessageReader::MessageReader(const Message& message) : m_message(message)
{
    // A message that is being built cannot be read, and says so at each read.
    if (m_message.m_message != nullptr)
        sd_bus_message_rewind(m_message.m_message, 1);
}

bool MessageReader::readBasic(char type, void* value)
{
    return m_message.m_message != nullptr && sd_bus_message_read_basic(m_message.m_message, type, value) > 0;
}

bool MessageReader::read(bool& value)
{
    int number = 0;
    if (!readBasic('b', &number))
        return false;
    value = number != 0;
    return true;
}

bool MessageReader::read(std::uint8_t& value)
{
    return readBasic('y', &value);
}

bool MessageReader::read(std::int32_t& value)
{
    return readBasic('i', &value);
}

bool MessageReader::read(std::uint32_t& value)
{
    return readBasic('u', &value);
}

bool MessageReader::read(std::int64_t& value)
{
    return readBasic('x', &value);
}

bool MessageReader::read(std::uint64_t& value)
{
    return readBasic('t', &value);
}

bool MessageReader::read(double& value)
{
    return readBasic('d', &value);
}

bool MessageReader::read(QString& text)
{
    const char* bytes = nullptr;
    if (!readBasic('s', &bytes))
        return false;
    text = QString::fromUtf8(bytes);
    return true;
}

bool MessageReader::read(QStringList& texts)
{
    if (!enterArray("s"))
        return false;
    QStringList all;
    for (QString text; read(text);)
        all.append(text);
    const bool isWhole = atEnd();
    leave();
    if (isWhole)
        texts = all;
    return isWhole;
}

bool MessageReader::read(QByteArray& bytes)
{
    const void* data = nullptr;
    std::size_t size = 0;
    if (m_message.m_message == nullptr || sd_bus_message_read_array(m_message.m_message, 'y', &data, &size) <= 0)
        return false;
    bytes = QByteArray(static_cast<const char*>(data), static_cast<qsizetype>(size));
    return true;
}

bool MessageReader::readDescriptor(int& descriptor)
{
    int open = -1;
    if (!readBasic('h', &open))
        return false;
    const int copy = ::fcntl(open, F_DUPFD_CLOEXEC, 0);
    if (copy < 0)
        return false;
    descriptor = copy;
    return true;
}

bool MessageReader::enter(char type, const char* contents)
{
    return m_message.m_message != nullptr && sd_bus_message_enter_container(m_message.m_message, type, contents) > 0;
}

bool MessageReader::enterArray(const char* contents)
{
    return enter('a', contents);
}

bool MessageReader::enterStruct(const char* contents)
{
    return enter('r', contents);
}

bool MessageReader::enterVariant(const char* contents)
{
    return enter('v', contents);
}

bool MessageReader::enterEntry(const char* contents)
{
    return enter('e', contents);
}

bool MessageReader::leave()
{
    // sd-bus leaves a container only at its end.
    while (!atEnd()) {
        if (!skip())
            return false;
    }
    return m_message.m_message != nullptr && sd_bus_message_exit_container(m_message.m_message) >= 0;
}

bool MessageReader::skip()
{
    char type = 0;
    const char* contents = nullptr;
    // Without a signature sd-bus passes over one value of whatever type comes.
    return m_message.m_message != nullptr && sd_bus_message_peek_type(m_message.m_message, &type, &contents) > 0 &&
           sd_bus_message_skip(m_message.m_message, nullptr) >= 0;
}

bool MessageReader::atEnd() const
{
    return m_message.m_message == nullptr || sd_bus_message_at_end(m_message.m_message, 0) != 0;
}

} // namespace zepa::bus
