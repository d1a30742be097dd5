// SPDX-License-Identifier: Apache-2.0
#include "bus/bus_address.h"

#include <QStringList>

#include <sys/un.h>

#include <optional>

namespace zepa::bus {

namespace {

const QString& runTimeSocket()
{
    static const QString address = QStringLiteral("unix:runtime=yes");
    return address;
}

/// The bytes of an address's value, in which %XX stands for a byte.
std::optional<QByteArray> unescaped(QStringView value)
{
    const QByteArray text = value.toUtf8();
    QByteArray bytes;
    constexpr int hexadecimal = 16;
    constexpr qsizetype digits = 2;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            bytes += text[i];
            continue;
        }
        bool isByte = false;
        const uint byte = text.mid(i + 1, digits).toUInt(&isByte, hexadecimal);
        if (!isByte || i + digits >= text.size())
            return std::nullopt;
        bytes += static_cast<char>(byte);
        i += digits;
    }
    return bytes;
}

std::optional<BusAddress> socketInRunTimeFolder()
{
    const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
    if (folder.isEmpty())
        return std::nullopt;
    const QByteArray socket = folder + "/bus";
    return BusAddress{QStringLiteral("unix:path=") + QString::fromLatin1(socket.toPercentEncoding("/")), socket};
}

std::optional<BusAddress> localAddress(const QString& address)
{
    const qsizetype colon = address.indexOf(u':');
    const QStringView transport = QStringView(address).left(colon);
    // A bus that is started for the occasion has no notification service: only the one that is there already counts.
    if (transport == QStringLiteral("autolaunch"))
        return socketInRunTimeFolder();
    if (colon < 0 || transport != QStringLiteral("unix"))
        return std::nullopt;
    const QList<QStringView> pairs = QStringView(address).mid(colon + 1).split(u',');
    for (const QStringView pair : pairs) {
        const qsizetype equals = pair.indexOf(u'=');
        const QStringView key = pair.left(equals);
        const auto value = unescaped(pair.mid(equals + 1));
        if (equals < 0 || !value || value->isEmpty())
            continue;
        if (key == QStringLiteral("path"))
            return BusAddress{address, *value};
        if (key == QStringLiteral("abstract"))
            return BusAddress{address, '\0' + *value};
        if (key == QStringLiteral("runtime") && *value == "yes")
            return socketInRunTimeFolder();
    }
    return std::nullopt;
}

} // namespace

QList<BusAddress> localAddresses(const QString& addresses)
{
    constexpr qsizetype longestName = sizeof(sockaddr_un::sun_path) - 1;
    QList<BusAddress> result;
    const QStringList entries = addresses.split(u';', Qt::SkipEmptyParts);
    for (const QString& entry : entries) {
        const auto address = localAddress(entry);
        if (address && address->socketName.size() <= longestName)
            result.append(*address);
    }
    return result;
}

QList<BusAddress> sessionBusAddresses()
{
    const QString told = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    return localAddresses(told.isEmpty() ? runTimeSocket() : told);
}

} // namespace zepa::bus
