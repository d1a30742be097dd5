// SPDX-License-Identifier: Apache-2.0
#include "client/instance/call_arguments.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::instance {

namespace {

constexpr qsizetype mostArguments = 256;
constexpr qsizetype mostArgumentBytes = 131072;
constexpr qsizetype longestFolder = 4096;
constexpr qsizetype longestInput = 16777216;
constexpr qsizetype longestToken = 1024;

Refusal wrongArgument(const QString& text)
{
    return {u"WrongArgument"_s, text};
}

Refusal wrongSignature(const bus::Message& call, const QString& wanted, const QString& names)
{
    return {u"WrongSignature"_s,
            u"%1 takes \"%2\" (%3), not \"%4\""_s.arg(call.member(), wanted, names, call.signature())};
}

} // namespace

std::optional<Refusal> readRun(const bus::Message& call, RunRequest& request)
{
    const QString signature = u"assay"_s;
    if (call.signature() != signature ||
        !bus::MessageReader(call).read(request.arguments, request.folder, request.input))
        return wrongSignature(call, signature, u"arguments, folder, input"_s);

    if (request.arguments.isEmpty() || request.arguments.size() > mostArguments)
        return wrongArgument(u"expected 1 to %2 arguments, got %1"_s.arg(request.arguments.size()).arg(mostArguments));
    qsizetype bytes = 0;
    for (const QString& argument : std::as_const(request.arguments))
        bytes += argument.toUtf8().size();
    if (bytes > mostArgumentBytes)
        return wrongArgument(u"the arguments have %1 bytes (limit %2)"_s.arg(bytes).arg(mostArgumentBytes));
    if (!request.folder.startsWith(u'/') || request.folder.toUtf8().size() > longestFolder)
        return wrongArgument(u"the folder is not an absolute path of at most %1 bytes"_s.arg(longestFolder));
    if (request.input.size() > longestInput)
        return wrongArgument(u"the input has %1 bytes (limit %2)"_s.arg(request.input.size()).arg(longestInput));
    return std::nullopt;
}

std::optional<Refusal> readCancel(const bus::Message& call, unsigned int& job)
{
    const QString signature = u"u"_s;
    if (call.signature() != signature || !bus::MessageReader(call).read(job))
        return wrongSignature(call, signature, u"job"_s);
    return std::nullopt;
}

std::optional<Refusal> readActivate(const bus::Message& call, QString& token)
{
    const QString signature = u"s"_s;
    if (call.signature() != signature || !bus::MessageReader(call).read(token))
        return wrongSignature(call, signature, u"token"_s);
    const bool isPrintable =
        std::all_of(token.cbegin(), token.cend(), [](QChar c) { return c.unicode() > 0x1f && c.unicode() < 0x7f; });
    if (!isPrintable || token.size() > longestToken)
        return wrongArgument(u"the token is not printable ASCII of at most %1 characters"_s.arg(longestToken));
    return std::nullopt;
}

} // namespace zepa::instance
