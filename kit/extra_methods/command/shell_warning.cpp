// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/command/shell_warning.h"

#include "kit/extra_methods/command/command_method.h"
#include "kit/extra_methods/command/command_template.h"
#include "kit/extra_methods/rule_setting.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// Also behind another program, as in `env sh -c ...` or `xterm -e bash -c ...`.
bool isShell(const QString& word)
{
    static const QStringList shells{u"sh"_s,   u"ash"_s, u"bash"_s, u"dash"_s, u"fish"_s, u"ksh"_s,
                                    u"mksh"_s, u"zsh"_s, u"csh"_s,  u"tcsh"_s, u"su"_s,   u"runuser"_s};
    return shells.contains(word.section(u'/', -1));
}

/// The script that the command gives to a shell; null when it gives none. Words behind the script are the script's
/// arguments, which are safe.
QString shellScript(const QStringList& words)
{
    static const QRegularExpression takesScript(u"^(-[A-Za-z]*c[A-Za-z]*|--command)$"_s);
    static const QString inOneWord = u"--command="_s;
    const auto shell = std::find_if(words.cbegin(), words.cend(), isShell);
    bool isNext = false;
    for (auto word = shell; word != words.cend(); ++word) {
        if (word->startsWith(inOneWord))
            return word->sliced(inOneWord.size());
        if (takesScript.match(*word).hasMatch())
            isNext = true;
        else if (isNext && !word->startsWith(u'-'))
            return *word;
    }
    return {};
}

} // namespace

QString shellWarning(const QString& methodId, const QList<ZepaField>& settings)
{
    if (methodId != commandMethodId)
        return {};
    const auto words = splitWords(ruleSetting(settings, commandSettingId).getText());
    const QString script = words ? shellScript(*words) : QString();
    QStringList advice;
    for (const auto& [letter, variable] : commandTexts()) {
        if (filledIn(script, {{letter, QString()}}) != filledIn(script, {}))
            advice.append(QCoreApplication::translate("zepa", "\"$%1\" instead of %2").arg(variable, u'%' + letter));
    }
    if (advice.isEmpty())
        return {};
    return QCoreApplication::translate("zepa",
                                       "Unsafe: anyone who sends a message could make the shell run commands. Use "
                                       "environment variables in double quotes: %1.")
        .arg(advice.join(QCoreApplication::translate("zepa", ", ")));
}

} // namespace zepa
