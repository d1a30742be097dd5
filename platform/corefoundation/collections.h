// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "corefoundation/object.h"

#include <utility>
#include <vector>

namespace cf {

/// How a collection treats its values: the functions of the call-backs that it was made with, null where it was given
/// none.
struct ValueRules
{
    CFArrayRetainCallBack retain = nullptr;
    CFArrayReleaseCallBack release = nullptr;
    CFArrayEqualCallBack equal = nullptr;

    template <typename CallBacks>
    static ValueRules of(const CallBacks* callBacks)
    {
        return callBacks == nullptr ? ValueRules()
                                    : ValueRules{callBacks->retain, callBacks->release, callBacks->equal};
    }
    const void* take(const void* value) const { return retain != nullptr ? retain(nullptr, value) : value; }
    void giveUp(const void* value) const
    {
        if (release != nullptr)
            release(nullptr, value);
    }
    bool areEqual(const void* one, const void* other) const
    {
        return one == other || (equal != nullptr && equal(one, other) != 0);
    }
};

class Array : public Object
{
public:
    static constexpr CFTypeID typeId = ArrayType;
    enum Change { Immutable, Mutable };

    Array(const ValueRules& rules_, Change change_) : Object(typeId), rules(rules_), change(change_) {}
    ~Array() override;

    bool equals(const Object& other) const override;
    CFHashCode hash() const override { return values.size(); }
    std::u16string description() const override;

    void append(const void* value) { values.push_back(rules.take(value)); }

    const ValueRules rules;
    const Change change;
    std::vector<const void*> values;
};

class Dictionary : public Object
{
public:
    static constexpr CFTypeID typeId = DictionaryType;

    Dictionary(const ValueRules& keyRules_, const ValueRules& valueRules_)
        : Object(typeId), keyRules(keyRules_), valueRules(valueRules_)
    {}
    ~Dictionary() override;

    bool equals(const Object& other) const override;
    CFHashCode hash() const override { return entries.size(); }
    std::u16string description() const override;

    /// Does nothing when there is an equal key.
    void insert(const void* key, const void* value);
    /// The address of the entry's value; null when there is no such key.
    const void* const* find(const void* key) const;

    const ValueRules keyRules;
    const ValueRules valueRules;
    /// A handful of entries, so a walk finds them faster than a hash.
    std::vector<std::pair<const void*, const void*>> entries;
};

} // namespace cf
