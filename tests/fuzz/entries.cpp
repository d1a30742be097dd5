// SPDX-License-Identifier: Apache-2.0
#include "entries.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zepa::fuzz {

const std::vector<Entry>& entries()
{
    static const std::vector<Entry> all{
        {"rule_file", readRuleFile}, {"bus_text", writeBusText}, {"chat_text", showChatText},
        {"popup_text", postPopup},   {"script", readScriptFile}, {"sound_file", readSoundFile},
    };
    return all;
}

void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", what);
    std::abort();
}

QString asUtf16(const QByteArray& bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.constData(), std::size_t(text.size()) * sizeof(char16_t));
    return text;
}

} // namespace zepa::fuzz
