#include "framework/base/DeviceContexts.h"
#include "framework/window/CWnd.h"
#include "tests/support/FakeSite.h"
#include "tests/support/RowFont.h"
#include "tests/unit/core/ControlBench.h"

namespace {

constexpr OLE_COLOR c_systemWindow = 0x80000005;

class CKvPeCtrlBase_Appearance : public kvtest::ControlTest {
protected:
    CKvPeCtrlBase_Appearance() { window.Create(s_windowClass, L"", WS_POPUP, {0, 0, 80, 20}, nullptr); }

    LRESULT CtlColor(HDC dc) {
        BOOL handled = TRUE;
        return control.Handle_OnCtlColor(WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(dc), 0, handled);
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestAppearance"};
    CWnd window;
};

// Colours

TEST_F(CKvPeCtrlBase_Appearance, Colors_StartAsBlackOnWindow) {
    OLE_COLOR color = 1;
    EXPECT_EQ(control.Handle_get_ForeColor(&color), S_OK);
    EXPECT_EQ(color, 0U);
    EXPECT_EQ(control.Handle_get_BackColor(&color), S_OK);
    EXPECT_EQ(color, c_systemWindow);
    EXPECT_EQ(control.Handle_get_ReadOnlyForeColor(&color), S_OK);
    EXPECT_EQ(color, 0U);
    EXPECT_EQ(control.Handle_get_ReadOnlyBackColor(&color), S_OK);
    EXPECT_EQ(color, c_systemWindow);
    EXPECT_TRUE(control.m_backBrush);
    EXPECT_TRUE(control.m_readOnlyBackBrush);
}

TEST_F(CKvPeCtrlBase_Appearance, Colors_AreKeptWhateverTheyAre) {
    OLE_COLOR color = 0;
    for (const OLE_COLOR put : {0x123456U, 0x8000000DU, 0xFFFFFFFFU}) {
        EXPECT_EQ(control.Handle_put_ForeColor(put), S_OK);
        EXPECT_EQ(control.Handle_get_ForeColor(&color), S_OK);
        EXPECT_EQ(color, put);
        EXPECT_EQ(control.Handle_put_BackColor(put), S_OK);
        EXPECT_EQ(control.Handle_get_BackColor(&color), S_OK);
        EXPECT_EQ(color, put);
        EXPECT_EQ(control.Handle_put_ReadOnlyForeColor(put), S_OK);
        EXPECT_EQ(control.Handle_get_ReadOnlyForeColor(&color), S_OK);
        EXPECT_EQ(color, put);
        EXPECT_EQ(control.Handle_put_ReadOnlyBackColor(put), S_OK);
        EXPECT_EQ(control.Handle_get_ReadOnlyBackColor(&color), S_OK);
        EXPECT_EQ(color, put);
    }
}

TEST_F(CKvPeCtrlBase_Appearance, Colors_NullPointer_ReturnsPointerError) {
    EXPECT_EQ(control.Handle_get_ForeColor(nullptr), E_POINTER);
    EXPECT_EQ(control.Handle_get_BackColor(nullptr), E_POINTER);
    EXPECT_EQ(control.Handle_get_ReadOnlyForeColor(nullptr), E_POINTER);
    EXPECT_EQ(control.Handle_get_ReadOnlyBackColor(nullptr), E_POINTER);
}

TEST_F(CKvPeCtrlBase_Appearance, BackColor_SameTwice_KeepsTheBrush) {
    EXPECT_EQ(control.Handle_put_BackColor(0x112233), S_OK);
    const HBRUSH brush = control.m_backBrush.Get();
    EXPECT_EQ(control.Handle_put_BackColor(0x112233), S_OK);
    EXPECT_EQ(control.m_backBrush.Get(), brush);
    EXPECT_EQ(control.Handle_put_ReadOnlyBackColor(0x112233), S_OK);
    const HBRUSH readOnlyBrush = control.m_readOnlyBackBrush.Get();
    EXPECT_EQ(control.Handle_put_ReadOnlyBackColor(0x112233), S_OK);
    EXPECT_EQ(control.m_readOnlyBackBrush.Get(), readOnlyBrush);
}

TEST_F(CKvPeCtrlBase_Appearance, BackColor_Changed_RemakesTheBrush) {
    EXPECT_EQ(control.Handle_put_BackColor(0x112233), S_OK);
    LOGBRUSH brush{};
    ::GetObjectW(control.m_backBrush.Get(), sizeof brush, &brush);
    EXPECT_EQ(brush.lbColor, 0x112233U);
    EXPECT_EQ(control.Handle_put_ReadOnlyBackColor(0x445566), S_OK);
    ::GetObjectW(control.m_readOnlyBackBrush.Get(), sizeof brush, &brush);
    EXPECT_EQ(brush.lbColor, 0x445566U);
}

// Handle_OnCtlColor

TEST_F(CKvPeCtrlBase_Appearance, CtlColor_Writable_SetsNormalColors) {
    EXPECT_EQ(control.Handle_put_ForeColor(0x010203), S_OK);
    EXPECT_EQ(control.Handle_put_BackColor(0x040506), S_OK);
    const fw::WindowDc dc(window);
    EXPECT_EQ(CtlColor(dc), reinterpret_cast<LRESULT>(control.m_backBrush.Get()));
    EXPECT_EQ(::GetTextColor(dc), 0x010203U);
    EXPECT_EQ(::GetBkColor(dc), 0x040506U);
    EXPECT_EQ(::GetBkMode(dc), TRANSPARENT);
}

TEST_F(CKvPeCtrlBase_Appearance, CtlColor_ReadOnly_SetsReadOnlyColors) {
    EXPECT_EQ(control.Handle_put_ReadOnlyForeColor(0x010203), S_OK);
    EXPECT_EQ(control.Handle_put_ReadOnlyBackColor(0x040506), S_OK);
    EXPECT_EQ(control.SetReadOnlyFlag(TRUE), S_OK);
    const fw::WindowDc dc(window);
    EXPECT_EQ(CtlColor(dc), reinterpret_cast<LRESULT>(control.m_readOnlyBackBrush.Get()));
    EXPECT_EQ(::GetTextColor(dc), 0x010203U);
    EXPECT_EQ(::GetBkColor(dc), 0x040506U);
    EXPECT_EQ(::GetBkMode(dc), TRANSPARENT);
}

TEST_F(CKvPeCtrlBase_Appearance, CtlColor_InTextTip_HasTheTipsBackground) {
    ::SetWindowLongPtrW(window, GWLP_USERDATA, 1042);
    const fw::WindowDc dc(window);
    EXPECT_EQ(CtlColor(dc), reinterpret_cast<LRESULT>(control.m_backBrush.Get()));
    EXPECT_EQ(::GetBkColor(dc), ::GetSysColor(COLOR_INFOBK));
}

// Font

TEST_F(CKvPeCtrlBase_Appearance, Font_Null_ReturnsPointerError) {
    EXPECT_EQ(control.Handle_put_Font(nullptr), E_POINTER);
    EXPECT_EQ(control.Handle_get_Font(nullptr), E_POINTER);
}

TEST_F(CKvPeCtrlBase_Appearance, Font_IsHeldOnceAndReplaced) {
    const fw::ComPtr<IFont> first = kvtest::MakeRowFont();
    const fw::ComPtr<IFont> second = kvtest::MakeRowFont();
    const auto references = [](const fw::ComPtr<IFont>& font) {
        font->AddRef();
        return font->Release();
    };
    const ULONG before = references(first);
    EXPECT_EQ(control.Handle_put_Font(first.Get()), S_OK);
    EXPECT_EQ(control.Handle_put_Font(first.Get()), S_OK);
    EXPECT_EQ(references(first), before + 1);
    EXPECT_EQ(control.Handle_put_Font(second.Get()), S_OK);
    EXPECT_EQ(references(first), before);
    fw::ComPtr<IUnknown> given;
    EXPECT_EQ(control.Handle_get_Font(given.Put()), S_OK);
    EXPECT_TRUE(fw::IsSameObject(given.Get(), second.Get()));
}

TEST_F(CKvPeCtrlBase_Appearance, Font_ObjectThatIsNone_IsRefusedAndTheOldOneKept) {
    const fw::ComPtr<IFont> font = kvtest::MakeRowFont();
    EXPECT_EQ(control.Handle_put_Font(font.Get()), S_OK);
    EXPECT_EQ(control.Handle_put_Font(static_cast<IDispatch*>(&MakeObject(L"A"))), E_NOINTERFACE);
    fw::ComPtr<IUnknown> given;
    EXPECT_EQ(control.Handle_get_Font(given.Put()), S_OK);
    EXPECT_TRUE(fw::IsSameObject(given.Get(), font.Get()));
}

TEST_F(CKvPeCtrlBase_Appearance, Font_NoneYet_IsGivenAsNull) {
    fw::ComPtr<IUnknown> given;
    EXPECT_EQ(control.Handle_get_Font(given.Put()), S_OK);
    EXPECT_EQ(given, nullptr);
    EXPECT_EQ(control.FontHandle(), nullptr);
}

// GetStringWidth

TEST_F(CKvPeCtrlBase_Appearance, StringWidth_NullPointer_ReturnsArgumentError) {
    EXPECT_EQ(control.GetStringWidth(L"text", nullptr), E_INVALIDARG);
}

TEST_F(CKvPeCtrlBase_Appearance, StringWidth_WithoutFontOrWindow_Fails) {
    int width = 7;
    shell.window = window;
    EXPECT_EQ(control.GetStringWidth(L"text", &width), E_FAIL);
    EXPECT_EQ(control.Handle_put_Font(kvtest::MakeRowFont().Get()), S_OK);
    shell.window = nullptr;
    EXPECT_EQ(control.GetStringWidth(L"text", &width), E_FAIL);
    EXPECT_EQ(width, 7);
}

TEST_F(CKvPeCtrlBase_Appearance, StringWidth_IsThatOfTheFont) {
    shell.window = window;
    EXPECT_EQ(control.Handle_put_Font(kvtest::MakeRowFont().Get()), S_OK);
    int shorter = 0;
    int longer = 0;
    EXPECT_EQ(control.GetStringWidth(L"il", &shorter), S_OK);
    EXPECT_EQ(control.GetStringWidth(L"A long text, wider than its window, & not cut", &longer), S_OK);
    SIZE extent{};
    {
        const fw::WindowDc dc(window);
        const fw::ScopedSelect font(dc, control.FontHandle());
        ::GetTextExtentPoint32W(dc, L"il", 2, &extent);
    }
    EXPECT_EQ(shorter, extent.cx);
    EXPECT_GT(longer, 80);
}

TEST_F(CKvPeCtrlBase_Appearance, StringWidth_Ampersand_IsNoPrefix) {
    shell.window = window;
    EXPECT_EQ(control.Handle_put_Font(kvtest::MakeRowFont().Get()), S_OK);
    int with = 0;
    int without = 0;
    EXPECT_EQ(control.GetStringWidth(L"a&b", &with), S_OK);
    EXPECT_EQ(control.GetStringWidth(L"ab", &without), S_OK);
    EXPECT_GT(with, without);
}

TEST_F(CKvPeCtrlBase_Appearance, StringWidth_EmptyText_LeavesTheWidthUnset) {
    shell.window = window;
    EXPECT_EQ(control.Handle_put_Font(kvtest::MakeRowFont().Get()), S_OK);
    int width = 7;
    EXPECT_EQ(control.GetStringWidth(L"", &width), S_OK);
    EXPECT_EQ(width, 7);
}

// GetFrameHandle

TEST_F(CKvPeCtrlBase_Appearance, FrameHandle_WithoutSite_FailsWithNull) {
    HWND frame = window;
    EXPECT_EQ(control.GetFrameHandle(frame), E_FAIL);
    EXPECT_EQ(frame, nullptr);
}

TEST_F(CKvPeCtrlBase_Appearance, FrameHandle_IsThatOfTheSitesFrame) {
    const auto site = kvtest::FakeSite::Make(window, RECT{0, 0, 10, 10});
    shell.site = site.Get();
    HWND frame = nullptr;
    EXPECT_EQ(control.GetFrameHandle(frame), S_OK);
    EXPECT_EQ(frame, window.m_hWnd);
    site->windowContextResult = E_FAIL;
    EXPECT_EQ(control.GetFrameHandle(frame), E_FAIL);
    EXPECT_EQ(frame, nullptr);
}

TEST_F(CKvPeCtrlBase_Appearance, FailureMessage_IsOwnedByTheFrame) {
    const auto site = kvtest::FakeSite::Make(window, RECT{0, 0, 10, 10});
    shell.site = site.Get();
    MakeObject(L"A").At(kvtest::c_property).putResult = DISP_E_EXCEPTION;
    objects[0]->At(kvtest::c_property).exception.scode = E_ACCESSDENIED;
    objects[0]->At(kvtest::c_property).exception.description = L"refused";
    Select(kvtest::SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(WriteText(L"new"), DISP_E_EXCEPTION);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"MessageBox"}), "MessageBox owned refused 48");
}

}  // namespace
