// SPDX-License-Identifier: Apache-2.0
// Growl's functions for a program without a bus: they run, take everything and show nothing. A program's definitions
// come before those of its libraries.
#include <Growl/Growl.h>

Boolean Growl_SetDelegate(struct Growl_Delegate* /*newDelegate*/)
{
    return true;
}

Boolean Growl_IsRunning()
{
    return true;
}

void Growl_PostNotification(const struct Growl_Notification* /*notification*/)
{}
