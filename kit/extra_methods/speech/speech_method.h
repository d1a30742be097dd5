// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_method.h"
#include "kit/extra_methods/speech/speaker.h"

namespace zepa {

/// Reads events out, through espeak-ng. No type has a rule for it until the user adds one.
///
/// Settings of a rule: "content" ("title", "text", or "title_and_text"), "voice" as `espeak-ng --voices` lists it
/// (empty: the speaker's own choice), "speed" in words a minute.
class SpeechMethod final : public ZepaNotificationMethod
{
public:
    SpeechMethod();

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override;
    QString getId() const override;
    QString getActionName() const override;
    QString getActionIcon() const override;

    /// How many events wait to be read out or are being read: for programs that end at once.
    qsizetype unfinished() const { return m_speaker.unfinished(); }

private:
    Speaker m_speaker;
};

} // namespace zepa
