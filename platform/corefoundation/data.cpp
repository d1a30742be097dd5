// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/data.h"

#include <functional>
#include <string_view>

namespace cf {

bool Data::equals(const Object& other) const
{
    return bytes == static_cast<const Data&>(other).bytes;
}

CFHashCode Data::hash() const
{
    return std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::u16string Data::description() const
{
    constexpr const char16_t* digits = u"0123456789abcdef";
    std::u16string text = u"<";
    for (const UInt8 byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 0x0f];
    }
    return text + u">";
}

CFDataRef createData(std::vector<UInt8> bytes)
{
    return referenceTo<CFDataRef>(new Data(std::move(bytes)));
}

} // namespace cf

CFTypeID CFDataGetTypeID()
{
    return cf::Data::typeId;
}

CFDataRef CFDataCreate(CFAllocatorRef /*allocator*/, const UInt8* bytes, CFIndex length)
{
    if (length < 0 || (bytes == nullptr && length > 0))
        cf::misuse("CFDataCreate");
    return cf::createData(length == 0 ? std::vector<UInt8>() : std::vector<UInt8>(bytes, bytes + length));
}

const UInt8* CFDataGetBytePtr(CFDataRef data)
{
    return cf::as<cf::Data>(data, "CFDataGetBytePtr").bytes.data();
}

CFIndex CFDataGetLength(CFDataRef data)
{
    return static_cast<CFIndex>(cf::as<cf::Data>(data, "CFDataGetLength").bytes.size());
}
