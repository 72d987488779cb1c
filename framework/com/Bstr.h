#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

namespace fw {

/// Owns a BSTR. A null BSTR is an empty text.
class FW_API Bstr {
public:
    Bstr() noexcept = default;
    /// Throws bad_alloc when there is no memory for the copy.
    explicit Bstr(std::wstring_view text);
    Bstr(const Bstr& other);
    Bstr(Bstr&& other) noexcept;
    ~Bstr() {
        if (m_text) {
            ::SysFreeString(m_text);
        }
    }
    Bstr& operator=(const Bstr& other);
    Bstr& operator=(Bstr&& other) noexcept;

    BSTR Get() const noexcept { return m_text; }
    /// Frees what is held and gives the place for an out argument.
    BSTR* Put() noexcept;
    /// The place for an argument that goes in and comes out: the callee may free the text and put another one
    /// in.
    BSTR* Exchange() noexcept { return &m_text; }
    /// Takes over a BSTR that the caller owns.
    void Attach(BSTR text) noexcept;
    /// Hands the BSTR to the caller.
    [[nodiscard]] BSTR Detach() noexcept;
    void Reset() noexcept;
    void swap(Bstr& other) noexcept { std::swap(m_text, other.m_text); }

    std::size_t Length() const noexcept { return ::SysStringLen(m_text); }
    bool IsEmpty() const noexcept { return Length() == 0; }
    std::wstring_view View() const noexcept { return ViewOf(m_text); }
    /// Never null: an absent text reads as an empty one.
    const wchar_t* Text() const noexcept { return m_text ? m_text : L""; }

    /// Puts a copy into an out argument: E_POINTER for a null place, E_OUTOFMEMORY when there is no memory.
    [[nodiscard]] HRESULT CopyTo(BSTR* result) const noexcept;
    /// The text of a BSTR that somebody else owns, embedded null characters included.
    static std::wstring_view ViewOf(BSTR text) noexcept;

private:
    BSTR m_text = nullptr;
};

/// Makes a BSTR for an out argument: E_POINTER for a null place, E_OUTOFMEMORY when there is no memory.
[[nodiscard]] FW_API HRESULT MakeBstr(std::wstring_view text, BSTR* result) noexcept;

}  // namespace fw
