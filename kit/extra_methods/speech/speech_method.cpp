// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/speech/speech_method.h"

#include "host/settings_manager.h"
#include "kit/extra_methods/rule_setting.h"
#include "kit/extra_methods/speech/speech_text.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

const QString contentId = u"content"_s;
const QString voiceId = u"voice"_s;
const QString speedId = u"speed"_s;

const QString onlyTitle = u"title"_s;
const QString onlyText = u"text"_s;
const QString titleAndText = u"title_and_text"_s;

} // namespace

SpeechMethod::SpeechMethod()
{
    fields = {
        ZepaField::comboBox(
            QCoreApplication::translate("zepa", "Read out"), contentId, {titleAndText, onlyTitle, onlyText},
            {QCoreApplication::translate("zepa", "Title and text"), QCoreApplication::translate("zepa", "Title only"),
             QCoreApplication::translate("zepa", "Text only")},
            titleAndText, {}),
        ZepaField::textEdit(QCoreApplication::translate("zepa", "Voice"), voiceId, {},
                            QCoreApplication::translate("zepa", "A voice of espeak-ng, for example de or en-us. Empty: "
                                                                "its own choice.")),
        ZepaField::spinBox(QCoreApplication::translate("zepa", "Speed"), speedId, 450, 80, 175, {},
                           QCoreApplication::translate("zepa", " words a minute")),
    };
}

void SpeechMethod::postNotification(unsigned int /*sequence*/, ZepaNotification* /*notification*/, const QString& title,
                                    const QString& text, const QString& /*icon*/, const QString& /*extra*/,
                                    const QList<ZepaField>& config, const ZepaPluginAction& /*action*/,
                                    const QList<ZepaArg>& /*args*/)
{
    const QString content = ruleSetting(config, contentId).getSelectedId();
    QStringList parts;
    for (const QString& part :
         {content == onlyText ? QString() : speakable(title), content == onlyTitle ? QString() : speakable(text)}) {
        if (!part.isEmpty())
            parts.append(part);
    }
    if (parts.isEmpty())
        return;
    // An empty line makes the speaker pause.
    m_speaker.say({parts.join(u"\n\n"_s), ruleSetting(config, voiceId).getText().trimmed(),
                   ruleSetting(config, speedId).getIntValue()});
}

QString SpeechMethod::getId() const
{
    return u"zepa_speech_notification_method"_s;
}

QString SpeechMethod::getActionName() const
{
    return QCoreApplication::translate("zepa", "read out");
}

QString SpeechMethod::getActionIcon() const
{
    return ZepaSettingsManager::getInstance()->getCurrentThemeDir() + u"icons/speech.png"_s;
}

} // namespace zepa
