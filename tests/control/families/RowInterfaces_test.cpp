#include "framework/base/Hresult.h"
#include "tests/control/support/RowContainer.h"
#include "tests/support/RowFont.h"
#include "tests/support/SentMessages.h"

namespace {

class TextRowInterfaces : public kvtest::RowContainer {
protected:
    static fw::Variant Color(OLE_COLOR color) { return fw::Variant::FromLong(static_cast<LONG>(color)); }

    OLE_COLOR BackColor() {
        OLE_COLOR color = 0;
        EXPECT_EQ(control->get_BackColor(&color), S_OK);
        return color;
    }
    OLE_COLOR ForeColor() {
        OLE_COLOR color = 0;
        EXPECT_EQ(control->get_ForeColor(&color), S_OK);
        return color;
    }
    OLE_COLOR ReadOnlyBackColor() {
        OLE_COLOR color = 0;
        EXPECT_EQ(control->get_ReadOnlyBackColor(&color), S_OK);
        return color;
    }
    OLE_COLOR ReadOnlyForeColor() {
        OLE_COLOR color = 0;
        EXPECT_EQ(control->get_ReadOnlyForeColor(&color), S_OK);
        return color;
    }
    IUnknown* Font() {
        fw::ComPtr<IUnknown> font;
        EXPECT_EQ(control->get_Font(font.Put()), S_OK);
        return font.Get();  // the control holds it
    }
};

TEST_F(TextRowInterfaces, Colours_Initially_AreThoseOfAWindow) {
    Create(CLSID_KvPePropertyEditorText);
    EXPECT_EQ(ForeColor(), 0u);
    EXPECT_EQ(ReadOnlyForeColor(), 0u);
    EXPECT_EQ(BackColor(), 0x80000005u);
    EXPECT_EQ(ReadOnlyBackColor(), 0x80000005u);
}

TEST_F(TextRowInterfaces, Colours_Put_AreGivenBack) {
    Create(CLSID_KvPePropertyEditorText);
    EXPECT_EQ(control->put_BackColor(1), S_OK);
    EXPECT_EQ(control->put_ForeColor(2), S_OK);
    EXPECT_EQ(control->put_ReadOnlyBackColor(3), S_OK);
    EXPECT_EQ(control->put_ReadOnlyForeColor(4), S_OK);
    EXPECT_EQ(BackColor(), 1u);
    EXPECT_EQ(ForeColor(), 2u);
    EXPECT_EQ(ReadOnlyBackColor(), 3u);
    EXPECT_EQ(ReadOnlyForeColor(), 4u);
}

TEST_F(TextRowInterfaces, Getters_NullPlace_GivePointerError) {
    Create(CLSID_KvPePropertyEditorText);
    EXPECT_EQ(control->get_BackColor(nullptr), E_POINTER);
    EXPECT_EQ(control->get_ForeColor(nullptr), E_POINTER);
    EXPECT_EQ(control->get_ReadOnlyBackColor(nullptr), E_POINTER);
    EXPECT_EQ(control->get_ReadOnlyForeColor(nullptr), E_POINTER);
    EXPECT_EQ(control->get_Font(nullptr), E_POINTER);
    EXPECT_EQ(control->get_KeepFocus(nullptr), E_POINTER);
    EXPECT_EQ(control->get_PropertyIdentifier(nullptr), E_POINTER);
    EXPECT_EQ(control->put_Font(nullptr), E_POINTER);
}

TEST_F(TextRowInterfaces, Activation_WindowMade_TakesTheFiveAmbientsInOrder) {
    Create(CLSID_KvPePropertyEditorText);
    const fw::ComPtr<IFont> font = kvtest::MakeRowFont(90000);
    site->ambients[DISPID_AMBIENT_BACKCOLOR] = Color(0x111111);
    site->ambients[-2000] = Color(0x333333);
    site->ambients[DISPID_AMBIENT_FORECOLOR] = Color(0x222222);
    site->ambients[-2001] = Color(0x444444);
    site->ambients[DISPID_AMBIENT_FONT] = fw::Variant::FromUnknown(font.Get());
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"Site.Ambient"}), "Site.Ambient -701", "Site.Ambient -2000",
                 "Site.Ambient -704", "Site.Ambient -2001", "Site.Ambient -703");
    EXPECT_EQ(BackColor(), 0x111111u);
    EXPECT_EQ(ForeColor(), 0x222222u);
    EXPECT_EQ(ReadOnlyBackColor(), 0x333333u);
    EXPECT_EQ(ReadOnlyForeColor(), 0x444444u);
    EXPECT_TRUE(fw::IsSameObject(Font(), font.Get()));
}

