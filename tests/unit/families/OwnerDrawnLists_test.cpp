#include "families/CComboBmp.h"
#include "families/CComboOwnerDraw.h"
#include "families/COwnerDrawItemBmp.h"
#include "families/FillInfoBackground.h"
#include "families/ListPictures.h"
#include "refhost/testing/Faults.h"
#include "refhost/ui/ControlTheme.h"
#include "tests/support/DrawnText.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/PixelCanvas.h"
#include "tests/support/WarmUp.h"
#include "tests/unit/families/ListBench.h"

// Lists whose entries are objects that draw themselves.

namespace {

using kvtest::PixelCanvas;

constexpr UINT c_noPicture = 65535;

const kvtest::WarmUpStep s_pictures([] { EXPECT_TRUE(ListPicture(c_noPicture)); });

// Counts how many there are.
class CountedItem : public COwnerDrawItem {
public:
    CountedItem() { ++s_live; }
    ~CountedItem() override { --s_live; }
    static inline long s_live = 0;
};

const kvtest::LeakCounter s_items("entries of owner-drawn lists", [] { return CountedItem::s_live; });

std::unique_ptr<CountedItem> MakeItem(const wchar_t* name) {
    auto item = std::make_unique<CountedItem>();
    item->name = name;
    return item;
}

class OwnerDrawnList : public kvtest::ListBench {
protected:
    ~OwnerDrawnList() override {
        kvhost::SetControlTheme(kvhost::ControlTheme::AsDesktop);
        kvhost::Faults::Reset();
    }

