// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/notification_method.h"
#include "kit/extra_methods/command/command_runner.h"
#include "kit/extra_methods/methods_log.h"
#include "kit/texts/fault_log.h"

#include <QList>
#include <QString>

namespace zepa {

inline const QString commandMethodId = QString::fromLatin1("zepa_command_notification_method");
/// The only setting of its rules.
inline const QString commandSettingId = QString::fromLatin1("command");

/// A text of an event as a command gets it.
struct CommandText
{
    QChar letter;     ///< %letter in an argument
    QString variable; ///< in the environment
};
const QList<CommandText>& commandTexts();

/// Runs a command of the user's for each event. No type has a rule for it until the user adds one.
///
/// Setting of a rule: "command", a program and its arguments as splitWords() reads them. In the arguments, and never
/// in the program's own word, these stand for texts of the event:
///
///     %n  identifier of the type        %t  title
///     %N  the type's name to show       %m  message
///     %i  path of the picture           %b  identifier of the buddy
///     %%  a %                           %B  the buddy's name to show
///
/// They are put in after the command was taken apart: a text from outside is always part of one argument. It may begin
/// with a dash, though; where a program takes options, "--" in front of it helps. The program finds the same texts in
/// ZEPA_TYPE, ZEPA_TYPE_NAME, ZEPA_TITLE, ZEPA_TEXT, ZEPA_ICON, ZEPA_BUDDY and ZEPA_BUDDY_NAME of its environment.
class CommandMethod final : public ZepaNotificationMethod
{
public:
    /// A longer text of an event is cut there, in UTF-16 units: the system takes no arguments of any length.
    static constexpr qsizetype longestText = qsizetype{16} * 1024;

    CommandMethod();

    void postNotification(unsigned int sequence, ZepaNotification* notification, const QString& title,
                          const QString& text, const QString& icon, const QString& extra,
                          const QList<ZepaField>& config, const ZepaPluginAction& action,
                          const QList<ZepaArg>& args) override;
    QString getId() const override;
    QString getActionName() const override;
    QString getActionIcon() const override;

    /// How many commands run.
    std::size_t running() const { return m_runner.running(); }

private:
    CommandRunner m_runner;
    FaultLog m_faults{lcZepaMethods};
};

} // namespace zepa
