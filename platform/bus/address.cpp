// SPDX-License-Identifier: Apache-2.0
#include "bus/address.h"

#include <arpa/inet.h>

#include <array>
#include <optional>
#include <utility>

namespace zepa::bus {

namespace {

using Pairs = QList<std::pair<QByteArray, QByteArray>>;

/// The bytes of a value, in which %XX stands for a byte.
std::optional<QByteArray> unescaped(const QByteArray& value)
{
    QByteArray bytes;
    constexpr int hexadecimal = 16;
    constexpr qsizetype digits = 2;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value[i] != '%') {
            bytes += value[i];
            continue;
        }
        bool isByte = false;
        const uint byte = value.mid(i + 1, digits).toUInt(&isByte, hexadecimal);
        if (!isByte || i + digits >= value.size())
            return std::nullopt;
        bytes += static_cast<char>(byte);
        i += digits;
    }
    return bytes;
}

Pairs pairsOf(const QByteArray& text)
{
    Pairs pairs;
    const QList<QByteArray> parts = text.split(',');
    for (const QByteArray& part : parts) {
        const qsizetype equals = part.indexOf('=');
        if (equals > 0)
            pairs.append({part.left(equals), part.mid(equals + 1)});
    }
    return pairs;
}

QByteArray valueOf(const Pairs& pairs, const char* key)
{
    for (const auto& [name, value] : pairs) {
        if (name == key)
            return value;
    }
    return {};
}

QByteArray joined(const QByteArray& transport, const Pairs& pairs)
{
    QByteArray address = transport + ':';
    for (const auto& [name, value] : pairs)
        address += (address.endsWith(':') ? "" : ",") + name + '=' + value;
    return address;
}

QByteArray socketInRunTimeFolder()
{
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    // Not everybody takes a '~' as it is.
    return folder.isEmpty() ? QByteArray() : "unix:path=" + (folder + "/bus").toPercentEncoding("/", "~");
}

/// To ask for the address of a name would be to wait.
bool isNumericHost(const QByteArray& host)
{
    std::array<unsigned char, sizeof(in6_addr)> address = {};
    return inet_pton(AF_INET, host.constData(), address.data()) == 1 ||
           inet_pton(AF_INET6, host.constData(), address.data()) == 1;
}

QByteArray tcpAddress(Pairs pairs)
{
    const bool isSixth = valueOf(pairs, "family") == "ipv6";
    for (auto& pair : pairs) {
        if (pair.first == "host" && pair.second == "localhost")
            pair.second = isSixth ? "::1" : "127.0.0.1";
    }
    const auto host = unescaped(valueOf(pairs, "host"));
    return host && isNumericHost(*host) ? joined("tcp", pairs) : QByteArray();
}

QByteArray singleAddress(const QByteArray& address)
{
    const qsizetype colon = address.indexOf(':');
    const QByteArray transport = address.left(colon);
    // A bus that is started for the occasion has no notification service: only the one that runs already counts.
    if (transport == "autolaunch")
        return socketInRunTimeFolder();
    if (colon < 0 || (transport != "unix" && transport != "tcp" && transport != "unixexec"))
        return {};
    Pairs pairs = pairsOf(address.mid(colon + 1));
    if (transport == "unix" && valueOf(pairs, "runtime") == "yes")
        return socketInRunTimeFolder();
    pairs.removeIf([](const auto& pair) { return pair.first == "guid"; });
    return transport == "tcp" ? tcpAddress(pairs) : joined(transport, pairs);
}

std::optional<QByteArray>& givenAddress()
{
    static std::optional<QByteArray> address;
    return address;
}

} // namespace

QList<QByteArray> splitAddresses(const QByteArray& list)
{
    QList<QByteArray> result;
    const QList<QByteArray> entries = list.split(';');
    for (const QByteArray& entry : entries) {
        const QByteArray address = singleAddress(entry);
        if (!address.isEmpty())
            result.append(address);
    }
    return result;
}

void setConfiguredAddress(const QByteArray& list)
{
    givenAddress() = list;
}

QList<QByteArray> configuredAddresses()
{
    const QByteArray configured = givenAddress().value_or(qgetenv("DBUS_SESSION_BUS_ADDRESS"));
    return splitAddresses(configured.isEmpty() ? QByteArray("unix:runtime=yes") : configured);
}

QByteArray socketNameOf(const QByteArray& address)
{
    if (!address.startsWith("unix:"))
        return {};
    const Pairs pairs = pairsOf(address.mid(address.indexOf(':') + 1));
    const auto path = unescaped(valueOf(pairs, "path"));
    const auto name = unescaped(valueOf(pairs, "abstract"));
    if (!path || !name || path->isEmpty() == name->isEmpty() || path->contains('\0') || name->contains('\0'))
        return {};
    return path->isEmpty() ? '\0' + *name : *path;
}

QList<QByteArray> programOf(const QByteArray& address)
{
    if (!address.startsWith("unixexec:"))
        return {};
    const Pairs pairs = pairsOf(address.mid(address.indexOf(':') + 1));
    const auto path = unescaped(valueOf(pairs, "path"));
    if (!path || path->isEmpty())
        return {};
    QList<QByteArray> program{*path, *path};
    for (const auto& [name, value] : pairs) {
        bool isNumber = false;
        const int index = name.startsWith("argv") ? name.mid(4).toInt(&isNumber) : 0;
        const auto argument = unescaped(value);
        constexpr int most = 256;
        if (!isNumber || index < 0 || index > most)
            continue;
        if (!argument)
            return {};
        while (program.size() < index + 2)
            program.append(QByteArray(""));
        program[index + 1] = *argument;
    }
    return program;
}

} // namespace zepa::bus