    // Opens the row with a window of the class, empty.
    template <class Combo>
    Combo& Use(DWORD style = CPeComboCustom::Style) {
        Row().script.createWindow = [style](CKvPeComboBase& row, const RECT& bounds) {
            auto list = std::make_unique<Combo>();
            RETURN_HR_IF(E_FAIL, !list->Create(bounds, row.ControlWindow(), style));
            Combo* const mixin = list.get();
            static_cast<kvtest::ListRow&>(row).KeepList(std::move(list), mixin);
            return S_OK;
        };
        Row().script.onFill = [] {};
        Edit();
        return dynamic_cast<Combo&>(List());
    }
};

// The window

TEST_F(OwnerDrawnList, Create_StylesAndParents) {
    auto& list = Use<CPeComboCustom>();
    EXPECT_EQ(CPeComboCustom::Style, 0x40210223U);
    EXPECT_EQ(CPeComboCustom::SortedStyle, 0x40210323U);
    EXPECT_EQ(list.GetStyle() & (CBS_OWNERDRAWVARIABLE | CBS_HASSTRINGS | CBS_SORT | WS_TABSTOP),
              static_cast<DWORD>(CBS_OWNERDRAWVARIABLE | CBS_HASSTRINGS | WS_TABSTOP));
    EXPECT_EQ(list.GetDlgCtrlID(), 1002);
    EXPECT_EQ(list.GetLzUiParent(), frame.m_hWnd);
    EXPECT_TRUE(dynamic_cast<CPeCustomLBox*>(list.GetListBox()));
    EXPECT_EQ(dynamic_cast<CPeListBox&>(*list.GetListBox()).GetComboBox(), &list);
}

TEST_F(OwnerDrawnList, Create_Refused_RowHasNoList) {
    kvhost::Faults::FailService(L"CLzUiComboBox", 1);
    Row().script.createWindow = [](CKvPeComboBase& row, const RECT& bounds) {
        CPeComboCustom list;
        EXPECT_FALSE(list.Create(bounds, row.ControlWindow(), CPeComboCustom::Style));
        return E_FAIL;
    };
    EXPECT_EQ(Row().BeginEdit(c_clientRect), E_FAIL);
    EXPECT_FALSE(Row().m_pList);
}

TEST_F(OwnerDrawnList, AddAndInsert_GiveTheRowsIndexAndKeepTheItem) {
    auto& list = Use<CPeComboCustom>();
    EXPECT_EQ(list.AddItem(MakeItem(L"b")), 0);
    EXPECT_EQ(list.AddItem(MakeItem(L"c")), 1);
    EXPECT_EQ(list.InsertItem(0, MakeItem(L"a")), 0);
    EXPECT_EQ(list.InsertItem(-1, MakeItem(L"d")), 3);
    EXPECT_EQ(list.GetLBText(0), L"a");
    EXPECT_EQ(list.GetLBText(3), L"d");
    EXPECT_EQ(COwnerDrawItem::FromRowData(list.GetItemObject(1))->name, L"b");
    EXPECT_EQ(CountedItem::s_live, 4);
}

TEST_F(OwnerDrawnList, Sorted_RowsStandByTheirTexts) {
    auto& list = Use<CPeComboCustom>(CPeComboCustom::SortedStyle);
    list.AddItem(MakeItem(L"gamma"));
    EXPECT_EQ(list.AddItem(MakeItem(L"alpha")), 0);
    EXPECT_EQ(list.AddItem(MakeItem(L"beta")), 1);
    EXPECT_EQ(COwnerDrawItem::FromRowData(list.GetItemObject(2))->name, L"gamma");
}

TEST_F(OwnerDrawnList, InsertAtAWrongPlace_NoRowAndNoItem) {
    auto& list = Use<CPeComboCustom>();
    EXPECT_EQ(list.InsertItem(7, MakeItem(L"a")), -1);
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(CountedItem::s_live, 0);
}

TEST_F(OwnerDrawnList, Reset_EachItemGoesOnce) {
    auto& list = Use<CPeComboCustom>();
    list.AddItem(MakeItem(L"a"));
    list.AddItem(MakeItem(L"b"));
    list.ResetContent();
    EXPECT_EQ(CountedItem::s_live, 0);
}

TEST_F(OwnerDrawnList, RowDeleted_ItsItemGoes) {
    auto& list = Use<CPeComboCustom>();
    list.AddItem(MakeItem(L"a"));
    list.AddItem(MakeItem(L"b"));
    list.DeleteString(0);
    EXPECT_EQ(CountedItem::s_live, 1);
    EXPECT_EQ(COwnerDrawItem::FromRowData(list.GetItemObject(0))->name, L"b");
}

TEST_F(OwnerDrawnList, WindowGoes_EachItemGoesOnce) {
    auto& list = Use<CPeComboCustom>();
    list.AddItem(MakeItem(L"a"));
    list.AddItem(MakeItem(L"b"));
    EXPECT_EQ(Row().Cleanup(), S_OK);
    EXPECT_EQ(CountedItem::s_live, 0);
}

TEST_F(OwnerDrawnList, RowSentAway_EachItemGoesOnce) {
    auto& list = Use<CPeComboCustom>();
    list.AddItem(MakeItem(L"a"));
    Discard();
    EXPECT_EQ(CountedItem::s_live, 0);
}

TEST_F(OwnerDrawnList, DeleteItem_NoEntryOrNoItem_DoesNothing) {
    auto& list = Use<CPeComboCustom>();
    DELETEITEMSTRUCT item{};
    item.itemID = static_cast<UINT>(-1);
    auto kept = MakeItem(L"a");
    item.itemData = static_cast<ULONG_PTR>(COwnerDrawItem::ToRowData(kept.get()));
    list.DeleteItem(&item);
    EXPECT_EQ(CountedItem::s_live, 1);
    item.itemID = 0;
    item.itemData = 0;
    list.DeleteItem(&item);
    EXPECT_EQ(CountedItem::s_live, 1);
}

TEST_F(OwnerDrawnList, MeasureItem_IsTheHeightAtCreationUntilTheRowHasSaidAnother) {
    CPeComboCustom list;
    MEASUREITEMSTRUCT item{};
    ASSERT_TRUE(list.Create({0, 5, 100, 19}, Window(), CPeComboCustom::Style));
    list.MeasureItem(&item);
    EXPECT_EQ(item.itemHeight, 14U);
    list.SetItemHeight(-1, 30);
    list.MeasureItem(&item);
    EXPECT_EQ(item.itemHeight, 14U) << "the closed part";
    list.SetItemHeight(0, 30);
    list.MeasureItem(&item);
    EXPECT_EQ(item.itemHeight, 30U);
}

TEST_F(OwnerDrawnList, Edit_EntriesAreAsTallAsTheRowWithoutItsFrame) {
    auto& list = Use<CPeComboCustom>();
    list.AddItem(MakeItem(L"a"));
    list.AddItem(MakeItem(L"b"));
    EXPECT_EQ(list.GetItemHeight(0), 18);
    EXPECT_EQ(list.GetItemHeight(1), 18);
}

TEST_F(OwnerDrawnList, FilledFlag_IsClearAtFirst) {
    auto& list = Use<CComboOwnerDraw>();
    EXPECT_FALSE(list.m_bFilled);
}

// Drawing

TEST_F(OwnerDrawnList, DrawItem_RowWithoutItem_DrawsNothing) {
    auto& list = Use<CPeComboCustom>();
    list.AddString(L"text only");
    const auto drawn = kvtest::RecordText([&](HDC dc) {
        DRAWITEMSTRUCT item{};
        item.itemAction = ODA_DRAWENTIRE;
        item.hDC = dc;
        item.rcItem = {0, 0, 100, 18};
        list.DrawItem(&item);
        item.itemID = static_cast<UINT>(-1);
        list.DrawItem(&item);
        list.SetItemData(0, static_cast<DWORD_PTR>(-1));
        item.itemID = 0;
        list.DrawItem(&item);
    });
    EXPECT_TRUE(drawn.empty());
}

TEST_F(OwnerDrawnList, DrawItem_OpenList_EachRowIsDrawnByItsItem) {
    auto& list = Use<CPeComboCustom>();
    list.AddItem(MakeItem(L"a"));
    COwnerDrawItem::FromRowData(list.GetItemObject(0))->colour = RGB(200, 10, 10);
    Drop();
    const fw::WindowDc dc(ListPart());
    EXPECT_EQ(::GetPixel(dc, 2, 2), RGB(200, 10, 10));
    List().ShowDropDown(FALSE);
}

TEST(OwnerDrawItem, Fields_AtStart) {
    const COwnerDrawItem item;
    EXPECT_EQ(item.name, L"");
    EXPECT_EQ(item.data, 0);
    EXPECT_EQ(item.extra, 0);
    EXPECT_FALSE(item.bitmap);
    EXPECT_EQ(item.colour, 0xFFFFFFU);
    EXPECT_FALSE(COwnerDrawItemBmp().bNoBitmap);
}

TEST(OwnerDrawItem, Draw_GroundAndBlackTextInTheMiddle) {
    COwnerDrawItem item;
    item.name = L"entry";
    item.colour = RGB(1, 2, 3);
    const auto drawn = kvtest::RecordText([&](HDC dc) {
        ::SetTextColor(dc, RGB(9, 9, 9));
        item.Draw(dc, {10, 0, 110, 18}, ODA_DRAWENTIRE, ODS_SELECTED, 0);
    });
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_EQ(drawn[0].options, static_cast<UINT>(ETO_OPAQUE));
    EXPECT_EQ(drawn[0].backColor, RGB(1, 2, 3));
    EXPECT_EQ(CRect(drawn[0].bounds), CRect(10, 0, 110, 18));
    EXPECT_EQ(drawn[1].text, L"entry");
    EXPECT_EQ(drawn[1].textColor, RGB(0, 0, 0));
    EXPECT_GT(drawn[1].origin.x, 20);
}

TEST(OwnerDrawItem, Draw_IntoATip_KeepsItsGround) {
    COwnerDrawItem item;
    item.name = L"entry";
    const auto drawn = kvtest::RecordText([&](HDC dc) { item.Draw(dc, {0, 0, 100, 18}, 1, 0, 1042); });
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].text, L"entry");
    const auto plain = kvtest::RecordText([&](HDC dc) { item.DrawPlain(dc, {0, 0, 100, 18}); });
    EXPECT_EQ(plain.size(), 2u);
}

