#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

// The palette may let a row go in the middle of what the row tells it.
class RowLifetime : public kvtest::RowContainer {
protected:
    /// Lets the control go completely when the event comes.
    void DiscardAt(const wchar_t* awaited) {
        sink->onEvent = [this, awaited](const std::wstring& event) {
            if (event == awaited && control) {
                DiscardInEvent();
            }
            return S_OK;
        };
    }
    void DiscardInEvent() {
        row = Row();
        const auto object = As<IOleObject>();
        EXPECT_EQ(object->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
        control.Reset();
    }
    void ExpectGone() {
        EXPECT_FALSE(control);
        EXPECT_NE(row, nullptr);
        EXPECT_FALSE(::IsWindow(row));
        EXPECT_EQ(objects[0]->References(), 1u) << "the row still holds its selection";
        EXPECT_EQ(site->References(), 1u) << "the row still holds its site";
    }

    HWND row = nullptr;
};

TEST_F(RowLifetime, LetGoWhenReturnIsTold_RowEndsAfterTheMessage) {
    CreateTextRow({L"alpha"});
    UIActivate();
    DiscardAt(L"OnKeyDown");
    kvtest::PressKey(VK_RETURN);
    ExpectGone();
}

TEST_F(RowLifetime, LetGoWhenTabIsTold_RowEndsAfterTheMessage) {
    CreateTextRow({L"alpha"});
    UIActivate();
    DiscardAt(L"OnKeyDown");
    kvtest::TypeText(L"beta");
    kvtest::PressKey(VK_TAB);
    ExpectGone();
    EXPECT_EQ(fw::Variant::ViewString(objects[0]->At(c_property).Get()), L"beta");
}

TEST_F(RowLifetime, LetGoWhenTheUpdateBegins_WriteIsFinished) {
    CreateTextRow({L"alpha"});
    UIActivate();
    DiscardAt(L"OnBeginPropertyUpdate");
    kvtest::TypeText(L"beta");
    kvtest::PressKey(VK_RETURN);
    ExpectGone();
    EXPECT_EQ(fw::Variant::ViewString(objects[0]->At(c_property).Get()), L"beta");
}

TEST_F(RowLifetime, LetGoWhenTheUpdateEnds_RowEndsAfterTheMessage) {
    CreateTextRow({L"alpha"});
    UIActivate();
    DiscardAt(L"OnEndPropertyUpdate");
    kvtest::TypeText(L"beta");
    kvtest::PressKey(VK_RETURN);
    ExpectGone();
    EXPECT_EQ(fw::Variant::ViewString(objects[0]->At(c_property).Get()), L"beta");
}

TEST_F(RowLifetime, LetGoAtAFocusLoss_RowEndsAfterTheMessage) {
    CreateTextRow({L"alpha"});
    UIActivate();
    DiscardAt(L"OnEndPropertyUpdate");
    kvtest::TypeText(L"beta");
    elsewhere.SetFocus();
    kvtest::PumpWaiting();
    ExpectGone();
}

TEST_F(RowLifetime, LetGoAtAClick_RowEndsAfterTheMessage) {
    CreateTextRow({L"alpha"}, true);
    DiscardAt(L"OnClick");
    ::SendMessageW(Row(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    ExpectGone();
}

TEST_F(RowLifetime, LetGoInSetValue_CallEndsInPeace) {
    CreateTextRow({L"alpha"});
    DiscardAt(L"OnEndPropertyUpdate");
    fw::Variant value = fw::Variant::FromString(L"beta");
    IKvPiPropertyEditControl2* const bare = control.Get();
    EXPECT_EQ(bare->SetValue(value.Address(), 0), S_OK);
    ExpectGone();
}

TEST_F(RowLifetime, LetGoAtTheHint_RowEndsAfterTheMessage) {
    Create(CLSID_KvPePropertyEditorText);
    MakeObject(L"A", L"alpha", kvhost::OffersUnspecified);
    objects[0]->At(c_property).unspecifiedAllowed = true;
    objects[0]->At(c_property).unspecifiedText = L"none given";
    ASSERT_EQ(InitEdit({objects[0].Get()}), S_OK);
    UIActivate();
    DiscardAt(L"OnEndPropertyUpdate");
    kvtest::ClickAt(::FindWindowW(L"KvPeUnspecifiedHint", nullptr), {5, 5});
    ExpectGone();
    EXPECT_EQ(::FindWindowW(L"KvPeUnspecifiedHint", nullptr), nullptr);
}

TEST_F(RowLifetime, ReleasedWithoutClosing_TypedTextIsNotWritten) {
    CreateTextRow({L"alpha"});
    UIActivate();
    ::SetWindowTextW(Box(), L"typed");
    row = Row();
    Clear();
    sink->onEvent = nullptr;
    control.Reset();
    kvtest::PumpWaiting();
    EXPECT_FALSE(::IsWindow(row));
    EXPECT_EQ(kvtest::CallsOnly(journal, {"Invoke"}), kvtest::CallLines{});
}

TEST_F(RowLifetime, ContainerWindowDestroyedInEdit_RowSurvives) {
    CreateTextRow({L"alpha"});
    UIActivate();
    frame.DestroyWindow();
    kvtest::PumpWaiting();
    EXPECT_EQ(Row(), nullptr);
    EXPECT_EQ(control->Refresh(0), S_OK);
}

}  // namespace
