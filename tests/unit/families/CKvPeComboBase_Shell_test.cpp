#include "families/CPeComboCustom.h"
#include "framework/base/DeviceContexts.h"
#include "host_sdk/CKvUiMRUComboBox.h"
#include "refhost/ui/ControlTheme.h"
#include "tests/support/DrawnText.h"
#include "tests/unit/families/ListBench.h"

// Painting, verbs, places and the messages of the children.

namespace {

class ListShellDuties : public kvtest::ListBench {
protected:
    ~ListShellDuties() override { kvhost::SetControlTheme(kvhost::ControlTheme::AsDesktop); }

    std::vector<kvtest::DrawnText> Paint(const RECTL& bounds) {
        return kvtest::RecordText([&](HDC dc) {
            ATL_DRAWINFO info;
            info.hdcDraw = dc;
            info.prcBounds = &bounds;
            EXPECT_EQ(Row().Handle_OnDraw(info), S_OK);
        });
    }

    template <class Combo>
    void UseHostsList() {
        Row().script.createWindow = [](CKvPeComboBase& row, const RECT& bounds) {
            struct HostsList : Combo, CPeBaseComboBox {
                ~HostsList() override { this->DestroyWindow(); }
            };
            auto& open = static_cast<kvtest::ListRow&>(row);
            if (!open.m_pList) {
                auto list = std::make_unique<HostsList>();
                EXPECT_TRUE(list->Create(WS_CHILD | CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE | CBS_HASSTRINGS,
                                         bounds, row.ControlWindow(), 1002));
                HostsList* const mixin = list.get();
                open.KeepList(std::move(list), mixin);
            }
            return S_OK;
        };
    }
};

TEST_F(ListShellDuties, Draw_Idle_GroundAndTextTwoPixelsIn) {
    const auto drawn = Paint({5, 6, 125, 26});
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].options, static_cast<UINT>(ETO_OPAQUE));
    EXPECT_EQ(CRect(drawn[0].bounds), CRect(5, 6, 125, 26));
    EXPECT_EQ(drawn[1].text, L"alpha");
    EXPECT_EQ(drawn[1].origin.x, 7);
    EXPECT_EQ(drawn[1].backMode, TRANSPARENT);
}

TEST_F(ListShellDuties, Draw_GroundFollowsTheSystemWhateverThePaletteSet) {
    EXPECT_EQ(shell->put_BackColor(RGB(1, 2, 3)), S_OK);
    const auto drawn = Paint({0, 0, 120, 20});
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].backColor, ::GetSysColor(COLOR_WINDOW));
    OLE_COLOR color = 0;
    EXPECT_EQ(shell->get_BackColor(&color), S_OK);
    EXPECT_EQ(color, 0x80000000U | COLOR_WINDOW);
}

TEST_F(ListShellDuties, Draw_ReadOnly_UsesTheReadOnlyColours) {
    EXPECT_EQ(shell->put_ReadOnlyBackColor(RGB(1, 2, 3)), S_OK);
    EXPECT_EQ(shell->put_ReadOnlyForeColor(RGB(4, 5, 6)), S_OK);
    Row().m_readOnly = TRUE;
    const auto drawn = Paint({0, 0, 120, 20});
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].backColor, RGB(1, 2, 3));
    EXPECT_EQ(drawn[1].textColor, RGB(4, 5, 6));
}

TEST_F(ListShellDuties, Draw_LongText_EndsInDots) {
    Row().m_strText = L"a text that is far too long for a row as narrow as this one is";
    const auto drawn = Paint({0, 0, 60, 20});
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[1].text.substr(drawn[1].text.size() - 3), L"...");
}

TEST_F(ListShellDuties, Draw_InEdit_ListPaintsItself) {
    Edit();
    EXPECT_TRUE(Paint({0, 0, 120, 20}).empty());
}

TEST_F(ListShellDuties, Draw_IntoTheTip_InEditToo_TextWithoutGround) {
    Edit();
    Row().m_strText = L"a text that is far too long for a row as narrow as this one is";
    CPropTextTooltip tip;
    ASSERT_TRUE(tip.Create(frame));
    tip.MoveWindow(0, 0, 400, 20);
    ::ShowWindow(tip.m_hWnd, SW_SHOWNOACTIVATE);
    kvtest::PumpWaiting();
    const fw::WindowDc dc(tip.m_hWnd);
    const RECT all = {0, 0, 400, 20};
    ::FillRect(dc, &all, static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH)));
    const COLORREF ground = ::GetPixel(dc, 390, 10);
    const RECTL bounds{0, 0, 400, 20};
    ATL_DRAWINFO info;
    info.hdcDraw = dc;
    info.prcBounds = &bounds;
    EXPECT_EQ(Row().Handle_OnDraw(info), S_OK);
    EXPECT_EQ(::GetPixel(dc, 390, 10), ground);
    int inked = 0;
    for (int x = 2; x < 100; ++x) {
        inked += ::GetPixel(dc, x, 10) != ground ? 1 : 0;
    }
    EXPECT_GT(inked, 0);
}

