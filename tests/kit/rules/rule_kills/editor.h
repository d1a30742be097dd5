// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QString>

/// How an editor works.
struct EditorPlan
{
    QString folder;
    /// Where its report goes, a file descriptor; what the lines are is said at the ledger.
    int report = -1;
    unsigned int seed = 0;
    /// Five types of its own in place of the built-in ones, so that their files fit on a small disk.
    bool fewTypes = false;
    /// How many rules a type may have before they are only changed and removed.
    int mostRules = 6;
    /// To end right after the start.
    bool editsNothing = false;
};

/// Starts as the client does, reports what rules it finds, and then changes rules without a pause through the module's
/// operations, one after the other, until it is killed; or until the disk did not take a
/// change that was made.
void runEditor(const EditorPlan& plan);
