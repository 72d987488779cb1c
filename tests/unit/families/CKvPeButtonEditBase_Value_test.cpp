// The value of a button edit as the text that its row shows.
#include "families/CKvPeButtonEditBase.h"

#include "core/DispatchIds.h"
#include "tests/unit/core/ControlBench.h"

namespace {

using kvhost::ScriptedObject;
using kvtest::c_property;
using kvtest::SelectionArrays;

class OpenValueRow : public CKvPeButtonEditBase {
public:
    using CKvPeButtonEditBase::CKvPeButtonEditBase;
    using CKvPeButtonEditBase::m_nButtonSide;
    using CKvPeButtonEditBase::m_numericType;
};

VARIANT Tagged(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return value;
}

class ButtonRowValue : public kvtest::ControlTest {
protected:
    ScriptedObject& MakeObjectOf(const wchar_t* name, const fw::Variant& held, unsigned interfaces = 0) {
        ScriptedObject& object = MakeObject(name, L"", interfaces);
        object.At(c_property).Set(held.Get());
        return object;
    }
    void InitOne(const fw::Variant& held, unsigned interfaces = 0) {
        Init(SelectionArrays().Add(&MakeObjectOf(L"A", held, interfaces)));
    }
    void Init(const SelectionArrays& arrays) {
        EXPECT_EQ(arrays.Init(row), S_OK);
        journal.Clear();
    }
    HRESULT ReadRow() { return row.GetPropertyValue(value.Address(), type); }
    std::wstring Formatted(const VARIANT& number) {
        CString text(L"former");
        EXPECT_EQ(row.FormatValueText(text, number), S_OK);
        return std::wstring(text.View());
    }
    kvtest::CallLines Texts() const { return kvtest::CallsOnly(journal, {"GetDisplayString", "kvdbRToS"}); }

