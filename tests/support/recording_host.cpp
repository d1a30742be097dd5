// SPDX-License-Identifier: Apache-2.0
#include "recording_host.h"

#include "host/tray_icon.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

RecordingHost* RecordingHost::current = nullptr;

RecordingHost::RecordingHost()
{
    current = this;
    settingsMgrPrivInstance = this;
    QDir(settings.path()).mkdir(u"notifications"_s);
}

RecordingHost::~RecordingHost()
{
    current = nullptr;
    settingsMgrPrivInstance = nullptr;
}

QString RecordingHost::getSettingsDir() const
{
    return settings.path() + QLatin1Char('/');
}

ZepaField RecordingHost::readGlobalSetting(const ZepaField& field) const
{
    settingsRead.append(field);
    ZepaField answer = field;
    if (field.getId() == u"duplicated_notifications_time"_s)
        answer.setIntValue(repeatLimit);
    else if (field.getId() == u"alerts"_s && !alerts.isNull())
        answer = ZepaField::comboBox(field.getLabel(), field.getId(), field.getItemIds() << alerts,
                                     field.getItemLabels() << alerts, alerts, field.getDescription());
    return answer;
}

ZepaChatWindow* RecordingHost::getChatWindow(const ZepaBuddy& buddy)
{
    windowsAskedFor.append(buddy.getId());
    return windows.value(buddy.getId());
}

QString RecordingHost::ruleFile(const QString& id) const
{
    return getSettingsDir() + u"notifications/"_s + id;
}

void RecordingHost::writeRuleFile(const QString& id, const QByteArray& content) const
{
    QFile file(ruleFile(id));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write the rule file of a test");
}

QByteArray RecordingHost::readRuleFile(const QString& id) const
{
    QFile file(ruleFile(id));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray content = file.readAll();
    return content.isNull() ? QByteArray("") : content;
}

QStringList RecordingHost::ruleFiles() const
{
    return QDir(getSettingsDir() + u"notifications"_s).entryList(QDir::Files, QDir::Name);
}

// What follows stands in for the client's own bodies: the program's definitions come before those of its libraries.

ZepaSettingsManager* ZepaSettingsManager::getInstance()
{
    return RecordingHost::current;
}

ZepaAudio* ZepaAudio::getInstance()
{
    return RecordingHost::current;
}

ZepaChatManager* ZepaChatManager::getInstance()
{
    return RecordingHost::current;
}

class ZepaTrayIconPrivate
{};

ZepaTrayIcon::ZepaTrayIcon(QObject* parent) : QObject(parent)
{
    RecordingHost::current->iconsMade.append(this);
    RecordingHost::current->icons[this].calls.append(u"made"_s);
}

ZepaTrayIcon::~ZepaTrayIcon()
{
    if (RecordingHost::current == nullptr)
        return;
    RecordingHost::current->icons[this].calls.append(u"deleted"_s);
    if (RecordingHost::current->whenIconIsDeleted)
        RecordingHost::current->whenIconIsDeleted(this);
}

void ZepaTrayIcon::setIcon(const QIcon& icon)
{
    TrayIconRecord& record = RecordingHost::current->icons[this];
    record.calls.append(u"icon"_s);
    record.icon = icon;
}

QIcon ZepaTrayIcon::icon() const
{
    return RecordingHost::current->icons[this].icon;
}

void ZepaTrayIcon::setVisible(bool visible)
{
    TrayIconRecord& record = RecordingHost::current->icons[this];
    record.calls.append(visible ? u"visible"_s : u"hidden"_s);
    record.visible = visible;
}

bool ZepaTrayIcon::isVisible() const
{
    return RecordingHost::current->icons[this].visible;
}