// Entries with a picture

class PictureItem : public ::testing::Test {
protected:
    static constexpr COLORREF c_ground = RGB(250, 240, 200);
    static constexpr RECT c_row = {10, 5, 110, 23};

    PictureItem() {
        item.name = L"mmmmmm";
        ::SetBkColor(canvas.Dc(), c_ground);
        ::SetTextColor(canvas.Dc(), RGB(1, 1, 1));
        ::SetBkMode(canvas.Dc(), TRANSPARENT);
        const fw::MemoryDc dc(canvas.Dc());
        red.Reset(::CreateCompatibleBitmap(canvas.Dc(), 20, 20));
        const fw::ScopedSelect selected(dc, red.Get());
        const fw::UniqueBrush brush(::CreateSolidBrush(RGB(255, 0, 0)));
        const RECT all = {0, 0, 20, 20};
        ::FillRect(dc, &all, brush.Get());
    }
    ~PictureItem() override { kvhost::SetControlTheme(kvhost::ControlTheme::AsDesktop); }

    void ShowPicture() { item.picture.Reset(red.Get()); }
    void Draw(UINT action, UINT state) { item.Draw(canvas.Dc(), c_row, action, state, 0); }
    int Count(COLORREF color) const { return canvas.Count({0, 0, 130, 30}, color); }

