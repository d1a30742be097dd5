// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_method.h"
#include "core/notification_rule.h"
#include "host/field.h"
#include "host/xml_node.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// What a rule file holds: a root with one element for each rule of the type, newest first, named by the rule's method;
/// the element's first child has the values of the rule's fields.
namespace ZepaRuleDocument {

/// The largest file that the module reads, in bytes: far above any that it writes.
inline constexpr qint64 largestRead = qint64{64} * 1024 * 1024;
/// The largest file of which a copy is made that protects it, in bytes.
inline constexpr qint64 largestProtected = qint64{4} * 1024 * 1024;

/// The folder of the rule files, with a separator at its end like `settingsFolder`. A file is named by its type.
inline QString folder(const QString& settingsFolder)
{
    using namespace Qt::StringLiterals;
    return settingsFolder + u"notifications/"_s;
}

/// The bytes of the file for these rules.
inline QByteArray content(const QList<ZepaNotificationRule*>& rules)
{
    using namespace Qt::StringLiterals;
    ZepaXmlNode root(u"rules"_s, QString(), nullptr);
    for (const ZepaNotificationRule* rule : rules) {
        ZepaXmlNode element = root.addChild(rule->getMethod()->getId(), QString());
        element.appendChild(ZepaField::toXml(rule->getConfig()));
    }
    return root.toByteArray(-1);
}

/// The root of a file with these bytes; a null node when they are no well-formed document. Any name of the root will
/// do.
inline ZepaXmlNode rootOf(const QByteArray& content)
{
    ZepaXmlNode root{QString(), QString(), nullptr};
    root.setContent(content);
    return root;
}

/// The fields of the rule in a child of the root: those of `method` with the values of the file. `element` must have
/// children; one without them is no rule.
inline QList<ZepaField> fieldsIn(const ZepaXmlNode& element, const ZepaNotificationMethod& method)
{
    return ZepaField::fromXml(method.fields, element.getChildNodes().constFirst());
}

} // namespace ZepaRuleDocument
