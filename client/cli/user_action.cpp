// SPDX-License-Identifier: Apache-2.0
#include "client/cli/user_action.h"

#include "client/cli/output.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace zepa::cli {

namespace {

/// A scheme of one letter is more likely a slip than an address, and a blank never stands in one.
bool isAddress(const QString& action)
{
    const QUrl url(action, QUrl::StrictMode);
    return url.isValid() && url.scheme().size() > 1;
}

} // namespace

QString problemWithAction(const QString& action)
{
    if (isAddress(action))
        return {};
    const QStringList words = QProcess::splitCommand(action);
    if (words.isEmpty())
        return QStringLiteral("is empty; allowed is an address (https://...) or a command");
    if (QStandardPaths::findExecutable(words.constFirst()).isEmpty())
        return QStringLiteral("names the program \"%1\", which is not there; allowed is an address (https://...) or a "
                              "command")
            .arg(onOneLine(words.constFirst()));
    return {};
}

void startAction(const QString& action, const QString& folder)
{
    if (isAddress(action)) {
        const QUrl url(action, QUrl::StrictMode);
        // Without a desktop of its own, Qt leaves the opening to the program that all desktops have for it.
        if (!QDesktopServices::openUrl(url) &&
            !QProcess::startDetached(QStringLiteral("xdg-open"), {QString::fromLatin1(url.toEncoded())}))
            complain(QStringLiteral("nothing opens %1").arg(onOneLine(action)));
        return;
    }
    QStringList words = QProcess::splitCommand(action);
    const QString program = words.takeFirst();
    if (!QProcess::startDetached(program, words, folder))
        complain(QStringLiteral("the command %1 did not start").arg(onOneLine(action)));
}

} // namespace zepa::cli
