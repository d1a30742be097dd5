// SPDX-License-Identifier: Apache-2.0
#include "own_services.h"

#include "host/tray_icon.h"
#include "kit/settings/hidden_rule_folder.h"

#include <QDir>

using namespace Qt::StringLiterals;

OwnServices* OwnServices::current = nullptr;
ZepaSettingsManagerPrivate* ZepaSettingsManagerPrivate::settingsMgrPrivInstance = nullptr;

OwnServices::OwnServices()
{
    current = this;
    settingsMgrPrivInstance = this;
    QDir(folder.path()).mkdir(u"notifications"_s);
}

OwnServices::~OwnServices()
{
    current = nullptr;
    settingsMgrPrivInstance = nullptr;
}

QString OwnServices::getSettingsDir() const
{
    return zepa::HiddenRuleFolder::isActive() && !ignoresHiding ? u"/dev/null/"_s : folder.path() + u'/';
}

ZepaField OwnServices::readGlobalSetting(const ZepaField& field) const
{
    ZepaField answer = field;
    if (values.contains(field.getId()))
        answer.setText(values[field.getId()]);
    return answer;
}

QList<ZepaField> OwnServices::offered() const
{
    return {ZepaField::spinBox(u"Repeats"_s, u"duplicated_notifications_time"_s, 300, 0, 5, {}, u" s"_s)};
}

OwnServices::Outcome OwnServices::tryToStore(const ZepaField& field, const QString& value)
{
    values[field.getId()] = value;
    return Outcome::Done;
}

ZepaSettingsManager* ZepaSettingsManager::getInstance()
{
    return OwnServices::current;
}

ZepaAudio* ZepaAudio::getInstance()
{
    return OwnServices::current;
}

ZepaChatManager* ZepaChatManager::getInstance()
{
    return OwnServices::current;
}

class ZepaTrayIconPrivate
{};

ZepaTrayIcon::ZepaTrayIcon(QObject* parent) : QObject(parent)
{}

ZepaTrayIcon::~ZepaTrayIcon() = default;

void ZepaTrayIcon::setIcon(const QIcon& /*icon*/)
{}

QIcon ZepaTrayIcon::icon() const
{
    return {};
}

void ZepaTrayIcon::setVisible(bool /*visible*/)
{}

bool ZepaTrayIcon::isVisible() const
{
    return false;
}
