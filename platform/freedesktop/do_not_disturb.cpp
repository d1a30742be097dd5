// SPDX-License-Identifier: Apache-2.0
#include "do_not_disturb.h"

namespace zepa::freedesktop {

ZepaDoNotDisturb doNotDisturb(const QuietValues& values)
{
    if (values.inhibited == true || values.paused == true || values.dnd == true || values.showsBanners == false)
        return ZepaDoNotDisturb::On;
    const bool isTold = values.inhibited || values.paused || values.dnd || values.showsBanners;
    return isTold ? ZepaDoNotDisturb::Off : ZepaDoNotDisturb::NotTold;
}

} // namespace zepa::freedesktop
