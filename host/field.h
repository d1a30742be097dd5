// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/host_export.h"

#include <QList>
#include <QSharedDataPointer>
#include <QString>
#include <QStringList>

class ZepaFieldData;
class ZepaXmlNode;

/// One setting of a rule or of the client: an identifier, a type, a value, and what a dialog needs to show it.
///
/// A value type: copies are independent and cheap. The five factories make the five types; a default-constructed
/// field has type 0 and stands for "no field". An accessor that does not fit the field's type gives a null string, 0,
/// false or an empty list; a setter that does not fit changes nothing.
class ZEPA_HOST_EXPORT ZepaField
{
public:
    /// Type codes as getType() returns them; 0 is fixed, the others are the client's own.
    enum Type : int { NoType = 0, CheckBox = 1, ComboBox = 2, SpinBox = 3, SoundEdit = 4, TextEdit = 5 };

    ZepaField();
    ZepaField(const ZepaField& other);
    ZepaField(ZepaField&& other) noexcept;
    ZepaField& operator=(const ZepaField& other);
    ZepaField& operator=(ZepaField&& other) noexcept;
    ~ZepaField();

    /// On or off. `text` is a longer explanation; `options` are free for the client, empty in all built-in fields.
    static ZepaField checkBox(const QString& label, const QString& id, bool checked, const QString& text,
                              const QStringList& options);
    /// One of several items; the n-th label goes with the n-th identifier.
    static ZepaField comboBox(const QString& label, const QString& id, const QStringList& itemIds,
                              const QStringList& itemLabels, const QString& selectedId, const QString& text);
    /// A number from `lower` to `upper`, at first `initial`. Mind the order: the upper bound comes first.
    /// `text` is a longer explanation, `suffix` a unit shown behind the number.
    static ZepaField spinBox(const QString& label, const QString& id, int upper, int lower, int initial,
                             const QString& text, const QString& suffix);
    /// A sound file, absolute or relative to the sound theme; it is the field's text. `text` is a longer explanation.
    static ZepaField soundEdit(const QString& label, const QString& id, const QString& file, const QString& text);

    /// One line of any text. `text` is a longer explanation. The library itself makes none of these; it is here for
    /// delivery methods from outside.
    static ZepaField textEdit(const QString& label, const QString& id, const QString& value, const QString& text);

    QString getId() const;
    /// 0 for a default-constructed field, never 0 for a field from a factory.
    int getType() const;
    QString getLabel() const;
    /// The longer explanation given to the factory.
    QString getDescription() const;

    /// The text value: the line of a text field, the file of a sound field, the selected identifier of a combo box, the
    /// number of a spin box in decimal, "true" or "false" of a check box, null of a field without type. Never the
    /// explanation.
    QString getText() const;
    void setText(const QString& text);
    bool isChecked() const;
    void setChecked(bool checked);
    int getIntValue() const;
    /// A number beyond the bounds becomes the nearest bound.
    void setIntValue(int value);
    int getUpperBound() const;
    int getLowerBound() const;
    QString getSuffix() const;
    QString getSelectedId() const;
    /// An identifier that is not among the items changes nothing.
    void setSelectedId(const QString& id);
    QStringList getItemIds() const;
    QStringList getItemLabels() const;

    /// One node that holds the values of all `fields`; its inner layout is the client's own. Any text survives,
    /// control characters and unpaired surrogates included. A value that fromXml() found and could not use is written
    /// as it was, until a setter changes the field.
    static ZepaXmlNode toXml(const QList<ZepaField>& fields);
    /// The fields of `fieldTemplate`, in its order, with the values that `node` holds for their identifiers. A field
    /// that is missing from the node, or whose value there does not fit, keeps the template's value.
    static QList<ZepaField> fromXml(const QList<ZepaField>& fieldTemplate, const ZepaXmlNode& node);

private:
    explicit ZepaField(ZepaFieldData* data);

    QSharedDataPointer<ZepaFieldData> d;
};
