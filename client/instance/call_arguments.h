// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <zepa_platform/bus.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// The arguments of calls from outside: nothing of them is used before it was looked at.
namespace zepa::instance {

/// Why a call is refused, as it is told to the caller.
struct Refusal
{
    /// The last part of the error's name: "WrongArgument".
    QString kind;
    QString text;
};

struct RunRequest
{
    QStringList arguments;
    QString folder;
    QByteArray input;
};

/// Each fills in its result, or says what is wrong with the message.
std::optional<Refusal> readRun(const bus::Message& call, RunRequest& request);
std::optional<Refusal> readCancel(const bus::Message& call, unsigned int& job);
std::optional<Refusal> readActivate(const bus::Message& call, QString& token);

} // namespace zepa::instance
