#include "families/EntryTip.h"

#include "core/ChildIds.h"
#include "families/CPeComboCustom.h"
#include "framework/base/DeviceContexts.h"
#include "tests/unit/families/ListBench.h"

// Tips over the entries of an open list, and the way of the mouse to the preview.

namespace {

// Notes the entries that the mouse is said to be over.
class HoverRow : public kvtest::ListRow {
public:
    using kvtest::ListRow::ListRow;

    long Handle_OnListHover(UINT message, WPARAM controlId, LPARAM item, BOOL& handled) override {
        kvtest::Note(L"hover", message, controlId, item);
        handled = TRUE;
        return 0;
    }
};

// Notes what it draws.
class NotingItem : public COwnerDrawItem {
public:
    void Draw(HDC dc, const RECT& bounds, UINT action, UINT state, UINT id) override {
        kvtest::Note(L"draw", name.Std(), action, state, id);
        colors = {::GetBkColor(dc), ::GetTextColor(dc), static_cast<COLORREF>(::GetBkMode(dc))};
        place = bounds;
    }
    static inline std::array<COLORREF, 3> colors{};
    static inline CRect place;
};

class EntryTips : public kvtest::ListBench {
protected:
    static constexpr wchar_t c_long[] = L"a text that is far too long for a row as narrow as this one is";

    EntryTips() { Row().script.entries = {L"alpha", c_long, L"gamma"}; }

    void UseOwnerDrawnList() {
        Row().script.createWindow = [](CKvPeComboBase& row, const RECT& bounds) {
            auto list = std::make_unique<CPeComboCustom>();
            EXPECT_TRUE(list->Create(bounds, row.ControlWindow(), CPeComboCustom::Style));
            CPeComboCustom* const mixin = list.get();
            static_cast<kvtest::ListRow&>(row).KeepList(std::move(list), mixin);
            return S_OK;
        };
    }

    void Open() {
        Edit();
        Drop();
    }

