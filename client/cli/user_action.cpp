// SPDX-License-Identifier: Apache-2.0
#include "client/cli/user_action.h"

#include "client/cli/output.h"
#include "kit/extra_methods/child_environment.h"
#include "kit/extra_methods/command/command_template.h"

#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace zepa::cli {

namespace {

/// A scheme of one letter is more likely a slip than an address, and a blank never stands in one.
bool isAddress(const QString& action)
{
    const QUrl url(action, QUrl::StrictMode);
    return url.isValid() && url.scheme().size() > 1;
}

/// The program of a command that runs in `folder`.
QString located(const QString& program, const QString& folder)
{
    return program.contains(u'/') ? QDir(folder).absoluteFilePath(program) : program;
}

bool start(const QString& program, const QStringList& arguments, const QString& folder = {})
{
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setWorkingDirectory(folder);
    process.setProcessEnvironment(childEnvironment());
    return process.startDetached();
}

bool openAddress(const QUrl& url)
{
    // What Qt starts has this process's environment, and where the session bus is hidden from Qt, the user's is
    // another.
    if (!isOwnVariable("DBUS_SESSION_BUS_ADDRESS") && QDesktopServices::openUrl(url))
        return true;
    // Without a desktop of its own, Qt leaves the opening to the program that all desktops have for it.
    return start(u"xdg-open"_s, {QString::fromLatin1(url.toEncoded())});
}

} // namespace

QString problemWithAction(const QString& action, const QString& folder)
{
    if (isAddress(action))
        return {};
    const auto words = splitWords(action);
    if (!words)
        return u"missing closing quote, or a backslash at the end; give a URL or a command"_s;
    if (words->isEmpty() || words->constFirst().isEmpty())
        return u"no program named; give a URL or a command"_s;
    if (QStandardPaths::findExecutable(located(words->constFirst(), folder)).isEmpty())
        return u"program \"%1\" not found; give a URL or a command"_s.arg(onOneLine(words->constFirst()));
    return {};
}

void startAction(const QString& action, const QString& folder)
{
    if (isAddress(action)) {
        if (!openAddress(QUrl(action, QUrl::StrictMode)))
            printError(u"no application can open %1"_s.arg(onOneLine(action)));
        return;
    }
    auto words = splitWords(action);
    const QString program = words && !words->isEmpty() ? words->takeFirst() : QString();
    if (program.isEmpty() || !start(located(program, folder), *words, folder))
        printError(u"the command %1 could not be started"_s.arg(onOneLine(action)));
}

} // namespace zepa::cli
