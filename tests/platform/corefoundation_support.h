// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Gives up one reference at the end of its scope.
template <typename Reference>
class Owned
{
public:
    explicit Owned(Reference reference) : m_reference(reference) {}
    ~Owned()
    {
        if (m_reference != nullptr)
            CFRelease(m_reference);
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;

    Reference get() const { return m_reference; }

private:
    const Reference m_reference;
};

using OwnedString = Owned<CFStringRef>;
using OwnedData = Owned<CFDataRef>;
using OwnedArray = Owned<CFArrayRef>;
using OwnedDictionary = Owned<CFDictionaryRef>;

/// A new string; the caller owns it.
inline CFStringRef newString(std::u16string_view text)
{
    return CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(text.data()),
                                   static_cast<CFIndex>(text.size() * sizeof(char16_t)), kCFStringEncodingUnicode, 0);
}

/// A new string from bytes in an encoding, null when they are none; the caller owns it.
inline CFStringRef decoded(const std::vector<UInt8>& bytes, CFStringEncoding encoding, bool external = false)
{
    return CFStringCreateWithBytes(kCFAllocatorDefault, bytes.data(), static_cast<CFIndex>(bytes.size()), encoding,
                                   external ? 1 : 0);
}

/// New data; the caller owns it.
inline CFDataRef newData(std::string_view bytes)
{
    return CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bytes.data()),
                        static_cast<CFIndex>(bytes.size()));
}

inline std::u16string textOf(CFStringRef string)
{
    const CFIndex length = CFStringGetLength(string);
    std::vector<UniChar> units(static_cast<std::size_t>(length));
    CFStringGetCharacters(string, CFRange{0, length}, units.data());
    return {units.begin(), units.end()};
}

inline std::vector<UInt8> bytesOf(CFDataRef data)
{
    return {CFDataGetBytePtr(data), CFDataGetBytePtr(data) + CFDataGetLength(data)};
}
