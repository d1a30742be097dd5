// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace zepa {

/// Takes a command, written on one line, apart into a program and its arguments. No shell has a part in it.
///
/// Words are separated by blanks. Within '...' every character stands for itself. Within "..." and outside of quotes a
/// backslash makes the next character stand for itself; "" is an empty word. Nothing else is special: no $, no *, no ;.
/// Null when a quote is not closed or a backslash is the last character.
std::optional<QStringList> splitWords(const QString& command);

/// The word with each placeholder, a % with the letter behind it, replaced by the text of that letter; "%%" becomes
/// "%". A letter without a text stays as it stands, with its %. Texts are put in as they are and not looked at again.
QString filledIn(const QString& word, const QHash<QChar, QString>& texts);

} // namespace zepa
