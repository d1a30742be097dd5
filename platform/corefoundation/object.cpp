// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/object.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <mutex>
#include <string>
#include <unordered_set>

namespace cf {

namespace {

/// The objects that exist: a reference to anything else was given up too often, or never was one.
class LiveObjects
{
public:
    void add(const void* object)
    {
        const std::scoped_lock lock(m_mutex);
        m_marks.insert(markOf(object));
    }
    void remove(const void* object)
    {
        const std::scoped_lock lock(m_mutex);
        m_marks.erase(markOf(object));
    }
    bool contains(const void* object) const
    {
        const std::scoped_lock lock(m_mutex);
        return m_marks.count(markOf(object)) != 0;
    }

private:
    /// Not the address itself: a leak checker would take that for a reference and find no leak any more.
    static std::uintptr_t markOf(const void* object) { return ~reinterpret_cast<std::uintptr_t>(object); }

    mutable std::mutex m_mutex;
    std::unordered_set<std::uintptr_t> m_marks;
};

/// Never deleted: objects may be released by the last destructors of a program.
LiveObjects& liveObjects()
{
    static LiveObjects& objects = *new LiveObjects;
    return objects;
}

} // namespace

void misuse(const char* what)
{
    std::fprintf(stderr, "CoreFoundation: %s was called with something that it cannot take\n", what);
    std::abort();
}

Object::Object(CFTypeID type_, Lifetime lifetime_) : type(type_), lifetime(lifetime_)
{
    liveObjects().add(this);
}

Object::~Object()
{
    liveObjects().remove(this);
}

void Object::retain() const
{
    if (lifetime == Counted)
        references.fetch_add(1, std::memory_order_relaxed);
}

void Object::release() const
{
    if (lifetime == Constant)
        return;
    const CFIndex before = references.fetch_sub(1, std::memory_order_acq_rel);
    // Less than 1 while the object is being destroyed, by a collection that holds itself.
    if (before < 1)
        misuse("CFRelease");
    if (before == 1)
        delete this;
}

CFIndex Object::retainCount() const
{
    return lifetime == Constant ? std::numeric_limits<CFIndex>::max() : references.load(std::memory_order_relaxed);
}

const Object& objectOf(CFTypeRef reference, const char* caller)
{
    if (reference == nullptr || !liveObjects().contains(reference))
        misuse(caller);
    return *static_cast<const Object*>(reference);
}

} // namespace cf

const CFAllocatorRef kCFAllocatorDefault = nullptr;

CFTypeRef CFRetain(CFTypeRef object)
{
    cf::objectOf(object, "CFRetain").retain();
    return object;
}

void CFRelease(CFTypeRef object)
{
    cf::objectOf(object, "CFRelease").release();
}

CFIndex CFGetRetainCount(CFTypeRef object)
{
    return cf::objectOf(object, "CFGetRetainCount").retainCount();
}

CFTypeID CFGetTypeID(CFTypeRef object)
{
    return cf::objectOf(object, "CFGetTypeID").type;
}

Boolean CFEqual(CFTypeRef one, CFTypeRef other)
{
    const cf::Object& left = cf::objectOf(one, "CFEqual");
    const cf::Object& right = cf::objectOf(other, "CFEqual");
    return &left == &right || (left.type == right.type && left.equals(right));
}

CFHashCode CFHash(CFTypeRef object)
{
    return cf::objectOf(object, "CFHash").hash();
}

void CFShow(CFTypeRef object)
{
    if (object == nullptr) {
        std::fputs("(null)\n", stderr);
        return;
    }
    constexpr char16_t firstBeyondAscii = 0x80;
    std::string line;
    for (const char16_t unit : cf::objectOf(object, "CFShow").description()) {
        if (unit < firstBeyondAscii) {
            line += static_cast<char>(unit);
        } else {
            char escaped[sizeof("\\uXXXX")];
            std::snprintf(escaped, sizeof(escaped), "\\u%04x", static_cast<unsigned>(unit));
            line += escaped;
        }
    }
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}
