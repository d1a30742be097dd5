// SPDX-License-Identifier: Apache-2.0
#include "client/instance/call_arguments.h"

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

Refusal wrongSignature(const bus::Message& call, const QString& wanted, const QString& names)
{
    return {QStringLiteral("WrongSignature"),
            QStringLiteral("%1 takes \"%2\" (%3), not \"%4\"").arg(call.member(), wanted, names, call.signature())};
}

} // namespace

std::optional<Refusal> readRun(const bus::Message& call, RunRequest& request)
{
    const QString signature = QStringLiteral("assay");
    if (call.signature() != signature ||
        !bus::MessageReader(call).read(request.arguments, request.folder, request.input))
        return wrongSignature(call, signature, QStringLiteral("arguments, folder, input"));

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

std::optional<Refusal> readCancel(const bus::Message& call, unsigned int& job)
{
    const QString signature = QStringLiteral("u");
    if (call.signature() != signature || !bus::MessageReader(call).read(job))
        return wrongSignature(call, signature, QStringLiteral("job"));
    return std::nullopt;
}

std::optional<Refusal> readActivate(const bus::Message& call, QString& token)
{
    const QString signature = QStringLiteral("s");
    if (call.signature() != signature || !bus::MessageReader(call).read(token))
        return wrongSignature(call, signature, QStringLiteral("token"));
    const bool isPrintable =
        std::all_of(token.cbegin(), token.cend(), [](QChar c) { return c.unicode() > 0x1f && c.unicode() < 0x7f; });
    if (!isPrintable || token.size() > longestToken)
        return wrongArgument(
            QStringLiteral("the token is not printable ASCII of at most %1 characters").arg(longestToken));
    return std::nullopt;
}

} // namespace zepa::instance
