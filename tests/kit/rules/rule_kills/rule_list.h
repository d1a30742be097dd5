// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

class ZepaNotificationModule;

/// The rules of a type as values, newest first.
struct RuleValue
{
    QString method;
    QMap<QString, QString> fields;

    /// "method{field=value}"
    QString text() const;
};

using RuleList = QList<RuleValue>;

RuleList rulesOf(const ZepaNotificationModule& module, const QString& type);
/// A text for each rule, sorted: the order of rules is another one after each start.
QStringList textsOf(const RuleList& rules);
/// How many of `wanted` are not in `found`, where two equal ones count twice.
int missingFrom(QStringList found, const QStringList& wanted);
