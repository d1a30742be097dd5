// SPDX-License-Identifier: Apache-2.0
#include "host/plugin_action.h"

#include <utility>

class ZepaPluginActionData
{
public:
    explicit ZepaPluginActionData(std::function<void()> theWork) : work(std::move(theWork)) {}

    std::function<void()> work;
};

ZepaPluginAction::ZepaPluginAction() = default;

ZepaPluginAction::ZepaPluginAction(std::function<void()> work)
{
    if (work)
        d = std::make_shared<ZepaPluginActionData>(std::move(work));
}

ZepaPluginAction::ZepaPluginAction(const ZepaPluginAction& other) = default;
ZepaPluginAction::ZepaPluginAction(ZepaPluginAction&& other) noexcept = default;
ZepaPluginAction& ZepaPluginAction::operator=(const ZepaPluginAction& other) = default;
ZepaPluginAction& ZepaPluginAction::operator=(ZepaPluginAction&& other) noexcept = default;
ZepaPluginAction::~ZepaPluginAction() = default;

bool ZepaPluginAction::isValid() const
{
    return d != nullptr;
}

void ZepaPluginAction::operator()() const
{
    // The work may destroy this object: what it stands on has to outlive the call.
    const std::shared_ptr<ZepaPluginActionData> kept = d;
    if (kept)
        kept->work();
}
