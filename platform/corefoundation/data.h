// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "corefoundation/object.h"

#include <utility>
#include <vector>

namespace cf {

/// Immutable bytes.
class Data : public Object
{
public:
    static constexpr CFTypeID typeId = DataType;

    explicit Data(std::vector<UInt8> bytes_) : Object(typeId), bytes(std::move(bytes_)) {}

    bool equals(const Object& other) const override;
    CFHashCode hash() const override;
    std::u16string description() const override;

    const std::vector<UInt8> bytes;
};

/// New data; the caller owns the reference.
CFDataRef createData(std::vector<UInt8> bytes);

} // namespace cf
