#include <algorithm>
#include <array>

#include "refhost/automation/AttributeNoteDialog.h"
#include "refhost/automation/DynamicAttribute.h"

namespace kvhost {

namespace {

constexpr std::array c_kinds{
    // Notes of the drawing's maker: known by ids alone, as older extensions do it.
    DynamicAttributeKind{L"Remarks", true, true, false, false, nullptr, nullptr},
    DynamicAttributeKind{L"Inspection", false, true, true, false, ShowAttributeNoteDialog, nullptr},
    DynamicAttributeKind{L"Survey", false, false, true, false, nullptr, L"ShowSurvey"},
    DynamicAttributeKind{L"Source", false, false, false, true, nullptr, nullptr},
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
