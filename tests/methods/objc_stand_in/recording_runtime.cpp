// SPDX-License-Identifier: Apache-2.0
#include "objc_stand_in/recording_runtime.h"

#include <objc/runtime.h>

#include <set>
#include <stdexcept>

std::vector<std::string> RecordingRuntime::messages;
std::string RecordingRuntime::throwingMessage;

namespace {

/// Classes, selectors and objects are their names here; a name has one address.
template <typename Handle>
Handle handleOf(const std::string& name)
{
    static std::set<std::string> names;
    return reinterpret_cast<Handle>(const_cast<char*>(names.insert(name).first->c_str()));
}

} // namespace

Class objc_getClass(const char* name)
{
    return handleOf<Class>(name);
}

SEL sel_registerName(const char* name)
{
    return handleOf<SEL>(name);
}

// The declaration for callers, which has no type, is not included here: every method that is sent takes at most one
// integer, and that one arrives as if it were always there. Where the method has none, it is not looked at.
extern "C" id objc_msgSend(id receiver, SEL selector, unsigned long argument);

id objc_msgSend(id receiver, SEL selector, unsigned long argument)
{
    const std::string name = reinterpret_cast<const char*>(selector);
    std::string message = std::string(reinterpret_cast<const char*>(receiver)) + ' ' + name;
    if (name.back() == ':')
        message += std::to_string(argument);
    RecordingRuntime::messages.push_back(message);
    if (name == RecordingRuntime::throwingMessage)
        throw std::runtime_error(message);
    return handleOf<id>(name == "sharedApplication" ? "app" : "pool");
}
