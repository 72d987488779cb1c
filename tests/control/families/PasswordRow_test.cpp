#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

class PasswordRow : public kvtest::RowContainer {
protected:
    void CreatePasswordRow(const wchar_t* secret, bool readOnly = false) {
        Create(CLSID_KvPePropertyEditorPwdText);
        ASSERT_EQ(InitEdit({&MakeObject(L"A", secret)}, readOnly), S_OK);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        ::UpdateWindow(Row());
        kvtest::PumpWaiting();
        Clear();
    }
    HWND Masked() const { return Box(1049); }
};

TEST_F(PasswordRow, FirstPaint_MakesTheMaskedBox) {
    Create(CLSID_KvPePropertyEditorPwdText);
    ASSERT_EQ(InitEdit({&MakeObject(L"A", L"secret")}), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    ::UpdateWindow(Row());
    ASSERT_NE(Masked(), nullptr);
    EXPECT_TRUE(::IsWindowVisible(Masked()));
    EXPECT_TRUE(::GetWindowLongW(Masked(), GWL_STYLE) & ES_PASSWORD);
    EXPECT_NE(::SendMessageW(Masked(), EM_GETPASSWORDCHAR, 0, 0), 0);
}

TEST_F(PasswordRow, TypeAndReturn_WritesTheValue) {
    CreatePasswordRow(L"secret");
    UIActivate();
    EXPECT_EQ(::GetFocus(), Masked());
    kvtest::TypeText(L"other");
    kvtest::PressKey(VK_RETURN);
    EXPECT_EQ(fw::Variant::ViewString(objects[0]->At(c_property).Get()), L"other");
    EXPECT_EQ(Box(1038), nullptr) << "no box may show the value";
}

TEST_F(PasswordRow, Click_ReachesThePaletteOnce) {
    CreatePasswordRow(L"secret");
    kvtest::ClickAt(Masked(), {5, 5});
    EXPECT_TRUE(site->isUIActive);
    kvtest::ClickAt(Masked(), {15, 5});
    EXPECT_CALLS(Events(), "OnClick");
}

TEST_F(PasswordRow, ReadOnly_ShowsTheValueInPlain) {
    CreatePasswordRow(L"secret", true);
    EXPECT_EQ(Masked(), nullptr);
}

TEST_F(PasswordRow, Deactivated_MaskedBoxComesBackWithTheNextPaint) {
    CreatePasswordRow(L"secret");
    UIActivate();
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_FALSE(::IsWindowVisible(Masked()));
    ::RedrawWindow(Row(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_TRUE(::IsWindowVisible(Masked()));
}

TEST_F(PasswordRow, LongValue_NoTip) {
    CreatePasswordRow(L"a secret that is by far too long for a row of this width");
    ::SendMessageW(Row(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    ::SendMessageW(Masked(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(::FindWindowW(L"KvPeTextTip", nullptr), nullptr);
}

}  // namespace
