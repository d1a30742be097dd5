// SPDX-License-Identifier: Apache-2.0
#include "recording_host.h"

#include "host/tray_icon.h"

#include <QDir>
#include <QFile>

RecordingHost* RecordingHost::current = nullptr;

RecordingHost::RecordingHost()
{
    current = this;
    settingsMgrPrivInstance = this;
    QDir(settings.path()).mkdir(QStringLiteral("notifications"));
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
    if (field.getId() == QStringLiteral("duplicated_notifications_time"))
        answer.setIntValue(repeatLimit);
    else if (field.getId() == QStringLiteral("alerts") && !alerts.isNull())
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
    return getSettingsDir() + QStringLiteral("notifications/") + id;
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
    return QDir(getSettingsDir() + QStringLiteral("notifications")).entryList(QDir::Files, QDir::Name);
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
    RecordingHost::current->icons[this].calls.append(QStringLiteral("made"));
}

ZepaTrayIcon::~ZepaTrayIcon()
{
    if (RecordingHost::current == nullptr)
        return;
    RecordingHost::current->icons[this].calls.append(QStringLiteral("deleted"));
    if (RecordingHost::current->whenIconIsDeleted)
        RecordingHost::current->whenIconIsDeleted(this);
}

void ZepaTrayIcon::setIcon(const QIcon& icon)
{
    TrayIconRecord& record = RecordingHost::current->icons[this];
    record.calls.append(QStringLiteral("icon"));
    record.icon = icon;
}

QIcon ZepaTrayIcon::icon() const
{
    return RecordingHost::current->icons[this].icon;
}

void ZepaTrayIcon::setVisible(bool visible)
{
    TrayIconRecord& record = RecordingHost::current->icons[this];
    record.calls.append(visible ? QStringLiteral("visible") : QStringLiteral("hidden"));
    record.visible = visible;
}

bool ZepaTrayIcon::isVisible() const
{
    return RecordingHost::current->icons[this].visible;
}
