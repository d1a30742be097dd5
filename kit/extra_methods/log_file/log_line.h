// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QByteArray>
#include <QStringList>

namespace zepa {

/// One line of a log, with its line feed, in UTF-8: the columns with a tab between.
///
/// A column may be any text from outside. Backslash, tab and line feed stand as `\\`, `\t` and `\n`; other control
/// characters, line separators, marks that turn the direction of text and unpaired surrogates as `\u` with four
/// hexadecimal digits. So one event is one line, and a terminal that shows the file obeys nobody in it.
QByteArray logLine(const QStringList& columns);

} // namespace zepa
