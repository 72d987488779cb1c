#include "palette/rows/NumberRows.h"

#include <algorithm>
#include <array>
#include <string>

#include "framework/base/Hresult.h"
#include "host_sdk/KvDbUnits.h"
#include "palette/rows/RowReading.h"

namespace kvpalette {

namespace {

using NumberBuffer = std::array<wchar_t, KVDB_NUMBER_TEXT_SIZE>;

constexpr const wchar_t* c_numberControls[] = {L"KvPePropertyEditorNumeric",
                                               L"KvPePropertyEditorTOLMNumeric"};

std::wstring TextOfNumber(double number, KvPeNumericType type) {
    NumberBuffer text{};
    switch (type) {
        case PE_TOLM_ANGLE:
            kvdbAngToS(number, KVDB_CURRENT_SETTING, KVDB_CURRENT_SETTING, text.data());
            break;
        case PE_TOLM_RAW_ANGLE:
            kvdbRawAngToS(number, KVDB_CURRENT_SETTING, KVDB_CURRENT_SETTING, text.data());
            break;
        case PE_TOLM_NOUNITS:
            kvdbRToS(number, KVDB_DECIMAL_UNITS, KVDB_CURRENT_SETTING, text.data());
            break;
        default:
            kvdbRToS(number, KVDB_CURRENT_SETTING, KVDB_CURRENT_SETTING, text.data());
            break;
    }
    return text.data();
}

// Nothing for an object that has no number to show.
std::optional<std::wstring> TextOfEntry(const kvhost::PropertyRowEntry& entry, KvPeNumericType type) {
    const RowReading reading = ReadEntry(entry);
    return reading.state == RowState::Specific && reading.value.Is(VT_R8)
               ? std::optional<std::wstring>(TextOfNumber(reading.value.DoubleOr(0), type))
               : std::nullopt;
}

}  // namespace

// The table tells what a number means; without a word it is a distance.
std::optional<KvPeNumericType> NumericTypeOf(const kvhost::PropertyRow& row) {
    if (row.type != VT_R8) {
        return std::nullopt;
    }
    if ((row.flags & kvhost::PropertyAngle) != 0) {
        return PE_TOLM_ANGLE;
    }
    if ((row.flags & kvhost::PropertyRawAngle) != 0) {
        return PE_TOLM_RAW_ANGLE;
    }
    return (row.flags & kvhost::PropertyPlain) != 0 ? PE_TOLM_NOUNITS : PE_TOLM_DISTANCE;
}

bool PrintsOneNumber(const kvhost::PropertyRow& row) {
    const auto type = NumericTypeOf(row);
    const bool isNumberControl = std::find(std::begin(c_numberControls), std::end(c_numberControls),
                                           row.control) != std::end(c_numberControls);
    if (!type || !isNumberControl || row.entries.empty()) {
        return false;
    }
    const auto shared = TextOfEntry(row.entries.front(), *type);
    return shared && std::all_of(row.entries.begin() + 1, row.entries.end(),
                                 [&](const kvhost::PropertyRowEntry& entry) {
                                     return TextOfEntry(entry, *type) == shared;
                                 });
}

}  // namespace kvpalette
