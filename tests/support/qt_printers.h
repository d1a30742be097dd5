// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>
#include <QStringList>

#include <ostream>

using namespace Qt::StringLiterals;

// Found by GoogleTest when it prints what a failed test compared.

inline void PrintTo(const QString& text, std::ostream* out)
{
    if (text.isNull())
        *out << "(null)";
    else
        *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* out)
{
    *out << "[\"" << texts.join(u"\", \""_s).toStdString() << "\"]";
}
