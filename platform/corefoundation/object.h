// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <atomic>
#include <string>

namespace cf {

/// Ends the program with a line that says what was misused. The real framework crashes there too, later or sooner.
[[noreturn]] void misuse(const char* what);

/// What stands behind every reference: a type, a number of references, comparison and description. References are
/// counted atomically, so immutable objects may be shared between threads; nothing else is locked.
class Object
{
public:
    enum Lifetime { Counted, Constant };

    explicit Object(CFTypeID type_, Lifetime lifetime_ = Counted);
    virtual ~Object();
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    /// Only called with an object of the same type.
    virtual bool equals(const Object& other) const = 0;
    virtual CFHashCode hash() const = 0;
    /// What CFShow prints.
    virtual std::u16string description() const = 0;

    void retain() const;
    void release() const;
    CFIndex retainCount() const;

    const CFTypeID type;

private:
    const Lifetime lifetime;
    mutable std::atomic<CFIndex> references{1};
};

enum TypeId : CFTypeID { StringType = 7, ArrayType = 18, DictionaryType = 17, DataType = 19 };

/// The object behind a reference; ends the program when there is none, or none any more.
const Object& objectOf(CFTypeRef reference, const char* caller);

/// The same, of a certain class.
template <typename Class>
const Class& as(CFTypeRef reference, const char* caller)
{
    const Object& object = objectOf(reference, caller);
    if (object.type != Class::typeId)
        misuse(caller);
    return static_cast<const Class&>(object);
}

/// The reference that stands for an object, without a change of its count.
template <typename Reference>
Reference referenceTo(const Object* object)
{
    return static_cast<Reference>(const_cast<void*>(static_cast<const void*>(object)));
}

} // namespace cf
