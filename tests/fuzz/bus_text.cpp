// SPDX-License-Identifier: Apache-2.0
#include "platform/freedesktop/bus_text.h"

#include "entries.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zepa::fuzz {

namespace {

bool isFitForABus(const QString& text)
{
    return text.isValidUtf16() && std::none_of(text.begin(), text.end(), [](QChar c) {
               const bool control = c < u' ' && c != u'\n' && c != u'\t';
               return control || (c >= u'\x7f' && c < u'\xa0') || c.isNonCharacter();
           });
}

QString unescaped(QString text)
{
    return text.replace(u"&lt;"_s, u"<"_s).replace(u"&gt;"_s, u">"_s).replace(u"&amp;"_s, u"&"_s);
}

bool hasOnlyWholeEntities(const QString& text)
{
    const QString rest =
        QString(text).replace(u"&lt;"_s, u"."_s).replace(u"&gt;"_s, u"."_s).replace(u"&amp;"_s, u"."_s);
    return !rest.contains(u'<') && !rest.contains(u'>') && !rest.contains(u'&');
}

} // namespace

void writeBusText(const QByteArray& input)
{
    using namespace freedesktop;
    if (input.isEmpty())
        return;
    // Small limits, so that cuts are found; the first byte says which.
    const qsizetype limit = 1 + static_cast<unsigned char>(input.at(0));
    const QString text = asUtf16(input.sliced(1));

    const QString plain = busText(text, limit);
    require(plain.size() <= limit, "a text keeps to its limit");
    require(isFitForABus(plain), "a bus accepts the text");
    require(busText(plain, limit) == plain, "a text that is fit already stays");

    const QString escaped = busText(text, limit, Markup::Escaped);
    require(escaped.size() <= limit, "an escaped text keeps to its limit");
    require(isFitForABus(escaped), "a bus accepts the escaped text");
    require(hasOnlyWholeEntities(escaped), "an escaped text has no markup");
    const QString whole = busText(text, summaryLimit);
    if (whole.size() < limit / 5)
        require(unescaped(escaped) == whole, "an escaped text says the same");
}

} // namespace zepa::fuzz
