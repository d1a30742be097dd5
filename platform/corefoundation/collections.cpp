// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/collections.h"

#include <algorithm>
#include <string>

namespace {

const void* retainObject(CFAllocatorRef /*allocator*/, const void* value)
{
    return CFRetain(value);
}

void releaseObject(CFAllocatorRef /*allocator*/, const void* value)
{
    CFRelease(value);
}

std::u16string countOf(const char16_t* noun, std::size_t count)
{
    const std::string digits = std::to_string(count);
    return std::u16string(noun) + u" of " + std::u16string(digits.begin(), digits.end());
}

} // namespace

// No descriptions of values: CFShow says only how many a collection holds.
const CFArrayCallBacks kCFTypeArrayCallBacks = {0, retainObject, releaseObject, nullptr, CFEqual};
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks = {0,       retainObject, releaseObject,
                                                                nullptr, CFEqual,      CFHash};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks = {0, retainObject, releaseObject, nullptr, CFEqual};

namespace cf {

Array::~Array()
{
    for (const void* value : values)
        rules.giveUp(value);
}

bool Array::equals(const Object& other) const
{
    const auto& array = static_cast<const Array&>(other);
    return std::equal(values.begin(), values.end(), array.values.begin(), array.values.end(),
                      [this](const void* one, const void* two) { return rules.areEqual(one, two); });
}

std::u16string Array::description() const
{
    return countOf(u"array", values.size());
}

Dictionary::~Dictionary()
{
    for (const auto& [key, value] : entries) {
        keyRules.giveUp(key);
        valueRules.giveUp(value);
    }
}

bool Dictionary::equals(const Object& other) const
{
    const auto& dictionary = static_cast<const Dictionary&>(other);
    return entries.size() == dictionary.entries.size() &&
           std::all_of(entries.begin(), entries.end(), [&](const auto& entry) {
               const void* const* value = dictionary.find(entry.first);
               return value != nullptr && valueRules.areEqual(entry.second, *value);
           });
}

std::u16string Dictionary::description() const
{
    return countOf(u"dictionary", entries.size());
}

void Dictionary::insert(const void* key, const void* value)
{
    if (find(key) == nullptr)
        entries.emplace_back(keyRules.take(key), valueRules.take(value));
}

const void* const* Dictionary::find(const void* key) const
{
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const auto& entry) { return keyRules.areEqual(entry.first, key); });
    return found == entries.end() ? nullptr : &found->second;
}

} // namespace cf

CFTypeID CFArrayGetTypeID()
{
    return cf::Array::typeId;
}

CFArrayRef CFArrayCreate(CFAllocatorRef /*allocator*/, const void** values, CFIndex numValues,
                         const CFArrayCallBacks* callBacks)
{
    if (numValues < 0 || (values == nullptr && numValues > 0))
        cf::misuse("CFArrayCreate");
    auto* array = new cf::Array(cf::ValueRules::of(callBacks), cf::Array::Immutable);
    for (CFIndex i = 0; i < numValues; ++i)
        array->append(values[i]);
    return cf::referenceTo<CFArrayRef>(array);
}

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef /*allocator*/, CFIndex capacity,
                                       const CFArrayCallBacks* callBacks)
{
    if (capacity < 0)
        cf::misuse("CFArrayCreateMutable");
    return cf::referenceTo<CFMutableArrayRef>(new cf::Array(cf::ValueRules::of(callBacks), cf::Array::Mutable));
}

void CFArrayAppendValue(CFMutableArrayRef array, const void* value)
{
    auto& target = const_cast<cf::Array&>(cf::as<cf::Array>(array, "CFArrayAppendValue"));
    if (target.change == cf::Array::Immutable)
        cf::misuse("CFArrayAppendValue");
    target.append(value);
}

CFIndex CFArrayGetCount(CFArrayRef array)
{
    return static_cast<CFIndex>(cf::as<cf::Array>(array, "CFArrayGetCount").values.size());
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index)
{
    const std::vector<const void*>& values = cf::as<cf::Array>(array, "CFArrayGetValueAtIndex").values;
    if (index < 0 || index >= static_cast<CFIndex>(values.size()))
        cf::misuse("CFArrayGetValueAtIndex");
    return values[static_cast<std::size_t>(index)];
}

CFTypeID CFDictionaryGetTypeID()
{
    return cf::Dictionary::typeId;
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef /*allocator*/, const void** keys, const void** values,
                                   CFIndex numValues, const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks)
{
    if (numValues < 0 || ((keys == nullptr || values == nullptr) && numValues > 0))
        cf::misuse("CFDictionaryCreate");
    auto* dictionary = new cf::Dictionary(cf::ValueRules::of(keyCallBacks), cf::ValueRules::of(valueCallBacks));
    for (CFIndex i = 0; i < numValues; ++i)
        dictionary->insert(keys[i], values[i]);
    return cf::referenceTo<CFDictionaryRef>(dictionary);
}

CFIndex CFDictionaryGetCount(CFDictionaryRef dictionary)
{
    return static_cast<CFIndex>(cf::as<cf::Dictionary>(dictionary, "CFDictionaryGetCount").entries.size());
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key)
{
    const void* const* value = cf::as<cf::Dictionary>(dictionary, "CFDictionaryGetValue").find(key);
    return value == nullptr ? nullptr : *value;
}
