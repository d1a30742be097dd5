// SPDX-License-Identifier: Apache-2.0
#include "kit/settings_page/sample_posting.h"

#include "core/notification.h"
#include "core/notification_module.h"
#include "host/settings_manager.h"
#include "kit/journal/announce.h"
#include "kit/rules/method_titles.h"

#include <QCoreApplication>
#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

Posting sampleOf(const ZepaNotification& type, int number)
{
    Posting posting;
    posting.type = type.getId();
    posting.title = QCoreApplication::translate("zepa", "%1 (sample %2)").arg(type.getName(), QString::number(number));
    posting.text = QCoreApplication::translate("zepa", "Ann: Shall we have lunch at noon?");
    const QString picture =
        ZepaSettingsManager::getInstance()->getCurrentThemeDir() + u"icons/%1.png"_s.arg(type.getId());
    if (QFile::exists(picture))
        posting.icon = picture;
    posting.buddy = ZepaBuddy(QCoreApplication::translate("zepa", "Ann"), QCoreApplication::translate("zepa", "Ann"),
                              ZepaBuddy::Contact);
    return posting;
}

/// What kept a method that was called from reaching the user.
QStringList obstacles(const Report& report)
{
    QStringList sentences;
    const Verdict verdict = report.verdict();
    if (verdict == Verdict::NoBus || verdict == Verdict::NoService)
        sentences.append(QCoreApplication::translate("zepa", "No notification service is there to show the pop-up."));
    if (verdict == Verdict::NotRegistered)
        sentences.append(QCoreApplication::translate("zepa", "The notification service does not know this event yet."));
    if (report.sound == SoundState::MutedForAll || report.sound == SoundState::MutedForStrangers)
        sentences.append(QCoreApplication::translate("zepa", "The setting for alert sounds keeps it silent."));
    if (report.sound == SoundState::NoFile)
        sentences.append(QCoreApplication::translate("zepa", "The sound file is not there."));
    if (report.chat == ChatState::NoWindow)
        sentences.append(QCoreApplication::translate("zepa", "No chat with Ann is open to write a line in."));
    return sentences;
}

} // namespace

QString postSample(const Recorder& recorder, const QString& typeId)
{
    const ZepaNotification* found = recorder.module.getNotifications().value(typeId);
    if (!found)
        return {};
    const ZepaNotification& type = *found;
    static int number = 0;
    const Report report = announce(recorder, sampleOf(type, ++number));
    switch (report.fate) {
    case Fate::NoRule:
    case Fate::UnknownType:
        return QCoreApplication::translate("zepa", "Sample %1: there is no rule for “%2”, so nothing happens.")
            .arg(QString::number(number), type.getName());
    case Fate::Repeat:
        return QCoreApplication::translate("zepa", "Sample %1 was dropped as a repeat.").arg(number);
    case Fate::Delivered:
        break;
    }

    QStringList titles;
    const QStringList methods = report.methods();
    for (const QString& id : methods) {
        const ZepaNotificationMethod* method = recorder.module.getMethods().value(id);
        titles.append(method ? methodTitle(*method) : id);
    }
    QStringList sentences{QCoreApplication::translate("zepa", "Sample %1 went to: %2.")
                              .arg(QString::number(number), titles.join(QCoreApplication::translate("zepa", ", ")))};
    sentences += obstacles(report);
    return sentences.join(u' ');
}

} // namespace zepa
