// SPDX-License-Identifier: Apache-2.0
#include "cf_values.h"

namespace zepa::growl {

QString toQString(CFStringRef string)
{
    if (string == nullptr)
        return {};
    QString text(CFStringGetLength(string), Qt::Uninitialized);
    CFStringGetCharacters(string, {0, text.size()}, reinterpret_cast<UniChar*>(text.data()));
    return text;
}

QByteArrayView bytesOf(CFDataRef data)
{
    if (data == nullptr)
        return {};
    return {CFDataGetBytePtr(data), CFDataGetLength(data)};
}

CFArrayRef arrayIn(CFDictionaryRef dictionary, CFStringRef key)
{
    const void* value = CFDictionaryGetValue(dictionary, key);
    if (value == nullptr || CFGetTypeID(value) != CFArrayGetTypeID())
        return nullptr;
    return static_cast<CFArrayRef>(value);
}

QStringList stringsIn(CFArrayRef array, CFIndex count)
{
    QStringList strings;
    for (CFIndex index = 0; array != nullptr && index < count; ++index) {
        const void* value = CFArrayGetValueAtIndex(array, index);
        if (CFGetTypeID(value) == CFStringGetTypeID())
            strings.append(toQString(static_cast<CFStringRef>(value)));
    }
    return strings;
}

} // namespace zepa::growl
