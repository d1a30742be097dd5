// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <objc/runtime.h>

/// Has no type of its own, as in the runtime: to be called through a pointer of the called method's type.
extern "C" void objc_msgSend(void);
