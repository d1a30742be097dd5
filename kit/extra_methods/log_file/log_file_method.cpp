// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/log_file/log_file_method.h"

#include "core/notification.h"
#include "host/settings_manager.h"
#include "kit/extra_methods/log_file/log_line.h"
#include "kit/extra_methods/log_file/log_writer.h"
#include "kit/extra_methods/rule_setting.h"
#include "kit/files/base_folders.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

const QString fileId = u"file"_s;
const QString sizeId = u"size"_s;
const QString olderFilesId = u"older_files"_s;

/// Empty when the setting is.
QString absolutePath(const QString& file)
{
    if (file.isEmpty())
        return {};
    if (file.startsWith(u"~/"_s))
        return QDir::homePath() + file.sliced(1);
    return QDir(stateFolder()).absoluteFilePath(file);
}

QString now()
{
    const QDateTime local = QDateTime::currentDateTime();
    return local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

} // namespace

LogFileMethod::LogFileMethod()
{
    fields = {
        ZepaField::textEdit(QCoreApplication::translate("zepa", "File"), fileId, u"notifications.log"_s,
                            QCoreApplication::translate("zepa", "A name without a folder is a file in "
                                                                "~/.local/state/zepa.")),
        ZepaField::spinBox(QCoreApplication::translate("zepa", "Largest size"), sizeId, 1024 * 1024, 1, 1024,
                           QCoreApplication::translate("zepa", "When it is reached, a new file begins."),
                           QCoreApplication::translate("zepa", " KB")),
        ZepaField::spinBox(QCoreApplication::translate("zepa", "Older files kept"), olderFilesId, 99, 0, 3,
                           QCoreApplication::translate("zepa", "They have .1, .2 and so on behind their names."), {}),
    };
}

void LogFileMethod::postNotification(unsigned int /*sequence*/, ZepaNotification* notification, const QString& title,
                                     const QString& text, const QString& /*icon*/, const QString& /*extra*/,
                                     const QList<ZepaField>& config, const ZepaPluginAction& /*action*/,
                                     const QList<ZepaArg>& /*args*/)
{
    const QString file = absolutePath(ruleSetting(config, fileId).getText());
    if (file.isEmpty())
        return m_faults.failed(getId(), u"a rule names no file"_s);
    const LogTarget target{file, qint64{1024} * ruleSetting(config, sizeId).getIntValue(),
                           ruleSetting(config, olderFilesId).getIntValue()};
    const QString problem = appendToLog(target, logLine({now(), notification->getId(), title, text}));
    if (problem.isEmpty())
        m_faults.succeeded(file);
    else
        m_faults.failed(file, problem);
}

QString LogFileMethod::getId() const
{
    return u"zepa_log_file_notification_method"_s;
}

QString LogFileMethod::getActionName() const
{
    return QCoreApplication::translate("zepa", "write to a file");
}

QString LogFileMethod::getActionIcon() const
{
    return ZepaSettingsManager::getInstance()->getCurrentThemeDir() + u"icons/log.png"_s;
}

} // namespace zepa