TEST_F(ListShellDuties, Draw_Afterwards_TheContextIsAsBefore) {
    const fw::WindowDc screen(nullptr);
    const fw::MemoryDc dc(screen);
    const HGDIOBJ former = ::GetCurrentObject(dc, OBJ_FONT);
    const int mode = ::GetBkMode(dc);
    const RECTL bounds{0, 0, 120, 20};
    ATL_DRAWINFO info;
    info.hdcDraw = dc;
    info.prcBounds = &bounds;
    EXPECT_EQ(Row().Handle_OnDraw(info), S_OK);
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_FONT), former);
    EXPECT_EQ(::GetBkMode(dc), mode);
}

TEST_F(ListShellDuties, ListColours_AreTheRows) {
    Edit();
    EXPECT_EQ(shell->put_ForeColor(RGB(1, 2, 3)), S_OK);
    for (const UINT message : {WM_CTLCOLORLISTBOX, WM_CTLCOLOREDIT, WM_CTLCOLORBTN}) {
        const fw::WindowDc dc(List().m_hWnd);
        EXPECT_NE(::SendMessageW(Window(), message, reinterpret_cast<WPARAM>(dc.Get()),
                                 reinterpret_cast<LPARAM>(List().m_hWnd)),
                  0);
        EXPECT_EQ(::GetTextColor(dc), RGB(1, 2, 3)) << message;
    }
}

// Verbs

TEST_F(ListShellDuties, Hide_InEdit_ChoiceIsWrittenAndListHidden) {
    Edit();
    List().SetCurSel(1);
    EXPECT_EQ(Row().Handle_DoVerbHide(), S_OK);
    EXPECT_CALLS(Calls(), "write 1");
    EXPECT_EQ(Row().m_state, EditState_Shown);
    EXPECT_FALSE(List().IsWindowVisible());
}

TEST_F(ListShellDuties, Hide_InItsOwnDialog_EditGoesOn) {
    Edit();
    List().SetCurSel(1);
    Row().m_keepEditOnHide = TRUE;
    EXPECT_EQ(Row().Handle_DoVerbHide(), S_OK);
    EXPECT_CALLS(Calls());
    EXPECT_EQ(Row().m_state, EditState_InEdit);
    EXPECT_FALSE(List().IsWindowVisible());
}

TEST_F(ListShellDuties, Hide_NeverEdited_StateStays) {
    EXPECT_EQ(Row().Handle_DoVerbHide(), S_OK);
    EXPECT_EQ(Row().m_state, EditState_NeverShown);
}

