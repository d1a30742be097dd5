// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/string.h"

#include <algorithm>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace cf {

bool String::equals(const Object& other) const
{
    return units == static_cast<const String&>(other).units;
}

CFHashCode String::hash() const
{
    return std::hash<std::u16string>()(units);
}

CFStringRef createString(std::u16string units)
{
    return referenceTo<CFStringRef>(new String(std::move(units)));
}

} // namespace cf

CFTypeID CFStringGetTypeID()
{
    return cf::String::typeId;
}

CFIndex CFStringGetLength(CFStringRef string)
{
    return static_cast<CFIndex>(cf::as<cf::String>(string, "CFStringGetLength").units.size());
}

void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar* buffer)
{
    const std::u16string& units = cf::as<cf::String>(string, "CFStringGetCharacters").units;
    const auto length = static_cast<CFIndex>(units.size());
    if (range.location < 0 || range.length < 0 || range.location > length || range.length > length - range.location)
        cf::misuse("CFStringGetCharacters");
    std::copy_n(units.begin() + range.location, range.length, buffer);
}

CFStringRef __CFStringMakeConstantString(const char* text)
{
    // Never freed, and still reachable when the last static object goes: constants outlive everything.
    static auto& constants = *new std::map<std::string, const cf::String*, std::less<>>;
    static std::mutex mutex;
    const std::scoped_lock lock(mutex);
    const cf::String*& constant = constants[text];
    if (constant == nullptr) {
        const std::string_view ascii = text;
        if (!std::all_of(ascii.begin(), ascii.end(),
                         [](char letter) { return static_cast<unsigned char>(letter) < 0x80; }))
            cf::misuse("CFSTR");
        constant = new cf::String(std::u16string(ascii.begin(), ascii.end()), cf::Object::Constant);
    }
    return cf::referenceTo<CFStringRef>(constant);
}
