// SPDX-License-Identifier: Apache-2.0
#include "corefoundation/object.h"

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace cf {

namespace {

/// The objects that exist: a reference to anything else was given up too often, or never was one.
///
/// Asked at every call of this interface, so it is a table of numbers behind a lock that never sleeps.
class LiveObjects
{
public:
    void add(const void* object)
    {
        const Lock lock(m_locked);
        if (2 * ++m_count > m_marks.size())
            grow();
        insert(markOf(object));
    }
    void remove(const void* object)
    {
        const Lock lock(m_locked);
        std::size_t hole = placeOf(markOf(object));
        if (m_marks[hole] == nobody)
            return;
        --m_count;
        // Whoever was pushed past the hole moves into it.
        for (std::size_t at = next(hole); m_marks[at] != nobody; at = next(at)) {
            const std::size_t home = homeOf(m_marks[at]);
            if (((at - home) & mask()) < ((at - hole) & mask()))
                continue;
            m_marks[hole] = m_marks[at];
            hole = at;
        }
        m_marks[hole] = nobody;
    }
    bool contains(const void* object) const
    {
        const Lock lock(m_locked);
        const std::uintptr_t mark = markOf(object);
        return m_marks[placeOf(mark)] == mark;
    }

private:
    class Lock
    {
    public:
        explicit Lock(std::atomic_flag& locked) : m_flag(locked)
        {
            while (m_flag.test_and_set(std::memory_order_acquire))
                std::this_thread::yield();
        }
        ~Lock() { m_flag.clear(std::memory_order_release); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;

    private:
        std::atomic_flag& m_flag;
    };

    static constexpr std::uintptr_t nobody = 0;

    /// Not the address itself: a leak checker would take that for a reference and find no leak any more.
    static std::uintptr_t markOf(const void* object) { return ~reinterpret_cast<std::uintptr_t>(object); }

    std::size_t mask() const { return m_marks.size() - 1; }
    std::size_t next(std::size_t place) const { return (place + 1) & mask(); }
    std::size_t homeOf(std::uintptr_t mark) const
    {
        constexpr std::uint64_t goldenRatio = 0x9E3779B97F4A7C15U;
        constexpr int upperHalf = 32;
        return static_cast<std::size_t>((mark * goldenRatio) >> upperHalf) & mask();
    }
    /// Where the mark is, or would come.
    std::size_t placeOf(std::uintptr_t mark) const
    {
        std::size_t place = homeOf(mark);
        while (m_marks[place] != mark && m_marks[place] != nobody)
            place = next(place);
        return place;
    }
    void insert(std::uintptr_t mark) { m_marks[placeOf(mark)] = mark; }
    void grow()
    {
        const std::vector<std::uintptr_t> marks = std::exchange(m_marks, std::vector(2 * m_marks.size(), nobody));
        for (const std::uintptr_t mark : marks) {
            if (mark != nobody)
                insert(mark);
        }
    }

    static constexpr std::size_t initialSize = 256; // a power of two, as every later one

    mutable std::atomic_flag m_locked;
    std::vector<std::uintptr_t> m_marks = std::vector(initialSize, nobody); ///< at most half full
    std::size_t m_count = 0;
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