TEST_F(ListShellDuties, Show_InEdit_ListComesToTheTop) {
    Edit();
    CWnd sibling;
    const fw::WindowClass siblingClass{.name = L"KvTestSibling"};
    sibling.Create(siblingClass, L"", WS_CHILD | WS_VISIBLE, c_clientRect, Window());
    ::SetWindowPos(sibling.m_hWnd, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    List().ShowWindow(SW_HIDE);
    EXPECT_EQ(Row().Handle_DoVerbShow(), S_OK);
    EXPECT_TRUE(List().IsWindowVisible());
    EXPECT_EQ(::GetTopWindow(Window()), List().m_hWnd);
    EXPECT_TRUE(::GetUpdateRect(List().m_hWnd, nullptr, FALSE));
    sibling.DestroyWindow();
}

TEST_F(ListShellDuties, Show_NotInEdit_ListStaysHidden) {
    Edit();
    EXPECT_EQ(Row().Handle_UIDeactivate(), S_OK);
    EXPECT_EQ(Row().Handle_DoVerbShow(), S_OK);
    EXPECT_FALSE(List().IsWindowVisible());
}

TEST_F(ListShellDuties, UIDeactivate_InEdit_ChoiceIsWrittenAndListHidden) {
    Edit();
    List().SetCurSel(1);
    EXPECT_EQ(shell->UIDeactivate(), S_OK);
    EXPECT_CALLS(Calls(), "write 1");
    EXPECT_EQ(Row().m_state, EditState_Shown);
    EXPECT_FALSE(List().IsWindowVisible());
}

TEST_F(ListShellDuties, UIDeactivate_NeverEdited_IsShownAfterwards) {
    EXPECT_EQ(Row().Handle_UIDeactivate(), S_OK);
    EXPECT_EQ(Row().m_state, EditState_Shown);
}

TEST_F(ListShellDuties, KeepFocus_WhileTheListIsOpen) {
    VARIANT_BOOL keeps = VARIANT_TRUE;
    EXPECT_EQ(shell->get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_FALSE);
    Edit();
    EXPECT_EQ(shell->get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_FALSE);
    Drop();
    EXPECT_EQ(shell->get_KeepFocus(&keeps), S_OK);
    EXPECT_EQ(keeps, VARIANT_TRUE);
    EXPECT_EQ(Row().Handle_get_KeepFocus(nullptr), E_POINTER);
}

// Places

TEST_F(ListShellDuties, SetObjectRects_NotInEdit_ListStays) {
    Edit();
    EXPECT_EQ(Row().Handle_UIDeactivate(), S_OK);
    const RECT place = {0, 0, 200, 30};
    EXPECT_EQ(Row().Handle_SetObjectRects(&place, &place), S_OK);
    EXPECT_EQ(List().GetWindowRect().Width(), 124);
    EXPECT_EQ(Row().Handle_SetObjectRects(nullptr, nullptr), E_POINTER);
}

TEST_F(ListShellDuties, SetObjectRects_InEdit_ListFollowsTheRow) {
    Edit();
    const RECT place = {50, 60, 250, 90};
    EXPECT_EQ(Row().Handle_SetObjectRects(&place, &place), S_OK);
    CRect bounds = List().GetWindowRect();
    ::MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&bounds), 2);
    EXPECT_EQ(bounds.TopLeft(), CPoint(-2, -2));
    EXPECT_EQ(bounds.Width(), 204);
    const int closed = List().GetItemHeight(-1);
    List().SetItemHeight(-1, 28);
    EXPECT_EQ(List().GetItemHeight(-1), closed);
}

// Font and tip widths

TEST_F(ListShellDuties, PutFont_ListTakesIt) {
    Edit();
    fw::ComPtr<IFont> other;
    EXPECT_EQ(font->Clone(other.Put()), S_OK);
    EXPECT_EQ(other->put_Size({.int64 = 200000}), S_OK);
    EXPECT_EQ(shell->put_Font(other.Get()), S_OK);
    EXPECT_EQ(List().GetFont(), Row().FontHandle());
    EXPECT_EQ(Row().Handle_put_Font(nullptr), E_POINTER);
    EXPECT_EQ(shell->put_Font(font.Get()), S_OK);
}

TEST_F(ListShellDuties, PutFont_HostsOwnList_FitsItsRowsToTheFont) {
    UseHostsList<CKvUiMRUComboBox>();
    Edit();
    fw::ComPtr<IFont> other;
    EXPECT_EQ(font->Clone(other.Put()), S_OK);
    EXPECT_EQ(other->put_Size({.int64 = 300000}), S_OK);
    EXPECT_EQ(shell->put_Font(other.Get()), S_OK);
    EXPECT_EQ(List().GetItemHeight(0), dynamic_cast<CKvUiMRUComboBox&>(List()).GetRowHeight());
    EXPECT_EQ(shell->put_Font(font.Get()), S_OK);
}

TEST_F(ListShellDuties, TipWidths_AreThoseOfTheTexts) {
    Edit();
    int row = 0;
    int expected = 0;
    EXPECT_EQ(Row().GetTextTipWidth(row), S_OK);
    EXPECT_EQ(Row().GetStringWidth(L"alpha", &expected), S_OK);
    EXPECT_EQ(row, expected);
    EXPECT_EQ(Row().GetComboTextTipWidth(2, row), S_OK);
    EXPECT_EQ(Row().GetStringWidth(L"gamma", &expected), S_OK);
    EXPECT_EQ(row, expected);
    row = 77;
    EXPECT_EQ(Row().GetComboTextTipWidth(3, row), S_OK);
    EXPECT_EQ(row, 77) << "an empty text has no width";
}

// Owner-drawn children

