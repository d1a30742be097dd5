// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/command/shell_warning.h"

#include "kit/extra_methods/command/command_method.h"
#include "qt_printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using namespace zepa;

QString warning(const QString& command)
{
    return shellWarning(commandMethodId, {ZepaField::textEdit({}, commandSettingId, command, {})});
}

TEST(ShellWarning, NamesTheVariableForEachTextInAScript)
{
    for (const char16_t* command :
         {u"sh -c \"echo %m\"", u"/bin/bash -c 'echo \"%m\"'", u"sh -ec 'echo %m'", u"env A=b nice zsh -c 'x %m' y",
          u"xterm -e sh -c 'echo %m'", u"bash -o pipefail -c 'echo %m'", u"su ann -c 'echo %m'",
          u"su ann --command='echo %m'", u"sh -c -x 'echo 100%% %m'"}) {
        const QString text = warning(QString::fromUtf16(command));
        EXPECT_TRUE(text.contains(u"\"$ZEPA_TEXT\" instead of %m"_s))
            << QString::fromUtf16(command).toStdString() << ": " << text.toStdString();
        EXPECT_FALSE(text.contains(u"ZEPA_TITLE"_s)) << text.toStdString();
    }
    const QString two = warning(u"sh -c 'echo %B %t'"_s);
    EXPECT_TRUE(two.contains(u"\"$ZEPA_TITLE\" instead of %t, \"$ZEPA_BUDDY_NAME\" instead of %B"_s))
        << two.toStdString();
}

TEST(ShellWarning, IsGivenForNoCommandThatKeepsTextsApart)
{
    for (const char16_t* command :
         {u"sh -c \"echo %m", u"notify %t %m", u"sh -c 'echo \"$ZEPA_TEXT\"'", u"sh -c 'echo \"$1\"' - %m",
          u"sh script %m", u"sh -c 'date +%%m'", u"sh -c 'echo %z'", u"my-sh -c %m", u"%m sh"})
        EXPECT_EQ(warning(QString::fromUtf16(command)), QString()) << QString::fromUtf16(command).toStdString();
    EXPECT_EQ(shellWarning(u"another"_s, {ZepaField::textEdit({}, commandSettingId, u"sh -c %m"_s, {})}), QString());
    EXPECT_EQ(warning(QString()), QString());
    EXPECT_EQ(shellWarning(commandMethodId, {}), QString());
}

TEST(ShellWarning, AndTheHelpOfTheFieldNameTheVariables)
{
    EXPECT_TRUE(CommandMethod().fields.constFirst().getDescription().contains(u"ZEPA_TEXT"_s));
}

} // namespace
