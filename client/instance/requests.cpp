// SPDX-License-Identifier: Apache-2.0
#include "client/instance/requests.h"

#include <algorithm>

namespace zepa::instance {

namespace {

constexpr qsizetype mostArguments = 256;
constexpr qsizetype mostArgumentBytes = 131072;
constexpr qsizetype longestFolder = 4096;
constexpr qsizetype longestInput = 16777216;
constexpr qsizetype longestToken = 1024;

Refusal wrongArgument(const QString& text)
{
    return {QStringLiteral("WrongArgument"), text};
}

std::optional<Refusal> checkSignature(const QDBusMessage& message, const QString& wanted, const QString& names)
{
    if (message.signature() == wanted)
        return std::nullopt;
    return Refusal{
        QStringLiteral("WrongSignature"),
        QStringLiteral("%1 takes \"%2\" (%3), not \"%4\"").arg(message.member(), wanted, names, message.signature())};
}

} // namespace

std::optional<Refusal> read(const QDBusMessage& message, RunRequest& request)
{
    if (auto wrong = checkSignature(message, QStringLiteral("assay"), QStringLiteral("arguments, folder, input")))
        return wrong;
    request.arguments = message.arguments().at(0).toStringList();
    request.folder = message.arguments().at(1).toString();
    request.input = message.arguments().at(2).toByteArray();

    if (request.arguments.isEmpty() || request.arguments.size() > mostArguments)
        return wrongArgument(QStringLiteral("there are %1 arguments; allowed are 1 to %2")
                                 .arg(request.arguments.size())
                                 .arg(mostArguments));
    qsizetype bytes = 0;
    for (const QString& argument : std::as_const(request.arguments))
        bytes += argument.toUtf8().size();
    if (bytes > mostArgumentBytes)
        return wrongArgument(
            QStringLiteral("the arguments have %1 bytes; allowed are %2").arg(bytes).arg(mostArgumentBytes));
    if (!request.folder.startsWith(u'/') || request.folder.toUtf8().size() > longestFolder)
        return wrongArgument(QStringLiteral("the folder is no absolute path of at most %1 bytes").arg(longestFolder));
    if (request.input.size() > longestInput)
        return wrongArgument(
            QStringLiteral("the input has %1 bytes; allowed are %2").arg(request.input.size()).arg(longestInput));
    return std::nullopt;
}

std::optional<Refusal> readCancel(const QDBusMessage& message, unsigned int& job)
{
    if (auto wrong = checkSignature(message, QStringLiteral("u"), QStringLiteral("job")))
        return wrong;
    job = message.arguments().at(0).toUInt();
    return std::nullopt;
}

std::optional<Refusal> readActivate(const QDBusMessage& message, QString& token)
{
    if (auto wrong = checkSignature(message, QStringLiteral("s"), QStringLiteral("token")))
        return wrong;
    token = message.arguments().at(0).toString();
    const bool isPrintable =
        std::all_of(token.cbegin(), token.cend(), [](QChar c) { return c.unicode() > 0x1f && c.unicode() < 0x7f; });
    if (!isPrintable || token.size() > longestToken)
        return wrongArgument(
            QStringLiteral("the token is not printable ASCII of at most %1 characters").arg(longestToken));
    return std::nullopt;
}

} // namespace zepa::instance
