#include "refhost/testing/JournalText.h"

#include <array>
#include <cwchar>

namespace kvhost {

namespace {

template <class... Values>
std::wstring Formatted(const wchar_t* format, Values... values) {
    std::array<wchar_t, 64> buffer{};
    const int length = std::swprintf(buffer.data(), buffer.size(), format, values...);
    return std::wstring(buffer.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
}

std::wstring BstrText(BSTR text) {
    return text == nullptr ? L"null" : L'"' + std::wstring(text, ::SysStringLen(text)) + L'"';
}

}  // namespace

std::wstring AsText(const wchar_t* text) {
    return text == nullptr ? L"null" : text;
}

std::wstring AsText(const std::wstring& text) {
    return text;
}

std::wstring AsText(KvDbObjectId id) {
    return id.isNull() ? L"null" : Formatted(L"%llX", static_cast<unsigned long long>(id.handle()));
}

std::wstring AsText(ResultCode code) {
    return Formatted(L"0x%08lX", static_cast<unsigned long>(code.value));
}

std::wstring AsText(double number) {
    // The shortest of the two forms that reads back as the same number.
    const std::wstring text = Formatted(L"%.15g", number);
    return std::wcstod(text.c_str(), nullptr) == number ? text : Formatted(L"%.17g", number);
}

std::wstring AsText(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
            return L"empty";
        case VT_NULL:
            return L"null";
        case VT_BSTR:
            return BstrText(value.bstrVal);
        case VT_BOOL:
            return value.boolVal == VARIANT_FALSE ? L"false" : L"true";
        case VT_I2:
            return L"i2:" + AsText(value.iVal);
        case VT_I4:
            return L"i4:" + AsText(value.lVal);
        case VT_INT:
            return L"int:" + AsText(value.intVal);
        case VT_I8:
            return L"i8:" + AsText(value.llVal);
        case VT_R4:
            return L"r4:" + AsText(static_cast<double>(value.fltVal));
        case VT_R8:
            return L"r8:" + AsText(value.dblVal);
        case VT_ERROR:
            return L"error:" + AsText(ResultCode{value.scode});
        default:
            return Formatted(L"vt:0x%04X", static_cast<unsigned>(value.vt));
    }
}

}  // namespace kvhost
