// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace zepa::cli {

/// What `zepa` ends with. Shown by `zepa --help`: scripts rely on the numbers.
enum ExitCode {
    Success = 0,    ///< done; with `post --wait`: the pop-up was clicked
    Failure = 1,    ///< could not be done: no such rule, a file that cannot be written
    WrongUsage = 2, ///< the command line or the script is wrong; nothing was done
    NotClicked = 3, ///< `post --wait`: the pop-up went away without a click
    NotShown = 4,   ///< `post --wait`: there was no pop-up
    Busy = 6        ///< the running client has too many commands under way; nothing was done
};

} // namespace zepa::cli
