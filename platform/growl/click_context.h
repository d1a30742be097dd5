// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace zepa::growl {

/// What is handed back when a pop-up is answered, and to which registration. Holds a reference of its own on the
/// context for as long as it lives.
class ClickContext
{
public:
    using CallBack = void (*)(CFPropertyListRef);

    /// Null: nobody wants an answer.
    ClickContext() = default;
    /// `context` may be null; `ofThisPopup` is what a click on it calls and may be null too; `generation` is the
    /// registration's.
    explicit ClickContext(CFPropertyListRef context, CallBack ofThisPopup = nullptr, int generation = 0)
        : m_context(context), m_clickCallBack(ofThisPopup), m_generation(generation)
    {
        if (m_context != nullptr)
            CFRetain(m_context);
    }
    ClickContext(const ClickContext& other) : ClickContext(other.m_context, other.m_clickCallBack, other.m_generation)
    {}
    ClickContext(ClickContext&& other) noexcept
        : m_context(std::exchange(other.m_context, nullptr))
        , m_clickCallBack(std::exchange(other.m_clickCallBack, nullptr))
        , m_generation(other.m_generation)
    {}
    ClickContext& operator=(ClickContext other) noexcept
    {
        std::swap(m_context, other.m_context);
        std::swap(m_clickCallBack, other.m_clickCallBack);
        std::swap(m_generation, other.m_generation);
        return *this;
    }
    ~ClickContext()
    {
        if (m_context != nullptr)
            CFRelease(m_context);
    }

    bool isNull() const { return m_context == nullptr; }
    CFPropertyListRef get() const { return m_context; }
    CallBack clickCallBack() const { return m_clickCallBack; }
    int generation() const { return m_generation; }

private:
    CFPropertyListRef m_context = nullptr;
    CallBack m_clickCallBack = nullptr;
    int m_generation = 0;
};

} // namespace zepa::growl