    static HWND ShownTip() {
        HWND found = nullptr;
        ::EnumThreadWindows(
            ::GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                if (::GetWindowLongPtrW(window, GWLP_USERDATA) == KVPE_TEXT_TIP_MARK) {
                    *reinterpret_cast<HWND*>(result) = window;
                    return FALSE;
                }
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

    // The tip shows at its first look at the pointer, which is over the entry then.
    bool TipComesOver(int entry) {
        CPoint point = MiddleOf(entry);
        ::ClientToScreen(ListPart(), &point);
        ::SetCursorPos(point.x, point.y);
        Mouse(WM_MOUSEMOVE, entry);
        return kvtest::PumpUntil([] { return ShownTip() && ::IsWindowVisible(ShownTip()); }, 1500);
    }

    static bool IsInked(HDC dc, LONG x, LONG height) {
        for (int y = 2; y < height - 2; ++y) {
            if (GetRValue(::GetPixel(dc, static_cast<int>(x), y)) < 150) {
                return true;
            }
        }
        return false;
    }
    // The first column of the shown tip's text. Its first letter has no room before it.
    static int FirstInked(const CRect& client) {
        const fw::WindowDc dc(ShownTip());
        int column = 0;
        while (column < client.right && !IsInked(dc, column, client.bottom)) {
            ++column;
        }
        return column;
    }

    CRect EntryOnScreen(int entry) {
        CRect bounds;
        ::SendMessageW(ListPart(), LB_GETITEMRECT, static_cast<WPARAM>(entry),
                       reinterpret_cast<LPARAM>(&bounds));
        ::MapWindowPoints(ListPart(), nullptr, reinterpret_cast<POINT*>(&bounds), 2);
        return bounds;
    }
};

TEST_F(EntryTips, EntryTooNarrow_TipShowsOverItInFull) {
    Open();
    ASSERT_TRUE(TipComesOver(1));
    int width = 0;
    EXPECT_EQ(Row().GetStringWidth(c_long, &width), S_OK);
    CRect tip;
    ::GetWindowRect(ShownTip(), &tip);
    const CRect entry = EntryOnScreen(1);
    EXPECT_EQ(tip.TopLeft(), entry.TopLeft());
    EXPECT_EQ(tip.Width(), width + 5);
    EXPECT_EQ(tip.Height(), entry.Height());
}

TEST_F(EntryTips, EntryWideEnough_NoTip) {
    Open();
    Mouse(WM_MOUSEMOVE, 0);
    ASSERT_TRUE(ShownTip()) << "the window is made before the width is known";
    EXPECT_FALSE(::IsWindowVisible(ShownTip()));
    EXPECT_FALSE(kvtest::PumpUntil([] { return ::IsWindowVisible(ShownTip()) != FALSE; }, 400));
}

TEST_F(EntryTips, PointerLeavesTheEntry_TipGoes) {
    Open();
    ASSERT_TRUE(TipComesOver(1));
    Mouse(WM_MOUSEMOVE, 2);
    EXPECT_FALSE(::IsWindowVisible(ShownTip()));
}

TEST_F(EntryTips, PointerLeavesTheList_TipGoes) {
    Open();
    ASSERT_TRUE(TipComesOver(1));
    ::PostMessageW(ListPart(), WM_MOUSEMOVE, 0, MAKELPARAM(-20, 5));
    kvtest::PumpWaiting();
    EXPECT_FALSE(::IsWindowVisible(ShownTip()));
}

TEST_F(EntryTips, Click_TipGoes) {
    Open();
    ASSERT_TRUE(TipComesOver(1));
    Mouse(WM_LBUTTONDOWN, 1, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, 1);
    EXPECT_FALSE(ShownTip() && ::IsWindowVisible(ShownTip()));
    EXPECT_EQ(Row().m_nCurItem, 1);
}

TEST_F(EntryTips, ButtonReleasedBeforeATipWasMade_BothKindsOfListTakeIt) {
    Open();
    Mouse(WM_LBUTTONUP, 0);
    EXPECT_FALSE(ShownTip());
    Discard();
}

TEST_F(EntryTips, PlainList_TextStandsLeftOnTheGradient) {
    Open();
    ASSERT_TRUE(TipComesOver(1));
    const fw::WindowDc dc(ShownTip());
    CRect client;
    ::GetClientRect(ShownTip(), &client);
    ::SendMessageW(ListPart(), WM_KVPE_DRAW_TIP, KVPE_TEXT_TIP_MARK, 0);
    EXPECT_GT(GetRValue(::GetPixel(dc, client.right - 2, 0)), 250);
    EXPECT_EQ(::GetPixel(dc, client.right - 2, client.bottom - 1), RGB(218, 218, 218));
    EXPECT_EQ(FirstInked(client), 0);
}

TEST_F(EntryTips, TipOfAnotherMark_IsNotPainted) {
    Open();
    ASSERT_TRUE(TipComesOver(1));
    const fw::WindowDc dc(ShownTip());
    const RECT dot = {0, 0, 1, 1};
    ::FillRect(dc, &dot, static_cast<HBRUSH>(::GetStockObject(BLACK_BRUSH)));
    ::SendMessageW(ListPart(), WM_KVPE_DRAW_TIP, 7, 0);
    EXPECT_EQ(::GetPixel(dc, 0, 0), RGB(0, 0, 0));
    ::SendMessageW(ListPart(), WM_KVPE_DRAW_TIP, KVPE_TEXT_TIP_MARK, 0);
    EXPECT_NE(::GetPixel(dc, 0, 0), RGB(0, 0, 0));
}

TEST_F(EntryTips, OwnerDrawnList_EntryDrawsItselfIntoTheTip) {
    UseOwnerDrawnList();
    Row().script.onFill = [this] {
        auto& list = dynamic_cast<CPeComboCustom&>(List());
        list.ResetContent();
        for (const std::wstring& entry : Row().script.entries) {
            auto item = std::make_unique<NotingItem>();
            item->name = entry;
            list.AddItem(std::move(item));
        }
    };
    Open();
    ASSERT_TRUE(TipComesOver(1));
    journal.Clear();
    ::SendMessageW(ListPart(), WM_KVPE_DRAW_TIP, KVPE_TEXT_TIP_MARK, 0);
    EXPECT_EQ(kvtest::CallsOnly(journal, {"draw"}),
              kvtest::CallLines{"draw " + kvtest::ToUtf8(c_long) + " 1 0 1042"});
    EXPECT_EQ(NotingItem::colors[0], ::GetSysColor(COLOR_INFOBK));
    EXPECT_EQ(NotingItem::colors[2], static_cast<COLORREF>(TRANSPARENT));
    CRect client;
    ::GetClientRect(ShownTip(), &client);
    EXPECT_EQ(NotingItem::place, client);
}

TEST_F(EntryTips, OwnerDrawnList_RowWithoutItem_TextStandsInTheMiddle) {
    UseOwnerDrawnList();
    Row().script.onFill = [this] {
        List().ResetContent();
        List().AddString(c_long);
        List().SetItemData(0, static_cast<DWORD_PTR>(-1));
    };
    Open();
    ASSERT_TRUE(TipComesOver(0));
    CRect client;
    ::GetClientRect(ShownTip(), &client);
    ::SendMessageW(ListPart(), WM_KVPE_DRAW_TIP, KVPE_TEXT_TIP_MARK, 0);
    EXPECT_EQ(FirstInked(client), 2) << "half of the five pixels that a tip is wider than its text";
}

// Hover

class HoverShell : public CKvPeComboTempl<HoverRow> {
public:
    HoverRow& Row() { return *Logic(); }
};

}  // namespace

template <>
struct KvPeClassIdOf<HoverRow> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorText; }
};