    PixelCanvas canvas{130, 30};
    fw::UniqueBitmap red;
    COwnerDrawItemBmp item;
};

TEST_F(PictureItem, Rectangles_LeaveRoomForThePicture) {
    EXPECT_EQ(COwnerDrawItemBmp::TextRect(c_row, true), CRect(26, 5, 110, 23));
    EXPECT_EQ(COwnerDrawItemBmp::TextRect(c_row, false), CRect(11, 5, 110, 23));
    EXPECT_EQ(COwnerDrawItemBmp::SelectionRect(c_row, true), CRect(24, 5, 110, 23));
    EXPECT_EQ(COwnerDrawItemBmp::SelectionRect(c_row, false), CRect(10, 5, 110, 23));
    EXPECT_EQ(COwnerDrawItemBmp::ClipRect(c_row, true), CRect(23, 5, 110, 23));
    EXPECT_EQ(COwnerDrawItemBmp::ClipRect(c_row, false), CRect(10, 5, 110, 23));
}

TEST_F(PictureItem, NoAction_DrawsNothing) {
    ShowPicture();
    Draw(8, 0);
    EXPECT_EQ(Count(RGB(255, 255, 255)), 130 * 30);
}

TEST_F(PictureItem, DrawEntire_GroundPictureAndText) {
    ShowPicture();
    Draw(ODA_DRAWENTIRE, 0);
    EXPECT_EQ(canvas.At(109, 5), c_ground);
    EXPECT_EQ(Count(RGB(255, 0, 0)), 14 * 14);
    EXPECT_EQ(canvas.At(10, 5), RGB(255, 0, 0));
    EXPECT_EQ(canvas.At(23, 18), RGB(255, 0, 0));
    EXPECT_GT(Count(RGB(1, 1, 1)), 0);
}

