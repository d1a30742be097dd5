// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QTranslator>

/// Translates nothing, and notes the comments with which the library asks it, in their order.
class ListeningTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* /*source*/, const char* comment, int /*n*/) const override
    {
        // Qt asks for texts of its own, under other contexts.
        if (qstrcmp(context, "translation") == 0)
            heard.append(QString::fromUtf8(comment));
        return {};
    }
    bool isEmpty() const override { return false; }

    mutable QStringList heard;
};
