#pragma once

#include <string_view>

#include "framework/com/Variant.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/testing/ScriptedDynamicProperty.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/control/support/UserEdit.h"

namespace kvtest {

/// A property's value as a table can hold it: its type, and its text in the neutral locale.
struct ScenarioValue {
    VARTYPE type;
    const wchar_t* text;

    [[nodiscard]] fw::Variant Make() const;
    /// Whatever its type, the value reads the same.
    [[nodiscard]] bool IsSameAs(const fw::Variant& value) const;
};

/// What a row's initialisation answers when its arguments or its first read fail.
enum class InitAnswer {
    OfTheRead,  ///< the read's own failure
    Fail,       ///< E_FAIL for every failure
};

/// What the suites must know of one class, beyond its row in the class table, to lead the whole life of a
/// row.
struct ClassScenario {
    std::string_view coclass;

    // The property: two values that differ, and one that counts as the same as the first.
    ScenarioValue before;
    ScenarioValue alike;
    ScenarioValue after;
    /// How a user brings the second value into the row in edit.
    UserEdit edit;

    // An object of a drawing with that property.
    const wchar_t* objectClass;
    DISPID objectProperty;
    KvDbObjectId (*append)(kvhost::Database& database);

    // Where a class differs from the plain edit.

    InitAnswer initAnswer = InitAnswer::OfTheRead;
    /// The row reads in its window only; an initialisation without one answers E_FAIL and keeps the
    /// selection.
    bool readsInWindow = false;
    /// What LaunchDialog answers with the flags of the row's own button before the row has a window.
    HRESULT buttonAnswer = E_UNEXPECTED;
    /// SetValue takes texts of numbers and values of this type, and answers E_FAIL to all else; VT_ILLEGAL
    /// where it takes every value.
    VARTYPE numberType = VT_ILLEGAL;
    /// A value that is wider than the row is shown in a tip.
    bool hasTip = true;
    /// Puts into the drawing what the row offers, such as its layers.
    void (*arrange)(kvhost::Database& database) = nullptr;
    /// Lets a scripted object tell the entries of the property.
    void (*prepareObject)(kvhost::ScriptedObject& object, DISPID property) = nullptr;
    void (*prepareDynamicProperty)(kvhost::ScriptedDynamicProperty& property) = nullptr;

    /// Gives the scripted object the value, prepared.
    void Give(kvhost::ScriptedObject& object, DISPID property, const ScenarioValue& value) const;
    void Give(kvhost::ScriptedDynamicProperty& property, const ScenarioValue& value) const;
    void Arrange(kvhost::Database& database) const;
    /// The result of an initialisation, of a row without window, whose arguments, or else whose read, gave
    /// `result`.
    [[nodiscard]] HRESULT AnswerToInit(HRESULT result) const;

    // The drawn object's property, past all services: nothing is journalled, and nothing can be let fail.
    void SetDrawn(KvDbObjectId object, const ScenarioValue& value) const;
    [[nodiscard]] bool IsDrawn(KvDbObjectId object, const ScenarioValue& value) const;
};

}  // namespace kvtest
