#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "framework/base/WindowsApi.h"

namespace fw {

/// Owns one reference to a component interface.
template <class T>
class ComPtr {
public:
    constexpr ComPtr() noexcept = default;
    constexpr ComPtr(std::nullptr_t) noexcept {}
    /// Adds a reference of its own.
    ComPtr(T* object) noexcept : m_object(object) { AddRefOf(m_object); }
    ComPtr(const ComPtr& other) noexcept : ComPtr(other.m_object) {}
    ComPtr(ComPtr&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    template <class U>
    requires std::is_convertible_v<U*, T*> ComPtr(const ComPtr<U>& other)
    noexcept : ComPtr(static_cast<T*>(other.Get())) {}
    ~ComPtr() { Reset(); }

    ComPtr& operator=(const ComPtr& other) noexcept {
        ComPtr(other).Swap(*this);
        return *this;
    }
    ComPtr& operator=(ComPtr&& other) noexcept {
        ComPtr(std::move(other)).Swap(*this);
        return *this;
    }
    ComPtr& operator=(T* object) noexcept {
        ComPtr(object).Swap(*this);
        return *this;
    }
    ComPtr& operator=(std::nullptr_t) noexcept {
        Reset();
        return *this;
    }

    T* Get() const noexcept { return m_object; }
    T* operator->() const noexcept { return m_object; }
    T& operator*() const noexcept { return *m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    /// Releases what is held and gives the place for an out argument.
    T** Put() noexcept {
        Reset();
        return &m_object;
    }
    /// The same for out arguments of type void**.
    void** PutVoid() noexcept { return reinterpret_cast<void**>(Put()); }

    /// Takes over a reference that the caller holds.
    void Attach(T* object) noexcept {
        T* const previous = std::exchange(m_object, object);
        ReleaseOf(previous);
    }
    /// Hands the reference to the caller.
    [[nodiscard]] T* Detach() noexcept { return std::exchange(m_object, nullptr); }
    /// The member is cleared before Release, which may come back here.
    void Reset() noexcept { ReleaseOf(std::exchange(m_object, nullptr)); }
    void Swap(ComPtr& other) noexcept { std::swap(m_object, other.m_object); }

    /// Asks for another interface; null when the object does not have it.
    template <class U>
    [[nodiscard]] ComPtr<U> As() const noexcept {
        ComPtr<U> result;
        static_cast<void>(QueryTo(result.Put()));
        return result;
    }
    /// Asks for another interface and tells the result; E_POINTER when nothing is held.
    template <class U>
    HRESULT QueryTo(U** result) const noexcept {
        *result = nullptr;
        return m_object ? m_object->QueryInterface(__uuidof(U), reinterpret_cast<void**>(result)) : E_POINTER;
    }
    /// Gives the caller a reference of its own, as an out argument does.
    template <class U>
    HRESULT CopyTo(U** result) const noexcept {
        *result = m_object;
        AddRefOf(m_object);
        return S_OK;
    }

private:
    static void AddRefOf(T* object) noexcept {
        if (object) {
            object->AddRef();
        }
    }
    static void ReleaseOf(T* object) noexcept {
        if (object) {
            object->Release();
        }
    }

    T* m_object = nullptr;
};

template <class T, class U>
bool operator==(const ComPtr<T>& left, const ComPtr<U>& right) noexcept {
    return left.Get() == right.Get();
}
template <class T>
bool operator==(const ComPtr<T>& left, std::nullptr_t) noexcept {
    return left.Get() == nullptr;
}

/// Asks a bare pointer for another interface; null when it is null or does not have it.
template <class U>
[[nodiscard]] ComPtr<U> QueryFrom(IUnknown* object) noexcept {
    ComPtr<U> result;
    if (object) {
        static_cast<void>(object->QueryInterface(__uuidof(U), result.PutVoid()));
    }
    return result;
}

/// Whether two pointers stand for one object: their IUnknown is the same.
[[nodiscard]] inline bool IsSameObject(IUnknown* left, IUnknown* right) noexcept {
    return QueryFrom<IUnknown>(left) == QueryFrom<IUnknown>(right);
}

}  // namespace fw
