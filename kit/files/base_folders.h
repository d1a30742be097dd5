// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// The user's folders of the XDG base directories, each with a separator at its end. As the rules for them say, a
/// variable that is unset, empty or no absolute path counts as its default.
namespace zepa {

/// $XDG_CONFIG_HOME/zepa/, by default ~/.config/zepa/.
QString configFolder();
/// $XDG_DATA_HOME/zepa/, by default ~/.local/share/zepa/.
QString dataFolder();
/// $XDG_STATE_HOME/zepa/, by default ~/.local/state/zepa/: for logs.
QString stateFolder();

} // namespace zepa
