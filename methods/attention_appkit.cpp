// SPDX-License-Identifier: Apache-2.0
#include "methods/taskbar_notification_method.h"

#include <objc/message.h>
#include <objc/runtime.h>

namespace {

/// NSInformationalRequest: the icon bounces once, and does not go on until the user comes.
constexpr unsigned long informationalRequest = 10;

/// objc_msgSend has no type of its own: every call goes through the type of the method that is called.
template <typename Result, typename... Arguments>
Result send(id receiver, const char* selector, Arguments... arguments)
{
    using Method = Result (*)(id, SEL, Arguments...);
    return reinterpret_cast<Method>(objc_msgSend)(receiver, sel_registerName(selector), arguments...);
}

id classNamed(const char* name)
{
    return reinterpret_cast<id>(objc_getClass(name));
}

/// Drained on every way out of the scope, exceptions included.
class AutoreleasePool
{
public:
    AutoreleasePool() : m_pool(send<id>(send<id>(classNamed("NSAutoreleasePool"), "alloc"), "init")) {}
    ~AutoreleasePool() { send<void>(m_pool, "drain"); }
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

private:
    id m_pool;
};

} // namespace

void bounceDockIcon()
{
    const AutoreleasePool pool;
    const id application = send<id>(classNamed("NSApplication"), "sharedApplication");
    // The answer is the number with which the request could be cancelled, which nobody does.
    send<long>(application, "requestUserAttention:", informationalRequest);
}