TEST_F(PictureItem, Selected_SelectionCoversTheTextOnly) {
    ShowPicture();
    Draw(ODA_DRAWENTIRE, ODS_SELECTED);
    EXPECT_EQ(canvas.At(24, 22), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(canvas.At(109, 5), ::GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(canvas.At(11, 22), RGB(255, 255, 255)) << "below the picture";
    EXPECT_EQ(canvas.At(12, 7), RGB(255, 0, 0));
    EXPECT_EQ(::GetBkColor(canvas.Dc()), c_ground);
    EXPECT_EQ(::GetTextColor(canvas.Dc()), RGB(1, 1, 1));
}

TEST_F(PictureItem, Unselected_SelectionIsTakenAway) {
    Draw(ODA_DRAWENTIRE, ODS_SELECTED);
    Draw(ODA_SELECT, 0);
    EXPECT_EQ(Count(::GetSysColor(COLOR_HIGHLIGHT)), 0);
    EXPECT_EQ(canvas.At(109, 5), c_ground);
}

TEST_F(PictureItem, FocusAlone_FrameAndNoText) {
    Draw(ODA_FOCUS, 0);
    EXPECT_EQ(Count(RGB(1, 1, 1)), 0);
    EXPECT_EQ(canvas.At(60, 14), RGB(255, 255, 255));
    int framed = 0;
    for (int x = 24; x < 110; ++x) {
        framed += canvas.At(x, 5) != RGB(255, 255, 255) ? 1 : 0;
    }
    EXPECT_GT(framed, 30);
}

TEST_F(PictureItem, NoPicture_TextTakesItsPlace) {
    ShowPicture();
    item.bNoBitmap = true;
    Draw(ODA_DRAWENTIRE, ODS_SELECTED);
    EXPECT_EQ(Count(RGB(255, 0, 0)), 0);
    EXPECT_EQ(canvas.At(10, 22), ::GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(PictureItem, PictureDidNotLoad_TextIsDrawn) {
    Draw(ODA_DRAWENTIRE, 0);
    EXPECT_GT(Count(RGB(1, 1, 1)), 0);
    EXPECT_EQ(canvas.At(12, 7), c_ground);
}

TEST_F(PictureItem, VistaThemeAndClosedPart_GroundIsTheThemes) {
    kvhost::SetControlTheme(kvhost::ControlTheme::Vista);
    Draw(ODA_DRAWENTIRE, ODS_COMBOBOXEDIT);
    EXPECT_EQ(Count(c_ground), 0);
    EXPECT_GT(Count(RGB(1, 1, 1)), 0);
    Draw(ODA_DRAWENTIRE, 0);
    EXPECT_GT(Count(c_ground), 0);
}

TEST_F(PictureItem, Deleted_PictureStaysForOtherRows) {
    {
        COwnerDrawItemBmp other;
        other.picture.Reset(red.Get());
    }
    ShowPicture();
    Draw(ODA_DRAWENTIRE, 0);
    EXPECT_EQ(Count(RGB(255, 0, 0)), 14 * 14);
}

TEST_F(PictureItem, DrawPlain_DrawsNothing) {
    ShowPicture();
    item.DrawPlain(canvas.Dc(), c_row);
    EXPECT_EQ(Count(RGB(255, 255, 255)), 130 * 30);
}

// The list with pictures

TEST_F(OwnerDrawnList, AddBitmapItem_KeepsNamePictureAndFlag) {
    auto& list = Use<CComboBmp>();
    EXPECT_EQ(list.AddBitmapItem(L"a", c_noPicture, CComboBmp::Picture::Shown), 0);
    EXPECT_EQ(list.AddBitmapItem(L"b", 4711, CComboBmp::Picture::None), 1);
    EXPECT_EQ(list.AddBitmapItem(L"c", 4711, CComboBmp::Picture::Shown), 2);
    const auto itemAt = [&](int row) {
        return dynamic_cast<COwnerDrawItemBmp*>(COwnerDrawItem::FromRowData(list.GetItemObject(row)));
    };
    EXPECT_EQ(itemAt(0)->name, L"a");
    EXPECT_EQ(itemAt(0)->data, 0);
    EXPECT_FALSE(itemAt(0)->bNoBitmap);
    EXPECT_TRUE(itemAt(0)->picture);
    EXPECT_TRUE(itemAt(1)->bNoBitmap);
    EXPECT_EQ(itemAt(1)->picture.Get(), itemAt(0)->picture.Get()) << "one for all rows";
    EXPECT_FALSE(itemAt(2)->picture) << "there is no such picture";
    EXPECT_EQ(list.GetLBText(1), L"b");
}

TEST_F(OwnerDrawnList, SetOwnerControl_IsTheWayBackToo) {
    auto& list = Use<CComboBmp>();
    EXPECT_EQ(list.GetOwnerControl(), nullptr);
    list.SetOwnerControl(&Row());
    EXPECT_EQ(list.GetOwnerControl(), &Row());
    EXPECT_EQ(list.GetOwner(), &Row());
}

TEST_F(OwnerDrawnList, PictureListsTip_ItemDrawsItselfAndTextOnlyRowsTheirText) {
    auto& list = Use<CComboBmp>();
    list.AddBitmapItem(L"a", 0, CComboBmp::Picture::None);
    list.AddString(L"text");
    CPropTextTooltip tip;
    ASSERT_TRUE(tip.Create(frame));
    tip.MoveWindow(0, 0, 100, 20);
    ::ShowWindow(tip.m_hWnd, SW_SHOWNOACTIVATE);
    kvtest::PumpWaiting();
    for (const int row : {0, 1}) {
        list.SetCurSel(row);
        const fw::WindowDc dc(tip.m_hWnd);
        const RECT all = {0, 0, 100, 20};
        ::FillRect(dc, &all, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
        EXPECT_EQ(list.SendMessage(WM_KVPE_DRAW_TIP, 1042, reinterpret_cast<LPARAM>(tip.m_hWnd)), S_OK);
        EXPECT_EQ(::GetPixel(dc, 95, 0), RGB(253, 253, 253)) << row;
        EXPECT_EQ(::GetPixel(dc, 95, 19), RGB(218, 218, 218)) << row;
    }
}

// The ground

TEST(InfoBackground, OtherColours_FillWithThemselves) {
    const PixelCanvas canvas(10, 10);
    ::SetBkColor(canvas.Dc(), RGB(9, 9, 9));
    FillInfoBackground(canvas.Dc(), {2, 3, 8, 9}, RGB(10, 20, 30));
    EXPECT_EQ(canvas.Count({0, 0, 10, 10}, RGB(10, 20, 30)), 36);
    EXPECT_EQ(::GetBkColor(canvas.Dc()), RGB(9, 9, 9));
}

TEST(InfoBackground, TipColour_FallsFromWhiteInBands) {
    const PixelCanvas canvas(4, 140);
    FillInfoBackground(canvas.Dc(), {0, 4, 4, 132}, ::GetSysColor(COLOR_INFOBK));
    for (int band = 0; band < 64; ++band) {
        const int grey = (16320 - 37 * band) / 64;
        EXPECT_EQ(canvas.At(1, 4 + 2 * band), RGB(grey, grey, grey)) << band;
        EXPECT_EQ(canvas.At(1, 5 + 2 * band), RGB(grey, grey, grey)) << band;
    }
    EXPECT_EQ(canvas.At(1, 131), RGB(218, 218, 218));
    EXPECT_EQ(canvas.At(1, 3), RGB(255, 255, 255));
    EXPECT_EQ(canvas.At(1, 132), RGB(255, 255, 255));
}

TEST(InfoBackground, FewerRowsThanBands_LastRowHasTheLastGrey) {
    for (const int height : {1, 7, 18, 63}) {
        const PixelCanvas canvas(2, 70);
        FillInfoBackground(canvas.Dc(), {0, 0, 2, height}, ::GetSysColor(COLOR_INFOBK));
        EXPECT_EQ(canvas.At(0, height - 1), RGB(218, 218, 218)) << height;
    }
}

}  // namespace
