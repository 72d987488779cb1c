#include "families/NumberText.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <cwctype>
#include <string_view>

#include "host_sdk/KvDbUnits.h"

namespace {

using NumberBuffer = std::array<wchar_t, KVDB_NUMBER_TEXT_SIZE>;

constexpr int c_decimal = 10;

bool IsIntegerType(unsigned short type) {
    return type == VT_I2 || type == VT_I4 || type == VT_I8 || type == VT_INT;
}

// Commas pass and group nothing: reading ends at the first one.
bool LooksLikeInteger(std::wstring_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(L' '), text.size()));
    if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) {
        text.remove_prefix(1);
    }
    return !text.empty() && std::all_of(text.begin(), text.end(), [](wchar_t character) {
        return std::iswdigit(character) != 0 || character == L',';
    });
}

void ReadInteger(const CString& text, unsigned short type, VARIANT& value) {
    value.vt = type;
    switch (type) {
        case VT_I2:
            value.iVal = static_cast<SHORT>(_wtoi(text));
            break;
        case VT_I4:
            value.lVal = _wtol(text);
            break;
        case VT_I8:
            value.llVal = _wtoi64(text);
            break;
        default:
            value.intVal = _wtoi(text);
            break;
    }
}

bool ReadReal(const CString& text, unsigned short type, VARIANT& value) {
    double number = 0;
    if (kvdbDisToF(text, KVDB_CURRENT_SETTING, &number) != KVED_RTNORM) {
        return false;
    }
    value.vt = type;
    if (type == VT_R4) {
        value.fltVal = static_cast<float>(number);
    } else {
        value.dblVal = number;
    }
    return true;
}

bool ReadNumber(const CString& text, unsigned short type, VARIANT& value) {
    if (IsIntegerType(type)) {
        if (LooksLikeInteger(text.View())) {
            ReadInteger(text, type, value);
            return true;
        }
        return false;
    }
    return (type == VT_R4 || type == VT_R8) && ReadReal(text, type, value);
}

}  // namespace

bool VariantToHostText(const VARIANT& value, CString& text) {
    text.Empty();
    if (!IsCurrentDocumentActive()) {
        return false;
    }
    NumberBuffer buffer{};
    switch (value.vt) {
        case VT_I2:
            _itow_s(value.iVal, buffer.data(), buffer.size(), c_decimal);
            break;
        case VT_INT:
            _itow_s(value.intVal, buffer.data(), buffer.size(), c_decimal);
            break;
        case VT_I4:
            _ltow_s(value.lVal, buffer.data(), buffer.size(), c_decimal);
            break;
        case VT_I8:
            _i64tow(value.llVal, buffer.data(), c_decimal);
            break;
        case VT_R4:
            // Deliberate: not widened. The row shows what the field says when it is read as a double.
        case VT_R8:
            kvdbRToS(value.dblVal, KVDB_CURRENT_SETTING, KVDB_CURRENT_SETTING, buffer.data());
            break;
        default:
            break;
    }
    text = buffer.data();
    return true;
}

bool NumberToTextByType(const VARIANT& value, CString& text, KvPeNumericType type) {
    text.Empty();
    if (!IsCurrentDocumentActive()) {
        return false;
    }
    NumberBuffer buffer{};
    switch (type) {
        case PE_TOLM_DISTANCE:
            kvdbRToS(value.dblVal, KVDB_CURRENT_SETTING, KVDB_CURRENT_SETTING, buffer.data());
            break;
        case PE_TOLM_ANGLE:
            kvdbAngToS(value.dblVal, KVDB_CURRENT_SETTING, KVDB_CURRENT_SETTING, buffer.data());
            break;
        case PE_TOLM_NOUNITS:
            kvdbRToS(value.dblVal, KVDB_DECIMAL_UNITS, KVDB_CURRENT_SETTING, buffer.data());
            break;
        case PE_TOLM_RAW_ANGLE:
            kvdbRawAngToS(value.dblVal, KVDB_CURRENT_SETTING, KVDB_CURRENT_SETTING, buffer.data());
            break;
        default:
            break;
    }
    text = buffer.data();
    return true;
}

bool TextToVariant(const CString& text, unsigned short type, VARIANT& value) {
    ::VariantClear(&value);
    if (ReadNumber(text, type, value)) {
        return true;
    }
    value.vt = VT_ERROR;
    return false;
}
