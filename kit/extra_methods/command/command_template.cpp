// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/command/command_template.h"

namespace zepa {

std::optional<QStringList> splitWords(const QString& command)
{
    QStringList words;
    QString word;
    bool isInWord = false;
    QChar quote;
    for (qsizetype i = 0; i < command.size(); ++i) {
        const QChar character = command[i];
        if (character == u'\\' && quote != u'\'') {
            if (++i == command.size())
                return std::nullopt;
            word += command[i];
            isInWord = true;
        } else if (!quote.isNull()) {
            if (character == quote)
                quote = QChar();
            else
                word += character;
        } else if (character == u'\'' || character == u'"') {
            quote = character;
            isInWord = true;
        } else if (!character.isSpace()) {
            word += character;
            isInWord = true;
        } else if (isInWord) {
            words.append(word);
            word.clear();
            isInWord = false;
        }
    }
    if (!quote.isNull())
        return std::nullopt;
    if (isInWord)
        words.append(word);
    return words;
}

QString filledIn(const QString& word, const QHash<QChar, QString>& texts)
{
    QString result;
    for (qsizetype i = 0; i < word.size(); ++i) {
        const bool isPlaceholder = word[i] == u'%' && i + 1 < word.size();
        if (isPlaceholder && word[i + 1] == u'%') {
            result += word[++i];
            continue;
        }
        const auto text = isPlaceholder ? texts.constFind(word[i + 1]) : texts.cend();
        if (text == texts.cend()) {
            result += word[i];
        } else {
            result += *text;
            ++i;
        }
    }
    return result;
}

} // namespace zepa
