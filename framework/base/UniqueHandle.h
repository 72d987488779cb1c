#pragma once

namespace fw {

// Sole owner of one system handle. The policy names the handle type, its empty value and how it is closed:
//   struct Policy { using Handle = ...; static Handle Null(); static void Close(Handle); };
template <class Policy>
class UniqueHandle {
public:
    using Handle = typename Policy::Handle;

    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) : m_handle(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : m_handle(other.Release()) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        Reset(other.Release());
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { Reset(); }

    Handle Get() const { return m_handle; }
    explicit operator bool() const { return m_handle != Policy::Null(); }

    // Closes what is held and takes the given handle.
    void Reset(Handle handle = Policy::Null()) {
        const Handle old = m_handle;
        m_handle = handle;
        if (old != Policy::Null() && old != handle) {
            Policy::Close(old);
        }
    }

    // Gives the handle away: the caller closes it.
    [[nodiscard]] Handle Release() {
        const Handle old = m_handle;
        m_handle = Policy::Null();
        return old;
    }

private:
    Handle m_handle = Policy::Null();
};

}  // namespace fw
