// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QSharedData>
#include <QString>
#include <QStringList>

#include <optional>

/// What a ZepaField with a type consists of.
class ZepaFieldData : public QSharedData
{
public:
    ZepaFieldData(int theType, const QString& theLabel, const QString& theId, const QString& theDescription)
        : type(theType), id(theId), label(theLabel), description(theDescription)
    {}

    int type;
    QString id;
    QString label;
    QString description;
    /// The value of a text or sound field and the selected identifier of a combo box.
    QString text;
    bool checked = false;
    int number = 0;
    int upper = 0;
    int lower = 0;
    QString suffix;
    QStringList itemIds;
    QStringList itemLabels;
    /// A stored value that does not fit the field; written in place of the field's own until a setter changes that.
    std::optional<QString> unfit;
};