namespace {

class ListHover : public ::testing::Test {
protected:
    ListHover() {
        frame.Create(c_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 400, 300}, nullptr);
        ::SetForegroundWindow(frame);
        EXPECT_EQ(CComObject<HoverShell>::CreateInstance(nullptr, &shell), S_OK);
        site = kvtest::FakeSite::Make(frame, c_place);
        EXPECT_EQ(shell->SetClientSite(site.Get()), S_OK);
        EXPECT_EQ(shell->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.Get(), 0, frame, &c_place), S_OK);
        shell->Row().m_pList->ShowDropDown();
        kvtest::PumpWaiting();
        journal.Clear();
    }
    ~ListHover() override {
        fw::Ignore(shell->Close(OLECLOSE_NOSAVE));
        fw::Ignore(shell->SetClientSite(nullptr));
        shell->Release();
        frame.DestroyWindow();
        kvtest::PumpWaiting();
    }

    void Post(UINT message, CPoint point) {
        ::PostMessageW(shell->Row().m_pList->GetListWindow(), message, 0, point.Packed());
        kvtest::PumpWaiting();
    }

    CPoint MiddleOf(int entry) {
        CRect bounds;
        ::SendMessageW(shell->Row().m_pList->GetListWindow(), LB_GETITEMRECT, static_cast<WPARAM>(entry),
                       reinterpret_cast<LPARAM>(&bounds));
        return {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
    }

    static constexpr RECT c_place = {10, 20, 130, 40};
    inline static const fw::WindowClass c_windowClass{.name = L"KvTestHoverFrame"};
    kvhost::HostSession host;
    kvhost::Journal journal;
    CWnd frame;
    CComObject<HoverShell>* shell = nullptr;
    fw::ComPtr<kvtest::FakeSite> site;
};

TEST_F(ListHover, EachMouseMessage_TellsTheEntryUnderIt) {
    Post(WM_MOUSEMOVE, MiddleOf(0));
    Post(WM_MOUSEMOVE, MiddleOf(2));
    Post(WM_RBUTTONUP, MiddleOf(2));
    Post(WM_MOUSEMOVE, {-50, 3});
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"hover"}), "hover 1824 1002 0", "hover 1824 1002 2",
                 "hover 1824 1002 2", "hover 1824 1002 -1");
}

TEST_F(ListHover, Wheel_ItsPointIsThatOfTheScreen) {
    CPoint point = MiddleOf(1);
    ::ClientToScreen(shell->Row().m_pList->GetListWindow(), &point);
    Post(WM_MOUSEWHEEL, point);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"hover"}), "hover 1824 1002 1");
}

TEST_F(ListHover, OtherMessages_TellNothing) {
    Post(WM_APP + 7, MiddleOf(1));
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"hover"}));
}

TEST_F(ListHover, MessageToTheRow_TellsTheSame) {
    ::SendMessageW(shell->m_hWnd, WM_KVPE_LIST_HOVER, 1002, 1);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"hover"}), "hover 1824 1002 1");
}

}  // namespace
