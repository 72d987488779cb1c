#include "tests/control/proofs/SweptRow.h"

namespace kvtest {
namespace {

constexpr SweptProperty c_dispid{"Dispid", {nullptr, nullptr, nullptr}};
// One dynamic property that is asked by object, and one that is asked by id and can be unspecified.
constexpr SweptProperty c_dynamic{"Dynamic", {L"Title", L"Remarks", L"Title"}};

}  // namespace

std::vector<SweptRow> SweptRows() {
    std::vector<SweptRow> rows;
    for (const AvailableClass& available : AvailableClasses()) {
        const ClassScenario& scenario = *available.scenario;
        rows.push_back({available, c_dispid});
        if (scenario.before.type == VT_BSTR && scenario.edit.way == EditWay::Type) {
            rows.push_back({available, c_dynamic});
        }
    }
    for (std::size_t index = 0; index < rows.size(); ++index) {
        rows[index].index = index;
    }
    return rows;
}

void PrintTo(const SweptRow& row, std::ostream* stream) {
    *stream << row.available.scenario->coclass << ' ' << row.property.name;
}

std::string NameOfSweptRow(const ::testing::TestParamInfo<SweptRow>& row) {
    return std::string(row.param.available.scenario->coclass) + "_" + row.param.property.name;
}

}  // namespace kvtest
