// SPDX-License-Identifier: Apache-2.0
#include "kit/rules/type_ids.h"

#include "core/type_ids.h"

#include <iterator>

namespace zepa {

QStringList builtInTypes()
{
    return {std::begin(ZepaTypeId::all), std::end(ZepaTypeId::all)};
}

} // namespace zepa
