// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QProcessEnvironment>

/// What this process changes in its environment for itself alone, and what the programs that it starts get.
namespace zepa {

/// Sets a variable. Programs that are started find the value that it has had at first, or none.
void setOwnVariable(const char* name, const QByteArray& value);
bool isOwnVariable(const char* name);

/// The environment for a program that is started: this process's, but for what setOwnVariable() changed.
QProcessEnvironment childEnvironment();

} // namespace zepa
