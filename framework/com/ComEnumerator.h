#pragma once

#include <span>
#include <utility>
#include <vector>

#include "framework/base/Hresult.h"
#include "framework/com/CComObject.h"

namespace fw {

/// A standard enumerator over a list that was complete when it was made. Traits name the interface and the
/// element:
///   using Interface = IEnumX; using Stored = ...; using Given = X;
///   static HRESULT Copy(const Stored& from, Given& to);  static void Destroy(Given& given);
/// A keeper holds the object that the elements belong to.
template <class Traits>
class ComEnumerator : public ComObjectRoot, public Traits::Interface {
public:
    using Interface = typename Traits::Interface;
    using Stored = typename Traits::Stored;
    using Given = typename Traits::Given;

    static std::span<const InterfaceEntry> Interfaces() {
        static constexpr std::array s_interfaces{Implements<ComEnumerator, Interface>()};
        return s_interfaces;
    }

    [[nodiscard]] static HRESULT Make(CComModule* module, std::vector<Stored> elements, IUnknown* keeper,
                                      Interface** result) noexcept {
        CComObject<ComEnumerator>* enumerator = nullptr;
        RETURN_IF_FAILED_EXPECTED(CComObject<ComEnumerator>::CreateInstance(module, &enumerator));
        enumerator->m_elements = std::move(elements);
        enumerator->m_keeper = keeper;
        *result = enumerator;
        return S_OK;
    }

    // The enumeration
    STDMETHODIMP Next(ULONG count, Given* elements, ULONG* fetched) override {
        if (fetched) {
            *fetched = 0;
        }
        RETURN_IF_NULL_POINTER(elements);
        RETURN_HR_IF(E_INVALIDARG, !fetched && count != 1);
        ULONG done = 0;
        while (done < count && m_position < m_elements.size()) {
            const HRESULT copied = Traits::Copy(m_elements[m_position], elements[done]);
            if (FAILED(copied)) {
                m_position -= done;
                while (done > 0) {
                    Traits::Destroy(elements[--done]);
                }
                return copied;
            }
            ++m_position;
            ++done;
        }
        if (fetched) {
            *fetched = done;
        }
        return done == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t left = m_elements.size() - m_position;
        m_position += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override {
        m_position = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(Interface** result) override {
        RETURN_IF_NULL_POINTER(result);
        *result = nullptr;
        return Guarded([&] {
            CComObject<ComEnumerator>* copy = nullptr;
            RETURN_IF_FAILED_EXPECTED(CComObject<ComEnumerator>::CreateInstance(GetModule(), &copy));
            ComPtr<Interface> holder;
            holder.Attach(copy);
            copy->m_elements = m_elements;
            copy->m_keeper = m_keeper;
            copy->m_position = m_position;
            *result = holder.Detach();
            return S_OK;
        });
    }

protected:
    ComEnumerator() = default;
    ~ComEnumerator() = default;

private:
    std::vector<Stored> m_elements;
    ComPtr<IUnknown> m_keeper;
    std::size_t m_position = 0;
};

}  // namespace fw
