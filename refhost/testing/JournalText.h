#pragma once

#include <string>
#include <type_traits>

#include "framework/base/WindowsApi.h"
#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"

namespace kvhost {

// The text forms of journal arguments: numbers in decimal, HRESULTs as 0x%08X, object ids by handle in
// hexadecimal, strings as they stand, null as "null", truth as 1 and 0.

/// Marks a number as a result code. The type alone does not tell: HRESULT and dispatch ids are both long.
struct ResultCode {
    HRESULT value;
};

[[nodiscard]] KVHOST_API std::wstring AsText(const wchar_t* text);
[[nodiscard]] KVHOST_API std::wstring AsText(const std::wstring& text);
[[nodiscard]] KVHOST_API std::wstring AsText(KvDbObjectId id);
[[nodiscard]] KVHOST_API std::wstring AsText(const VARIANT& value);
[[nodiscard]] KVHOST_API std::wstring AsText(double number);
[[nodiscard]] KVHOST_API std::wstring AsText(ResultCode code);

template <class Number>
requires(std::is_integral_v<Number> || std::is_enum_v<Number>) [[nodiscard]] std::wstring
    AsText(Number number) {
    return std::to_wstring(static_cast<long long>(number));
}

/// A text that costs something to make, made only when a journal wants it.
template <class Function>
requires(std::is_invocable_r_v<std::wstring, Function>) [[nodiscard]] std::wstring
    AsText(const Function& makeText) {
    return makeText();
}

[[nodiscard]] inline std::wstring JoinAsText() {
    return {};
}

template <class First, class... Rest>
[[nodiscard]] std::wstring JoinAsText(const First& first, const Rest&... rest) {
    std::wstring text = AsText(first);
    ((text += L' ', text += AsText(rest)), ...);
    return text;
}

}  // namespace kvhost
