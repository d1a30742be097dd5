// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/field.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QString>

/// Setting fields as the command line shows and takes them.
namespace zepa::cli {

/// The value in JSON's own type: a check box is true or false, a spin box a number, all else a string.
QJsonValue jsonValue(const ZepaField& field);
/// Identifier and value of each field.
QJsonObject jsonValues(const QList<ZepaField>& fields);

/// What a field allows, in words for an error message: "a whole number from 0 to 300".
QString allowedValues(const ZepaField& field);
/// The same for programs, in the words of JSON Schema: {"type": "integer", "minimum": 0, "maximum": 300}.
QJsonObject allowedJson(const ZepaField& field);

/// "sound_file=bell.wav sticky=false", sorted by identifier; "-" for no fields.
QString assignments(QList<ZepaField> fields);

/// Carries an assignment "FIELD=VALUE" out on the one field of `fields` that it names. Empty when that is done, else
/// what is wrong with it and what is allowed.
QString assign(QList<ZepaField>& fields, const QString& assignment);

} // namespace zepa::cli
