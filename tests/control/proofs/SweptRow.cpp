#include "tests/control/proofs/SweptRow.h"

namespace kvtest {
namespace {

constexpr SweptProperty c_dispid{"Dispid", {nullptr, nullptr, nullptr}};
// One dynamic property that is asked by object, and one that is asked by id and can be unspecified.
constexpr SweptProperty c_dynamic{"Dynamic", {L"Title", L"Remarks", L"Title"}};

constexpr SweptProperty c_dialogByObjects{"DialogByObjects", {nullptr, nullptr, nullptr}, 104};
constexpr SweptProperty c_dialogByIds{"DialogByIds", {nullptr, nullptr, nullptr}, 105};
constexpr SweptProperty c_noteDialog{"NoteDialog", {L"Inspection", L"Remarks", L"Title"}};

bool ShowsTexts(const ClassScenario& scenario) {
    return scenario.before.type == VT_BSTR;
}

bool TakesTypedTexts(const ClassScenario& scenario) {
    return ShowsTexts(scenario) && scenario.edit.way == EditWay::Type;
}

bool IsAny(const ClassScenario&) {
    return true;
}

struct Offer {
    SweptProperty property;
    bool (*isFor)(const ClassScenario& scenario);
};

std::vector<SweptRow> RowsOver(std::initializer_list<Offer> offers) {
    std::vector<SweptRow> rows;
    for (const AvailableClass& available : AvailableClasses()) {
        for (const Offer& offer : offers) {
            if (offer.isFor(*available.scenario)) {
                rows.push_back({available, offer.property, rows.size()});
            }
        }
    }
    return rows;
}

}  // namespace

std::vector<SweptRow> SweptRows() {
    return RowsOver({{c_dispid, &IsAny}, {c_dynamic, &TakesTypedTexts}});
}

std::vector<SweptRow> DialogRows() {
    return RowsOver({{c_dialogByObjects, &ShowsTexts}, {c_dialogByIds, &ShowsTexts}});
}

std::vector<SweptRow> NoteDialogRows() {
    return RowsOver({{c_noteDialog, &TakesTypedTexts}});
}

ClassScenario ScenarioOf(const SweptRow& row) {
    ClassScenario scenario = *row.available.scenario;
    if (row.property.dispid != 0) {
        scenario.objectProperty = row.property.dispid;
    }
    return scenario;
}

void PrintTo(const SweptRow& row, std::ostream* stream) {
    *stream << row.available.scenario->coclass << ' ' << row.property.name;
}

std::string NameOfSweptRow(const ::testing::TestParamInfo<SweptRow>& row) {
    return std::string(row.param.available.scenario->coclass) + "_" + row.param.property.name;
}

}  // namespace kvtest
