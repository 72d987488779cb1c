#pragma once

#include <algorithm>

#include "tests/control/support/ClassScenario.h"

namespace kvtest {

// The drawn objects of the table.
KvDbObjectId AppendText(kvhost::Database& database);
KvDbObjectId AppendPolyline(kvhost::Database& database);

// What scripted objects and properties tell of a list's entries.
void TellDirections(kvhost::ScriptedObject& object, DISPID property);
void TellDirectionsOfProperty(kvhost::ScriptedDynamicProperty& property);
/// What the drawing offers to lists: the layers "Doors" and "Walls".
void AddLayers(kvhost::Database& database);

// Gives the property of a scripted object a dialog.
void PrepareDialog(kvhost::ScriptedObject& object, DISPID property);

// What rows of a kind have in common.

/// A text of a drawn text object, typed into a box.
constexpr ClassScenario TextRow(std::string_view coclass, DISPID property) {
    return {.coclass = coclass,
            .before = {VT_BSTR, L"before"},
            .alike = {VT_BSTR, L"BEFORE"},
            .after = {VT_BSTR, L"after"},
            .edit = Types(L"after"),
            .objectClass = L"Text",
            .objectProperty = property,
            .append = &AppendText};
}

/// As TextRow, with a button that opens the property's dialog.
constexpr ClassScenario DialogRow(std::string_view coclass, DISPID property, UserEdit edit) {
    ClassScenario row = TextRow(coclass, property);
    row.edit = edit;
    row.buttonAnswer = S_OK;
    row.prepareObject = &PrepareDialog;
    return row;
}

/// The height of a drawn text object, typed into a box.
constexpr ClassScenario NumberRow(std::string_view coclass, VARTYPE numberType) {
    return {.coclass = coclass,
            .before = {VT_R8, L"1.5"},
            .alike = {VT_R8, L"1.50001"},
            .after = {VT_R8, L"2.25"},
            .edit = Types(L"2.2500"),
            .objectClass = L"Text",
            .objectProperty = 233,
            .append = &AppendText,
            .buttonAnswer = S_OK,
            .numberType = numberType};
}

/// The direction of a drawn polyline, chosen from a list.
constexpr ClassScenario DirectionRow(std::string_view coclass) {
    return {.coclass = coclass,
            .before = {VT_I4, L"1"},
            .alike = {VT_I4, L"1"},
            .after = {VT_I4, L"0"},
            .edit = Chooses(0),
            .objectClass = L"Polyline",
            .objectProperty = 264,
            .append = &AppendPolyline,
            .initAnswer = InitAnswer::Fail,
            .prepareObject = &TellDirections,
            .prepareDynamicProperty = &TellDirectionsOfProperty};
}

constexpr ClassScenario WithoutTip(ClassScenario row) {
    row.hasTip = false;
    return row;
}

constexpr ClassScenario WithButtonAnswer(ClassScenario row, HRESULT answer) {
    row.buttonAnswer = answer;
    return row;
}

/// What each available class needs to join the suites. A class that is READY in core/ClassList.inc and has no
/// row here does not compile.
inline constexpr ClassScenario c_classScenarios[] = {
    TextRow("KvPePropertyEditorText", 231),
    WithoutTip(TextRow("KvPePropertyEditorPwdText", 231)),
    DirectionRow("KvPePropertyEditorEnum"),
    DirectionRow("KvPePropertyEditorSpinnerEnum"),
    {.coclass = "KvPePropertyEditorBool",
     .before = {VT_BOOL, L"0"},
     .alike = {VT_BOOL, L"0"},
     .after = {VT_BOOL, L"-1"},
     .edit = Chooses(0),
     .objectClass = L"Polyline",
     .objectProperty = 263,
     .append = &AppendPolyline,
     .initAnswer = InitAnswer::Fail},
    WithButtonAnswer(TextRow("KvPePropertyEditorTextEx", 231), S_OK),
    DialogRow("KvPePropertyEditorEditButton", 104, Types(L"after")),
    DialogRow("KvPePropertyEditorEllipses", 104, PressesAndTypes(L"after")),
    DialogRow("KvPePropertyEditorEllipsesHyperlinks", 105, PressesAndTypes(L"after")),
    NumberRow("KvPePropertyEditorNumeric", VT_R8),
    // It never asks for the type of its property.
    NumberRow("KvPePropertyEditorTOLMNumeric", VT_EMPTY),
    {.coclass = "KvPePropertyEditorLayer",
     .before = {VT_BSTR, L"Doors"},
     .alike = {VT_BSTR, L"DOORS"},
     .after = {VT_BSTR, L"Walls"},
     .edit = Chooses(2),
     .objectClass = L"Text",
     .objectProperty = 102,
     .append = &AppendText,
     .initAnswer = InitAnswer::Fail,
     .readsInWindow = true,
     .arrange = &AddLayers},
};

/// The row of a class; null when it has none.
constexpr const ClassScenario* FindScenario(std::string_view coclass) {
    const auto* const found = std::ranges::find(c_classScenarios, coclass, &ClassScenario::coclass);
    return found == std::end(c_classScenarios) ? nullptr : found;
}

#define KV_CHECK_SCENARIO_READY(coclassName)             \
    static_assert(FindScenario(#coclassName) != nullptr, \
                  #coclassName " is READY: give it a row in c_classScenarios");
#define KV_CHECK_SCENARIO_LATER(coclassName)
#define KVPE_CLASS(coclassName, version, classId, className, state, description, further) \
    KV_CHECK_SCENARIO_##state(coclassName)
#include "core/ClassList.inc"
#undef KVPE_CLASS
#undef KV_CHECK_SCENARIO_READY
#undef KV_CHECK_SCENARIO_LATER

}  // namespace kvtest
