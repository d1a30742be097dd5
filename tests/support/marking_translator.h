// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QCoreApplication>
#include <QString>
#include <QTranslator>

/// Marks what it translates with the context and the comment that it was asked with.
class MarkingTranslator : public QTranslator
{
public:
    QString translate(const char* context, const char* source, const char* comment, int /*n*/) const override
    {
        return QString::fromUtf8(source) + QLatin1Char('|') + QString::fromUtf8(context) + QLatin1Char('|') +
               QString::fromUtf8(comment);
    }
    bool isEmpty() const override { return false; }

    /// At work from here to the end of the scope.
    class Installed;
};

class MarkingTranslator::Installed
{
public:
    Installed() { QCoreApplication::installTranslator(&translator); }
    ~Installed() { QCoreApplication::removeTranslator(&translator); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;

private:
    MarkingTranslator translator;
};
