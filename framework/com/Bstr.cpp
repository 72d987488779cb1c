#include "framework/com/Bstr.h"

#include <limits>
#include <new>
#include <utility>

#include "framework/base/Hresult.h"

namespace fw {

namespace {

BSTR CopyText(std::wstring_view text) noexcept {
    if (text.size() > std::numeric_limits<UINT>::max() / sizeof(wchar_t)) {
        return nullptr;
    }
    return ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

}  // namespace

Bstr::Bstr(std::wstring_view text) : m_text(CopyText(text)) {
    if (!m_text) {
        throw std::bad_alloc();
    }
}

Bstr::Bstr(const Bstr& other) {
    if (other.m_text) {
        Bstr(other.View()).swap(*this);
    }
}

Bstr::Bstr(Bstr&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {
}

Bstr& Bstr::operator=(const Bstr& other) {
    Bstr(other).swap(*this);
    return *this;
}

Bstr& Bstr::operator=(Bstr&& other) noexcept {
    Bstr(std::move(other)).swap(*this);
    return *this;
}

BSTR* Bstr::Put() noexcept {
    Reset();
    return &m_text;
}

void Bstr::Attach(BSTR text) noexcept {
    if (text != m_text) {
        Reset();
        m_text = text;
    }
}

BSTR Bstr::Detach() noexcept {
    return std::exchange(m_text, nullptr);
}

void Bstr::Reset() noexcept {
    ::SysFreeString(std::exchange(m_text, nullptr));
}

HRESULT Bstr::CopyTo(BSTR* result) const noexcept {
    return MakeBstr(View(), result);
}

std::wstring_view Bstr::ViewOf(BSTR text) noexcept {
    return text ? std::wstring_view(text, ::SysStringLen(text)) : L"";
}

HRESULT MakeBstr(std::wstring_view text, BSTR* result) noexcept {
    RETURN_IF_NULL_POINTER(result);
    *result = CopyText(text);
    return *result ? S_OK : E_OUTOFMEMORY;
}

}  // namespace fw
