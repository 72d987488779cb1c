#pragma once

#include <string_view>

#include "framework/base/WindowsApi.h"

/// The texts that an object offers for a property's values, each with the cookie by which it tells the value.
class PredefinedStrings {
public:
    PredefinedStrings() = default;
    PredefinedStrings(const PredefinedStrings&) = delete;
    PredefinedStrings& operator=(const PredefinedStrings&) = delete;
    /// Deliberate: the host's objects make the texts as BSTRs, so that they are freed as such; the arrays are
    /// freed as any others.
    ~PredefinedStrings();

    /// To be called once.
    [[nodiscard]] HRESULT Read(IPerPropertyBrowsing& object, DISPID dispid);

    [[nodiscard]] ULONG Count() const;
    [[nodiscard]] std::wstring_view Text(ULONG index) const;
    [[nodiscard]] DWORD Cookie(ULONG index) const { return m_cookies.pElems[index]; }

private:
    CALPOLESTR m_strings{};
    CADWORD m_cookies{};
};
