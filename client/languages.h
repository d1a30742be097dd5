// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

class QCoreApplication;

namespace zepa {

/// The languages in which the user wants to read, best first, as the environment says: LANGUAGE, a list, where the
/// locale for messages (the first of LC_ALL, LC_MESSAGES and LANG that is not empty) is not "C". Each is followed by
/// what is more general than it: "de_AT", "de". Empty where the texts are to stay as they are written, in English; a
/// list ends before the first language that is English.
QStringList messageLanguages();

/// Lets the application speak the first of those languages that there are translations for: its own texts, those of
/// the library, and Qt's. To be called before anything is translated: the module keeps the texts of its types from
/// the time when they are registered.
void installTranslations(QCoreApplication& application);

} // namespace zepa
