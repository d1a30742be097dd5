// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QDBusMessage>
#include <QString>
#include <QStringList>

#include <optional>

/// Calls from outside, taken apart: nothing of them is used before it was looked at.
namespace zepa::instance {

/// Why a call is not obeyed, as it is told to the caller.
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
std::optional<Refusal> read(const QDBusMessage& message, RunRequest& request);
std::optional<Refusal> readCancel(const QDBusMessage& message, unsigned int& job);
std::optional<Refusal> readActivate(const QDBusMessage& message, QString& token);

} // namespace zepa::instance
