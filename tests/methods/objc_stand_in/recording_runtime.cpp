// SPDX-License-Identifier: Apache-2.0
#include "objc_stand_in/recording_runtime.h"

#include <objc/message.h>
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

/// Every method that is called here takes at most one integer, which all calling conventions of a 64-bit machine leave
/// in the third register; a method without one leaves something there that is not looked at.
id recordMessage(id receiver, SEL selector, unsigned long argument)
{
    const std::string name = reinterpret_cast<const char*>(selector);
    std::string message = std::string(reinterpret_cast<const char*>(receiver)) + ' ' + name;
    if (name.back() == ':')
        message += std::to_string(argument);
    RecordingRuntime::messages.push_back(message);
    if (!RecordingRuntime::throwingMessage.empty() && name == RecordingRuntime::throwingMessage)
        throw std::runtime_error(message);
    return name == "sharedApplication" ? handleOf<id>("app") : handleOf<id>("pool");
}

} // namespace
