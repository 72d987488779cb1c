#include "tests/unit/core/ControlBench.h"

namespace {

using kvtest::SelectionArrays;

class CKvPeCtrlBase_Preset : public kvtest::ControlTest {
protected:
    class Role final : public CKvPeFamilyRole {
    public:
        void PresetText(const CString& text) override { kvtest::Note(L"PresetText", text.Std()); }
        void PresetNumber(int number) override { kvtest::Note(L"PresetNumber", number); }
        bool GetChosenEntryText(CString&) override { return false; }
    };

    CKvPeCtrlBase_Preset() {
        control.SetFamilyRole(&role);
        Select(SelectionArrays().Add(&MakeObject(L"A")));
        host->Editor().PushCommand(L"CHANGE", 0x8000000);
    }

    // What the family is told when this value is written.
    kvtest::CallLines PresetsOf(VARIANT written) {
        journal.Clear();
        EXPECT_EQ(control.SetPropertyValue(&written, ValueType_Specific), S_OK);
        return kvtest::CallsOnly(journal, {"Preset"});
    }
    kvtest::CallLines PresetsOf(VARTYPE valueType, long long bits) {
        VARIANT written{};
        written.vt = valueType;
        written.llVal = bits;
        return PresetsOf(written);
    }

    Role role;
};

TEST_F(CKvPeCtrlBase_Preset, Text_IsHandedOver) {
    const fw::Variant text = fw::Variant::FromString(L"new");
    EXPECT_CALLS(PresetsOf(text.Get()), "PresetText new");
}

TEST_F(CKvPeCtrlBase_Preset, FloatingNumber_GivesTheLowHalfOfItsBits) {
    VARIANT number{};
    number.vt = VT_R8;
    number.dblVal = 1.1;  // 0x3FF199999999999A
    EXPECT_CALLS(PresetsOf(number), "PresetText -1717986918");
    number.dblVal = 2.0;
    EXPECT_CALLS(PresetsOf(number), "PresetText 0");
    VARIANT shortNumber{};
    shortNumber.vt = VT_R4;
    shortNumber.fltVal = 1.0F;  // 0x3F800000
    EXPECT_CALLS(PresetsOf(shortNumber), "PresetText 1065353216");
}

TEST_F(CKvPeCtrlBase_Preset, WholeNumber_KeepsItsLow16Bits) {
    EXPECT_CALLS(PresetsOf(VT_I2, -3), "PresetNumber -3");
    EXPECT_CALLS(PresetsOf(VT_I4, 0x12345), "PresetNumber 9029");
    EXPECT_CALLS(PresetsOf(VT_I8, 0x1FFFF), "PresetNumber -1");
    EXPECT_CALLS(PresetsOf(VT_INT, 7), "PresetNumber 7");
}

TEST_F(CKvPeCtrlBase_Preset, OtherTypes_AreNotPreset) {
    for (const VARTYPE valueType : {VT_EMPTY, VT_BOOL, VT_UI4, VT_CY, VT_DATE}) {
        EXPECT_TRUE(PresetsOf(static_cast<VARTYPE>(valueType), 0).empty()) << valueType;
    }
}

TEST_F(CKvPeCtrlBase_Preset, Array_IsNotPreset) {
    EXPECT_TRUE(PresetsOf(VT_ARRAY | VT_BSTR, 0).empty());
    EXPECT_TRUE(PresetsOf(VT_ARRAY, 0).empty());
}

TEST_F(CKvPeCtrlBase_Preset, LivePreview_PresetsNothing) {
    host->Editor().SetPreviewStarted(true);
    EXPECT_TRUE(PresetsOf(VT_I4, 7).empty());
}

TEST_F(CKvPeCtrlBase_Preset, NoCommandThatWritesProperties_PresetsNothing) {
    host->Editor().PopCommand();
    host->Editor().PushCommand(L"LINE", 1);
    EXPECT_TRUE(PresetsOf(VT_I4, 7).empty());
}

TEST_F(CKvPeCtrlBase_Preset, ControlWithoutFamily_PresetsNothing) {
    control.SetFamilyRole(nullptr);
    EXPECT_TRUE(PresetsOf(VT_I4, 7).empty());
}

}  // namespace
