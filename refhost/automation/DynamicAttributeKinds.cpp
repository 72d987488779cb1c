#include <algorithm>
#include <array>

#include "refhost/automation/AttributeNoteDialog.h"
#include "refhost/automation/DynamicAttribute.h"

namespace kvhost {

namespace {

constexpr DynamicAttributeValue c_conditions[] = {{L"Good", L"good"}, {L"Fair", L"fair"}, {L"Poor", L"poor"}};
constexpr DynamicAttributeValue c_storeys[] = {
    {L"One storey", L"1"}, {L"Two storeys", L"2"}, {L"Three storeys", L"3"}};
constexpr DynamicAttributeValue c_access[] = {{L"Open to all", L"yes"}, {L"Private", L"no"}};

constexpr std::array c_kinds{
    // Notes of the drawing's maker: known by ids alone, as older extensions do it.
    DynamicAttributeKind{L"Remarks", true, true, false, false, nullptr, nullptr},
    DynamicAttributeKind{L"Inspection", false, true, true, false, ShowAttributeNoteDialog, nullptr},
    DynamicAttributeKind{L"Survey", false, false, true, false, nullptr, L"ShowSurvey"},
    DynamicAttributeKind{L"Source", false, false, false, true, nullptr, nullptr},
    DynamicAttributeKind{L"Condition", false, true, false, false, nullptr, nullptr, controls::Choice, VT_BSTR,
                         c_conditions},
    DynamicAttributeKind{L"Storeys", false, false, false, false, nullptr, nullptr, controls::Choice, VT_I4,
                         c_storeys},
    DynamicAttributeKind{L"Public", false, false, false, false, nullptr, nullptr, controls::Truth, VT_BOOL,
                         c_access},
};

constexpr DynamicAttributeKind c_plain{L"", false, false, false, false, nullptr, nullptr};

}  // namespace

const DynamicAttributeKind& KindOfAttribute(std::wstring_view name) {
    const auto found = std::find_if(c_kinds.begin(), c_kinds.end(),
                                    [&](const DynamicAttributeKind& kind) { return name == kind.name; });
    return found == c_kinds.end() ? c_plain : *found;
}

std::span<const DynamicAttributeKind> SpecialAttributeKinds() {
    return c_kinds;
}

}  // namespace kvhost
