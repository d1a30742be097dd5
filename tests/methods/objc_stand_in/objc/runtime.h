// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The part of the Objective-C runtime's C interface that a message from outside needs, with its own names and types.

extern "C" {

typedef struct objc_class* Class;
typedef struct objc_object* id;
typedef struct objc_selector* SEL;

/// Null for an unknown class.
Class objc_getClass(const char* name);
SEL sel_registerName(const char* name);
}
