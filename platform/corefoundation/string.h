// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "corefoundation/object.h"

#include <string>
#include <utility>

namespace cf {

/// Immutable text in UTF-16 units, which need not be well-formed.
class String : public Object
{
public:
    static constexpr CFTypeID typeId = StringType;

    explicit String(std::u16string units_, Lifetime lifetime_ = Counted)
        : Object(typeId, lifetime_), units(std::move(units_))
    {}

    bool equals(const Object& other) const override;
    CFHashCode hash() const override;
    std::u16string description() const override { return units; }

    const std::u16string units;
};

/// A new string; the caller owns the reference.
CFStringRef createString(std::u16string units);

} // namespace cf
