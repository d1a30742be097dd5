// SPDX-License-Identifier: Apache-2.0
#include "client/languages.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace zepa {

namespace {

/// "de_AT.UTF-8@euro" without what stands behind the country.
QString languageOf(const QString& locale)
{
    const qsizetype end = locale.indexOf(u'.');
    return locale.first(end < 0 ? locale.size() : end).section(u'@', 0, 0);
}

QString messageLocale()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString value = qEnvironmentVariable(variable);
        if (!value.isEmpty())
            return languageOf(value);
    }
    return {};
}

bool isUntranslated(const QString& language)
{
    return language.isEmpty() || language == u"C"_s || language == u"POSIX"_s ||
           language.section(u'_', 0, 0) == u"en"_s;
}

/// The languages come from the environment; none may lead elsewhere.
bool isName(const QString& entry)
{
    return !entry.contains(u'/') && !entry.startsWith(u'.');
}

bool install(QCoreApplication& application, const QString& file)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(file) || !QCoreApplication::installTranslator(translator.get()))
        return false;
    translator.release()->setParent(&application);
    return true;
}

} // namespace

QStringList messageLanguages()
{
    const QString locale = messageLocale();
    // As in other programs: who asks for the "C" locale means the texts as they are written.
    if (locale.isEmpty() || locale == u"C"_s || locale == u"POSIX"_s)
        return {};
    QStringList wanted = qEnvironmentVariable("LANGUAGE").split(u':', Qt::SkipEmptyParts);
    if (wanted.isEmpty())
        wanted.append(locale);
    QStringList languages;
    for (const QString& entry : std::as_const(wanted)) {
        if (!isName(entry))
            continue;
        const QString language = languageOf(entry);
        if (isUntranslated(language))
            break;
        languages.append(language);
        if (language.contains(u'_'))
            languages.append(language.section(u'_', 0, 0));
    }
    languages.removeDuplicates();
    return languages;
}

void installTranslations(QCoreApplication& application)
{
    const QString ours = QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/../share/zepa/translations/"_s);
    const QString qts = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    const QStringList languages = messageLanguages();
    for (const QString& language : languages) {
        if (!install(application, ours + u"/client_"_s + language + u".qm"_s))
            continue;
        install(application, ours + u"/library_"_s + language + u".qm"_s);
        // Qt speaks only one country's kind of some languages; better that than English.
        QStringList files{u"qtbase_"_s + language + u".qm"_s};
        files += QDir(qts).entryList({u"qtbase_"_s + language + u"_*.qm"_s});
        for (const QString& file : std::as_const(files)) {
            if (install(application, qts + u'/' + file))
                break;
        }
        return;
    }
}

} // namespace zepa
