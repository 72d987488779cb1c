#pragma once

#include <utility>

#include "framework/base/Hresult.h"
#include "framework/com/CComModule.h"
#include "framework/com/ComObjectRoot.h"
#include "framework/com/ComPtr.h"
#include "framework/com/Guarded.h"
#include "framework/com/InterfaceMap.h"

/// Makes T (see fw::ComObjectRoot) a component object of the single-threaded model: reference count,
/// QueryInterface by T's interface array, and the module lock for as long as it lives.
template <class T>
class CComObject final : public T {
public:
    /// Makes an object with one reference, which the caller gets. A null module is not locked.
    [[nodiscard]] static HRESULT CreateInstance(CComModule* module, CComObject** result) noexcept {
        RETURN_IF_NULL_POINTER(result);
        *result = nullptr;
        return fw::Guarded([&] {
            auto* const object = new CComObject(module);
            object->m_references = 1;
            const HRESULT constructed = fw::Guarded([&] { return object->FinalConstruct(); });
            if (FAILED(constructed)) {
                object->Release();
                return constructed;
            }
            *result = object;
            return S_OK;
        });
    }

    /// Makes an object and asks it for an interface: what a class factory calls.
    [[nodiscard]] static HRESULT Create(CComModule* module, REFIID id, void** result) noexcept {
        RETURN_IF_NULL_POINTER(result);
        *result = nullptr;
        CComObject* object = nullptr;
        RETURN_IF_FAILED_EXPECTED(CreateInstance(module, &object));
        const HRESULT asked = object->QueryInterface(id, result);
        object->Release();
        return asked;
    }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** result) override {
        RETURN_IF_NULL_POINTER(result);
        *result = fw::FindInterface(T::Interfaces(), id, static_cast<T*>(this));
        RETURN_HR_IF(E_NOINTERFACE, *result == nullptr);
        ++m_references;
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }

    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --m_references;
        if (left == 0) {
            // What FinalRelease calls may take and give back references; they must not destroy the object
            // again.
            m_references = s_dying;
            fw::Ignore(fw::Guarded([this] {
                this->FinalRelease();
                return S_OK;
            }));
            CComModule* const module = m_module;
            delete this;
            if (module) {
                module->Unlock();
            }
        }
        return left;
    }

    // fw::ComObjectRoot
    IUnknown* GetUnknown() noexcept override {
        return static_cast<IUnknown*>(T::Interfaces().front().cast(static_cast<T*>(this)));
    }
    CComModule* GetModule() const noexcept override { return m_module; }

private:
    static constexpr ULONG s_dying = 0x40000000;

    explicit CComObject(CComModule* module) : m_module(module) {
        if (m_module) {
            m_module->Lock();
        }
    }

    CComModule* m_module;
    ULONG m_references = 0;
};