TEST_F(ListShellDuties, MeasureItem_PlainList_IsTheRowWithoutItsFrame) {
    Edit();
    MEASUREITEMSTRUCT item{};
    item.CtlType = ODT_COMBOBOX;
    item.CtlID = 1002;
    EXPECT_EQ(::SendMessageW(Window(), WM_MEASUREITEM, 1002, reinterpret_cast<LPARAM>(&item)), TRUE);
    EXPECT_EQ(item.itemHeight, 18U);
}

TEST_F(ListShellDuties, MeasureItem_HostsList_AnswersItself) {
    UseHostsList<CKvUiComboBox>();
    Edit();
    MEASUREITEMSTRUCT item{};
    item.CtlID = 1002;
    BOOL handled = FALSE;
    EXPECT_EQ(Row().OnMeasureItem(WM_MEASUREITEM, 1002, &item, handled), S_OK);
    EXPECT_TRUE(handled);
    EXPECT_EQ(item.itemHeight, static_cast<UINT>(dynamic_cast<CKvUiComboBox&>(List()).GetRowHeight()));
}

TEST_F(ListShellDuties, OwnerDrawOfOtherChildren_IsLeftAlone) {
    Edit();
    BOOL handled = TRUE;
    DRAWITEMSTRUCT drawn{};
    EXPECT_EQ(Row().OnDrawItem(WM_DRAWITEM, 7, &drawn, handled), S_OK);
    EXPECT_FALSE(handled);
    handled = TRUE;
    MEASUREITEMSTRUCT measured{};
    EXPECT_EQ(Row().OnMeasureItem(WM_MEASUREITEM, 7, &measured, handled), S_OK);
    EXPECT_FALSE(handled);
    handled = TRUE;
    DELETEITEMSTRUCT deleted{};
    EXPECT_EQ(Row().OnDeleteItem(WM_DELETEITEM, 7, &deleted, handled), S_OK);
    EXPECT_FALSE(handled);
    handled = TRUE;
    EXPECT_EQ(Row().OnDeleteItem(WM_DELETEITEM, 1002, &deleted, handled), S_OK);
    EXPECT_FALSE(handled) << "a plain list has no entries of its own";
}

TEST_F(ListShellDuties, OtherCommands_GoToTheShell) {
    Edit();
    Notify(CBN_SELCHANGE);
    EXPECT_CALLS(Calls());
    EXPECT_EQ(Row().m_state, EditState_InEdit);
}

// What a list draws, noted.
class NotingCombo : public CPeComboCustom {
public:
    ~NotingCombo() override { DestroyWindow(); }
    int draws = 0;
    int paints = 0;

    void DrawItem(DRAWITEMSTRUCT*) override { ++draws; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        paints += message == WM_PAINT ? 1 : 0;
        return CPeComboCustom::WindowProc(message, wParam, lParam);
    }
};

class OwnerDrawnListDuties : public ListShellDuties {
protected:
    OwnerDrawnListDuties() {
        Row().script.createWindow = [this](CKvPeComboBase& row, const RECT& bounds) {
            auto list = std::make_unique<NotingCombo>();
            EXPECT_TRUE(list->Create(bounds, row.ControlWindow(), CPeComboCustom::Style));
            noting = list.get();
            static_cast<kvtest::ListRow&>(row).KeepList(std::move(list), noting);
            return S_OK;
        };
        Edit();
        noting->draws = 0;
        noting->paints = 0;
    }

    BOOL Draw(UINT state) {
        DRAWITEMSTRUCT item{};
        item.itemState = state;
        BOOL handled = FALSE;
        EXPECT_EQ(Row().OnDrawItem(WM_DRAWITEM, 1002, &item, handled), S_OK);
        return handled;
    }

    NotingCombo* noting = nullptr;
};

TEST_F(OwnerDrawnListDuties, DrawItem_GoesToTheList) {
    kvhost::SetControlTheme(kvhost::ControlTheme::Classic);
    EXPECT_TRUE(Draw(ODS_COMBOBOXEDIT));
    EXPECT_TRUE(Draw(0));
    EXPECT_EQ(noting->draws, 2);
}

TEST_F(OwnerDrawnListDuties, DrawItem_VistaThemeAndClosedPart_ListPaintsItWhole) {
    kvhost::SetControlTheme(kvhost::ControlTheme::Vista);
    EXPECT_TRUE(Draw(ODS_COMBOBOXEDIT));
    EXPECT_EQ(noting->paints, 1);
    noting->draws = 0;
    EXPECT_TRUE(Draw(0));
    EXPECT_EQ(noting->draws, 1);
    EXPECT_EQ(noting->paints, 1);
}

}  // namespace
