#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace ravlin {

// Holds a +1 Core Foundation reference and releases it.
template <class T> class CFRef {
public:
    CFRef() = default;
    explicit CFRef(T ref) : m_ref(ref) {} // adopts a +1 reference
    CFRef(const CFRef&) = delete;
    CFRef& operator=(const CFRef&) = delete;
    CFRef(CFRef&& other) noexcept : m_ref(std::exchange(other.m_ref, nullptr)) {}
    CFRef& operator=(CFRef&& other) noexcept
    {
        if (this != &other) {
            reset();
            m_ref = std::exchange(other.m_ref, nullptr);
        }
        return *this;
    }
    ~CFRef() { reset(); }

    static CFRef retain(T ref)
    {
        if (ref)
            CFRetain(ref);
        return CFRef(ref);
    }

    void reset(T ref = nullptr)
    {
        if (m_ref)
            CFRelease(m_ref);
        m_ref = ref;
    }
    T get() const { return m_ref; }
    explicit operator bool() const { return m_ref != nullptr; }

private:
    T m_ref = nullptr;
};

} // namespace ravlin
