// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QExplicitlySharedDataPointer>
#include <QList>
#include <QMap>
#include <QSharedData>
#include <QString>

/// One element of a tree of ZepaXmlNode. Its children live as long as it does.
class ZepaXmlNodeData : public QSharedData
{
public:
    using Pointer = QExplicitlySharedDataPointer<ZepaXmlNodeData>;

    ZepaXmlNodeData() = default;
    ~ZepaXmlNodeData();
    Q_DISABLE_COPY_MOVE(ZepaXmlNodeData)

    void append(const Pointer& child);
    /// Gives all children up without recursion, however deep the tree is.
    void releaseChildren();
    /// Whether `other` is this element or stands somewhere below it.
    bool holds(const ZepaXmlNodeData* other) const;

    QString name;
    QString text;
    QMap<QString, QString> attributes;
    QList<Pointer> children;
    /// In how many lists of children this element stands.
    qsizetype parents = 0;
};
