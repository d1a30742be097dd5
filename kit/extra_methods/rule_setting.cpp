// SPDX-License-Identifier: Apache-2.0
#include "kit/extra_methods/rule_setting.h"

#include <algorithm>

namespace zepa {

ZepaField ruleSetting(const QList<ZepaField>& config, const QString& id)
{
    const auto found =
        std::find_if(config.cbegin(), config.cend(), [&id](const ZepaField& field) { return field.getId() == id; });
    return found == config.cend() ? ZepaField() : *found;
}

} // namespace zepa
