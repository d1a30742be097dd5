// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification.h"
#include "core/notification_method.h"

#include <functional>

using namespace Qt::StringLiterals;

/// One call of ProbeMethod::postNotification.
struct ProbeCall
{
    unsigned int sequence;
    ZepaNotification* notification;
    QString title;
    QString text;
    QString icon;
    QString extra;
    QList<ZepaField> config;
    bool actionIsValid;
    int argCount;
};

/// A delivery method that writes down what it is told, and does what the test wants while it is called.
class ProbeMethod : public ZepaNotificationMethod
{
public:
    explicit ProbeMethod(const QString& identifier = u"probe"_s) : id(identifier) {}

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override
    {
        calls.append({sequence, notification, title, text, icon, extra, config, action.isValid(),
                      static_cast<int>(args.size())});
        if (whenCalled)
            whenCalled();
    }
    QString getId() const override { return id; }
    QString getActionName() const override { return id; }
    QString getActionIcon() const override { return {}; }
    void registerNotification(ZepaNotification* notification) override { registered.append(notification->getId()); }
    void registerNotifications(const QList<ZepaNotification*>& notifications) override
    {
        QStringList ids;
        for (const ZepaNotification* notification : notifications)
            ids.append(notification->getId());
        ids.sort();
        lists.append(ids);
    }

    /// A check box, off; its text value is "false".
    static ZepaField box(const QString& id, bool checked = false)
    {
        return ZepaField::checkBox(QString(), id, checked, QString(), {});
    }
    /// A sound field, whose text is its value.
    static ZepaField text(const QString& id, const QString& value)
    {
        return ZepaField::soundEdit(QString(), id, value, QString());
    }

    QString id;
    QList<ProbeCall> calls;
    QStringList registered;
    QList<QStringList> lists;
    std::function<void()> whenCalled;
};

/// The value of the field with that identifier; null when there is none.
inline QString textOf(const QList<ZepaField>& config, const QString& id)
{
    for (const ZepaField& field : config) {
        if (field.getId() == id)
            return field.getText();
    }
    return {};
}