TEST_F(TextRowInterfaces, InitEditControl_AmbientsFirst_ThenTheRead) {
    Create(CLSID_KvPePropertyEditorText);
    EXPECT_EQ(InitEdit({&MakeObject(L"A", L"alpha")}), S_OK);
    EXPECT_CALLS(journal, "Site.Ambient -703", "Site.Ambient -704", "Site.Ambient -701", "Invoke A get 5");
}

TEST_F(TextRowInterfaces, InitEditControl_BadArguments_Fail) {
    Create(CLSID_KvPePropertyEditorText);
    EXPECT_EQ(control->InitEditControl(nullptr, nullptr, nullptr, VARIANT_FALSE), E_FAIL);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"Invoke"}), kvtest::CallLines{});
}

TEST_F(TextRowInterfaces, Refresh_ReadFails_SucceedsAndKeepsTheText) {
    CreateTextRow({L"alpha"});
    UIActivate();
    objects[0]->At(c_property).getResult = E_ACCESSDENIED;
    EXPECT_EQ(control->Refresh(0), S_OK);
    EXPECT_EQ(BoxText(), L"alpha");
}

TEST_F(TextRowInterfaces, Refresh_RepaintsTheWholeRow) {
    CreateTextRow({L"alpha"});
    ::UpdateWindow(Row());
    ::ValidateRect(Row(), nullptr);
    objects[0]->At(c_property).Set(L"beta");
    EXPECT_EQ(control->Refresh(99), S_OK);
    RECT dirty{};
    EXPECT_TRUE(::GetUpdateRect(Row(), &dirty, FALSE));
    EXPECT_EQ(CRect(dirty), CRect(0, 0, 120, 20));
    EXPECT_EQ(kvtest::CallsOnly(journal, {"Invoke"}), kvtest::CallLines{"Invoke A get 5"});
}

TEST_F(TextRowInterfaces, Refresh_TheGroundIsErasedToo) {
    CreateTextRow({L"alpha"});
    ::UpdateWindow(Row());
    const kvtest::SentMessages sent;
    EXPECT_EQ(control->Refresh(0), S_OK);
    ::UpdateWindow(Row());
    EXPECT_EQ(sent.To(Row(), {WM_ERASEBKGND}).size(), 1U);
}

TEST_F(TextRowInterfaces, SetValue_WritesAllObjects) {
    CreateTextRow({L"alpha", L"beta"});
    fw::Variant value = fw::Variant::FromString(L"gamma");
    EXPECT_EQ(control->SetValue(value.Address(), 0), S_OK);
    EXPECT_EQ(fw::Variant::ViewString(objects[0]->At(c_property).Get()), L"gamma");
    EXPECT_EQ(fw::Variant::ViewString(objects[1]->At(c_property).Get()), L"gamma");
    EXPECT_EQ(control->SetValue(value.Address(), 1), E_INVALIDARG);
    EXPECT_EQ(control->SetValue(nullptr, 0), E_POINTER);
}

TEST_F(TextRowInterfaces, LaunchDialog_FlagsOfTheButton_AreRefusedByARowWithoutButtons) {
    CreateTextRow({L"alpha"});
    const fw::Bstr text(L"alpha");
    EXPECT_EQ(control->LaunchDialog(text.Get(), 24), E_UNEXPECTED);
    EXPECT_EQ(control->LaunchDialog(text.Get(), 31), E_UNEXPECTED);
    EXPECT_NO_CALLS(journal);
}

TEST_F(TextRowInterfaces, LaunchDialog_NoFlag_IsRefused) {
    CreateTextRow({L"alpha"});
    const fw::Bstr text(L"alpha");
    EXPECT_EQ(control->LaunchDialog(text.Get(), 0), E_UNEXPECTED);
    EXPECT_EQ(control->LaunchDialog(text.Get(), 16), E_UNEXPECTED);
    EXPECT_NO_CALLS(journal);
}

TEST_F(TextRowInterfaces, LaunchDialog_FlagOfThePropertysDialog_AsksForIt) {
    CreateTextRow({L"alpha"});
    objects[0]->interfaces = kvhost::OffersBrowsing;
    objects[0]->At(c_property).pageResult = E_NOTIMPL;
    const fw::Bstr text(L"alpha");
    fw::Ignore(control->LaunchDialog(text.Get(), 8));  // the dialog's result is undefined beyond success
    EXPECT_EQ(kvtest::CallsOnly(journal, {"MapPropertyToPage"}).size(), 1u);
}

}  // namespace