    OpenValueRow row{&shell, &shell};
};

TEST_F(ButtonRowValue, Construction_HasNoSideAndNoKindOfNumber) {
    EXPECT_EQ(row.m_nButtonSide, 0);
    EXPECT_EQ(row.m_numericType, PE_TOLM_OTHER);
}

TEST_F(ButtonRowValue, Read_GivesTheText) {
    InitOne(fw::Variant::FromLong(12));
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(type, ValueType_Specific);
    ASSERT_TRUE(value.Is(VT_BSTR));
    EXPECT_EQ(ValueText(), L"12");
}

TEST_F(ButtonRowValue, Read_Fails_VariantStaysAsItCame) {
    InitOne(fw::Variant::FromLong(12));
    objects[0]->At(c_property).getResult = E_ACCESSDENIED;
    value = fw::Variant::FromString(L"former");
    EXPECT_EQ(ReadRow(), E_ACCESSDENIED);
    EXPECT_EQ(ValueText(), L"former");
    EXPECT_EQ(row.GetPropertyValue(nullptr, type), E_POINTER);
}

TEST_F(ButtonRowValue, Read_NoObject_VariantStaysAsItCame) {
    value = fw::Variant::FromString(L"former");
    EXPECT_EQ(ReadRow(), E_FAIL);
    EXPECT_EQ(ValueText(), L"former");
}

TEST_F(ButtonRowValue, Read_Varies_IsATextToo) {
    Init(SelectionArrays()
             .Add(&MakeObjectOf(L"A", fw::Variant::FromLong(1)))
             .Add(&MakeObjectOf(L"B", fw::Variant::FromLong(2))));
    EXPECT_EQ(ReadRow(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
    EXPECT_TRUE(value.Is(VT_BSTR));
}

TEST_F(ButtonRowValue, Text_NobodyIsAskedForIt) {
    InitOne(fw::Variant::FromString(L"held"), kvhost::OffersBrowsing);
    objects[0]->At(c_property).displayString = L"display";
    EXPECT_EQ(Formatted(fw::Variant::FromString(L"given").Get()), L"given");
    EXPECT_NO_CALLS(journal);
}

TEST_F(ButtonRowValue, OtherValue_ItsObjectTellsTheText) {
    InitOne(fw::Variant::FromLong(7), kvhost::OffersBrowsing);
    objects[0]->At(c_property).displayString = L"seven";
    EXPECT_EQ(Formatted(fw::Variant::FromLong(7).Get()), L"seven");
    EXPECT_CALLS(Texts(), "GetDisplayString A 5");
}

TEST_F(ButtonRowValue, ObjectTellsNoText_NumberIsWritten) {
    InitOne(fw::Variant::FromDouble(2.5), kvhost::OffersBrowsing);
    EXPECT_EQ(Formatted(fw::Variant::FromDouble(2.5).Get()), L"2.5000");
    EXPECT_CALLS(Texts(), "GetDisplayString A 5", "kvdbRToS 2.5 -1 -1");
}

TEST_F(ButtonRowValue, DynamicProperty_IsAskedInPlaceOfTheObject) {
    for (const unsigned browsing : {0U, static_cast<unsigned>(kvhost::OffersBrowsing)}) {
        ScriptedObject& object = MakeObjectOf(L"A", fw::Variant::FromLong(7), kvhost::OffersBrowsing);
        object.At(DISPID_DYNAMIC).displayString = L"of the object";
        kvhost::ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject | browsing);
        property.shared.Set(7L);
        property.shared.displayString = L"of the property";
        Init(SelectionArrays().AddDynamic(&object, &property));
        EXPECT_EQ(Formatted(fw::Variant::FromLong(7).Get()), browsing != 0 ? L"of the property" : L"7");
        EXPECT_TRUE(kvtest::CallsOnly(journal, {"GetDisplayString A"}).empty());
        EXPECT_EQ(row.Cleanup(), S_OK);
    }
}

TEST_F(ButtonRowValue, Numbers_AreWrittenUnderTheirType) {
    InitOne(fw::Variant::FromLong(7));
    VARIANT number = Tagged(VT_I2);
    number.iVal = -2;
    EXPECT_EQ(Formatted(number), L"-2");
    number = Tagged(VT_I4);
    number.lVal = 70000;
    EXPECT_EQ(Formatted(number), L"70000");
    number = Tagged(VT_INT);
    number.intVal = 5;
    EXPECT_EQ(Formatted(number), L"5");
    number = Tagged(VT_R8);
    number.dblVal = 1.5;
    EXPECT_EQ(Formatted(number), L"1.5000");
    number.vt = VT_R4;  // read as the eight bytes of the field, as everywhere
    EXPECT_EQ(Formatted(number), L"1.5000");
}

TEST_F(ButtonRowValue, OtherTypes_HaveNoText) {
    InitOne(fw::Variant::FromLong(7));
    for (const VARTYPE other : {VT_EMPTY, VT_NULL, VT_BOOL, VT_I8, VT_UI4, VT_DATE, VT_ERROR}) {
        EXPECT_EQ(Formatted(Tagged(other)), L"") << other;
    }
    EXPECT_TRUE(Texts().empty());
}

TEST_F(ButtonRowValue, NumberWithoutUnits_IsDecimal) {
    InitOne(fw::Variant::FromDouble(2.5));
    for (const KvPeNumericType kind : {PE_TOLM_DISTANCE, PE_TOLM_ANGLE, PE_TOLM_NOUNITS, PE_TOLM_OTHER}) {
        journal.Clear();
        row.m_numericType = kind;
        EXPECT_EQ(Formatted(fw::Variant::FromDouble(2.5).Get()), L"2.5000");
        EXPECT_CALLS(Texts(), kind == PE_TOLM_NOUNITS ? "kvdbRToS 2.5 2 -1" : "kvdbRToS 2.5 -1 -1");
    }
}

TEST_F(ButtonRowValue, AnotherDocumentWorks_NumberHasNoText) {
    InitOne(fw::Variant::FromDouble(2.5));
    host->SetWorkingDatabase(&host->Documents().New().GetDatabase());
    EXPECT_EQ(Formatted(fw::Variant::FromDouble(2.5).Get()), L"");
}

TEST_F(ButtonRowValue, NoObject_NumberIsWrittenAndTheFailureTold) {
    CString text;
    EXPECT_EQ(row.FormatValueText(text, fw::Variant::FromLong(7).Get()), E_FAIL);
    EXPECT_EQ(text, L"7");
    EXPECT_EQ(row.FormatValueText(text, fw::Variant::FromString(L"given").Get()), S_OK);
    EXPECT_EQ(text, L"given");
}

}  // namespace
