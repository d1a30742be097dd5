// SPDX-License-Identifier: Apache-2.0
#include "client/methods/command/command_method.h"

#include "client/methods/command/word_list.h"
#include "client/methods/rule_setting.h"
#include "core/notification.h"
#include "host/settings_manager.h"

#include <QCoreApplication>

namespace zepa {

namespace {

const QString commandId = QStringLiteral("command");

/// One text of the event: the letter that stands for it, its variable, and what it is.
struct EventText
{
    QChar letter;
    QString variable;
    QString text;
};

/// As the system can take it: a null character would end it.
QString passable(QString text)
{
    text.truncate(CommandMethod::longestText);
    return text.remove(QChar::Null);
}

} // namespace

CommandMethod::CommandMethod()
{
    fields = {ZepaField::textEdit(
        QCoreApplication::translate("zepa", "Command"), commandId, {},
        QCoreApplication::translate("zepa", "A program and its arguments. %t is the title, %m the message, %B the "
                                            "buddy. Quotes keep words together; no shell runs it."))};
}

void CommandMethod::postNotification(unsigned int /*sequence*/, ZepaNotification* notification, const QString& title,
                                     const QString& text, const QString& icon, const QString& /*extra*/,
                                     const QList<ZepaField>& config, const ZepaPluginAction& /*action*/,
                                     const QList<ZepaArg>& args)
{
    const QString command = ruleSetting(config, commandId).getText();
    std::optional<QStringList> words = splitWords(command);
    if (!words)
        return m_faults.failed(command, QStringLiteral("a quote is not closed, or a backslash stands at the end"));
    if (words->isEmpty() || words->constFirst().isEmpty())
        return m_faults.failed(getId(), QStringLiteral("a rule names no program"));

    const ZepaBuddy buddy = args.isEmpty() ? ZepaBuddy() : args.constFirst().toBuddy();
    QHash<QChar, QString> texts;
    QHash<QString, QString> environment;
    for (const EventText& one :
         {EventText{u'n', QStringLiteral("ZEPA_TYPE"), notification->getId()},
          EventText{u'N', QStringLiteral("ZEPA_TYPE_NAME"), notification->getName()},
          EventText{u't', QStringLiteral("ZEPA_TITLE"), title}, EventText{u'm', QStringLiteral("ZEPA_TEXT"), text},
          EventText{u'i', QStringLiteral("ZEPA_ICON"), icon},
          EventText{u'b', QStringLiteral("ZEPA_BUDDY"), buddy.getId()},
          EventText{u'B', QStringLiteral("ZEPA_BUDDY_NAME"), buddy.getName()}}) {
        texts.insert(one.letter, passable(one.text));
        environment.insert(one.variable, texts.value(one.letter));
    }
    for (qsizetype i = 1; i < words->size(); ++i)
        (*words)[i] = filledIn(words->at(i), texts);

    const QString& program = words->constFirst();
    const QString problem = m_runner.start(*words, environment);
    if (problem.isEmpty())
        m_faults.succeeded(program);
    else
        m_faults.failed(program, problem);
}

QString CommandMethod::getId() const
{
    return QStringLiteral("zepa_command_notification_method");
}

QString CommandMethod::getActionName() const
{
    return QCoreApplication::translate("zepa", "run a command");
}

QString CommandMethod::getActionIcon() const
{
    return ZepaSettingsManager::getInstance()->getCurrentThemeDir() + QStringLiteral("icons/command.png");
}

} // namespace zepa
