// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "kit/extra_methods/command/command_method.h"
#include "kit/extra_methods/log_file/log_file_method.h"
#include "kit/extra_methods/speech/speech_method.h"

#include <QList>

namespace zepa {

/// The delivery methods that this client brings beside the library's own: three examples of how to write one. They
/// come without rules. Make them after the translators are installed, and let them outlive the module.
class ExtraMethods
{
public:
    /// To be installed before the module's init().
    QList<ZepaNotificationMethod*> all() { return {&m_speech, &m_logFile, &m_command}; }

    /// How many events wait to be read out or are being read.
    qsizetype unspoken() const { return m_speech.unfinished(); }

private:
    SpeechMethod m_speech;
    LogFileMethod m_logFile;
    CommandMethod m_command;
};

} // namespace zepa
