// SPDX-License-Identifier: Apache-2.0
#include "ledger.h"

#include "rule_list.h"

#include <cstdio>

void Ledger::read(const QByteArray& bytes)
{
    m_rest += bytes;
    for (qsizetype end = m_rest.indexOf('\n'); end >= 0; end = m_rest.indexOf('\n')) {
        readLine(m_rest.first(end).split(' '));
        m_rest.remove(0, end + 1);
    }
}

void Ledger::endOfReport()
{
    m_rest.clear();
    m_isReady = false;
    m_learns = false;
}

void Ledger::readLine(const QList<QByteArray>& words)
{
    const QByteArray& what = words[0];
    if (what == "ready") {
        m_isReady = true;
        return;
    }
    if (what == "mended") {
        mended += words[1].toInt();
        return;
    }
    const QString type = QString::fromUtf8(words[1]);
    QStringList rules;
    for (const QByteArray& word : words.mid(2))
        rules.append(QString::fromUtf8(QByteArray::fromPercentEncoding(word)));

    if (what == "found") {
        check(type, rules);
    } else if (what == "tries") {
        m_possible[type].append(rules);
    } else if (what == "stored") {
        ++stored;
        m_known[type] = rules;
        m_possible.remove(type);
    } else if (what == "unstored") {
        ++unstored;
    } else if (what == "refused") {
        ++refused;
        m_possible[type].removeLast();
    }
}

void Ledger::check(const QString& type, const QStringList& found)
{
    const QStringList known = m_known.value(type);
    checkedRules += static_cast<int>(known.size());
    if (!m_learns && found != known && !m_possible.value(type).contains(found)) {
        const int missing = missingFrom(found, known);
        // Rules that nobody ever asked for are as wrong as lost ones.
        lost += missing > 0 ? missing : 1;
        std::fprintf(stderr, "LOST in %s:\n  stored %s\n  found  %s\n", qPrintable(type), qPrintable(known.join(u' ')),
                     qPrintable(found.join(u' ')));
    }
    m_known[type] = found;
    m_possible.remove(type);
}

QByteArray reportLine(const char* what, const QString& type, const QStringList& rules)
{
    QByteArray line = QByteArray(what) + ' ' + type.toUtf8();
    for (const QString& rule : rules)
        line += ' ' + rule.toUtf8().toPercentEncoding();
    return line + '\n';
}
