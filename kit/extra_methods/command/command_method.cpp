// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/command/command_method.h"

#include "core/notification.h"
#include "host/settings_manager.h"
#include "kit/extra_methods/command/command_template.h"
#include "kit/extra_methods/rule_setting.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// As the system can take it: a null character would end it.
QString passable(QString text)
{
    text.truncate(CommandMethod::longestText);
    return text.remove(QChar::Null);
}

} // namespace

const QList<CommandText>& commandTexts()
{
    static const QList<CommandText> texts{
        {u'n', u"ZEPA_TYPE"_s}, {u'N', u"ZEPA_TYPE_NAME"_s}, {u't', u"ZEPA_TITLE"_s},     {u'm', u"ZEPA_TEXT"_s},
        {u'i', u"ZEPA_ICON"_s}, {u'b', u"ZEPA_BUDDY"_s},     {u'B', u"ZEPA_BUDDY_NAME"_s}};
    return texts;
}

CommandMethod::CommandMethod()
{
    fields = {ZepaField::textEdit(
        QCoreApplication::translate("zepa", "Command"), commandSettingId, {},
        QCoreApplication::translate("zepa", "A program and its arguments. %t is the title, %m the message, %B the "
                                            "contact; the program also finds them in its environment, as ZEPA_TITLE, "
                                            "ZEPA_TEXT and ZEPA_BUDDY_NAME. Use quotes to group words. The command "
                                            "does not run in a shell."))};
}

void CommandMethod::postNotification(unsigned int /*sequence*/, ZepaNotification* notification, const QString& title,
                                     const QString& text, const QString& icon, const QString& /*extra*/,
                                     const QList<ZepaField>& config, const ZepaPluginAction& /*action*/,
                                     const QList<ZepaArg>& args)
{
    const QString command = ruleSetting(config, commandSettingId).getText();
    std::optional<QStringList> words = splitWords(command);
    if (!words)
        return m_faults.failed(command, u"a quote is not closed, or a backslash stands at the end"_s);
    if (words->isEmpty() || words->constFirst().isEmpty())
        return m_faults.failed(getId(), u"a rule names no program"_s);

    const ZepaBuddy buddy = args.isEmpty() ? ZepaBuddy() : args.constFirst().toBuddy();
    QHash<QChar, QString> texts{
        {u'n', notification->getId()}, {u'N', notification->getName()}, {u't', title}, {u'm', text}, {u'i', icon},
        {u'b', buddy.getId()},         {u'B', buddy.getName()}};
    QHash<QString, QString> environment;
    for (const CommandText& one : commandTexts()) {
        texts[one.letter] = passable(texts[one.letter]);
        environment.insert(one.variable, texts[one.letter]);
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
    return commandMethodId;
}

QString CommandMethod::getActionName() const
{
    return QCoreApplication::translate("zepa", "run a command");
}

QString CommandMethod::getActionIcon() const
{
    return ZepaSettingsManager::getInstance()->getCurrentThemeDir() + u"icons/command.png"_s;
}

} // namespace zepa
