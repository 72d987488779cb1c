#pragma once

#include "framework/com/Variant.h"
#include "numeric/CPropertyEditorNumeric.h"
#include "numeric/CPropertyEditorTOLMNumeric.h"
#include "refhost/editor/SystemVariables.h"
#include "tests/unit/core/ControlBench.h"

namespace kvtest {

/// A number row with its fields open.
template <class Row>
class OpenNumberRow : public Row {
public:
    using Row::m_allowUnspecified;
    using Row::m_buttons;
    using Row::m_expressionState;
    using Row::m_nButtonSide;
    using Row::m_numericType;
    using Row::m_propertyVarType;
    using Row::m_unspecifiedText;
    using Row::ProbePropertyValueType;
    using Row::Row;

    [[nodiscard]] const CustomButton* Button(WORD id) const { return this->FindButton(id); }
};

/// A number row over scripted objects, in a host with one drawing.
template <class Row>
class NumberRowTest : public ControlTest {
protected:
    kvhost::ScriptedObject& MakeNumber(const wchar_t* name, double number, unsigned interfaces = 0) {
        kvhost::ScriptedObject& object = MakeObject(name, L"", interfaces);
        object.At(c_property).Set(number);
        return object;
    }
    /// Hands the arrays over and clears the journal.
    void Init(const SelectionArrays& arrays) {
        EXPECT_EQ(arrays.Init(row), S_OK);
        journal.Clear();
    }
    HRESULT ReadRow() { return row.GetPropertyValue(value.Put(), type); }
    HRESULT WriteRow(const wchar_t* text, ValueType valueType = ValueType_Specific) {
        fw::Variant written = fw::Variant::FromString(text);
        return row.SetPropertyValue(written.Address(), valueType);
    }
    HRESULT WriteRow(const fw::Variant& written, ValueType valueType = ValueType_Specific) {
        fw::Variant copy = written;
        return row.SetPropertyValue(copy.Address(), valueType);
    }
    int Compare(const fw::Variant& first, const fw::Variant& second) {
        fw::Variant left = first;
        fw::Variant right = second;
        int result = 5;
        EXPECT_EQ(row.ComparePropertyValue(left.Address(), right.Address(), result), S_OK);
        return result;
    }
    void SetVariable(const wchar_t* name, int number) {
        EXPECT_EQ(host->Variables().Set(name, number), kvhost::SystemVariables::Outcome::Done);
        journal.Clear();
    }
    void MakeAnotherDocumentWork() {
        host->SetWorkingDatabase(&host->Documents().New().GetDatabase());
        journal.Clear();
    }
    /// The reads and writes of the property, and the host's conversions.
    [[nodiscard]] CallLines NumberCalls() const {
        return CallsOnly(journal, {"Invoke", "kvdbRToS", "kvdbAng", "kvdbRaw", "kvdbDis", "SetUnspecified",
                                   "SetExpression", "GetCurrentValue", "SetCurrentValue"});
    }
    kvhost::ScriptedObject& First() { return *objects.front(); }
    kvhost::ScriptedValue& FirstValue() { return First().At(c_property); }

    OpenNumberRow<Row> row{&shell, &shell};
};

}  // namespace kvtest
