#include "tests/unit/families/ListBench.h"

#include "tests/support/LeakCheck.h"
#include "tests/support/ListWarmUp.h"
#include "tests/support/RowFont.h"
#include "tests/support/WarmUp.h"

namespace kvtest {
namespace {

const fw::WindowClass s_elsewhereClass{.name = L"KvTestElsewhere"};

const LeakCounter s_sites("sites of list rows", FakeSite::LiveCount);
const LeakCounter s_sinks("sinks of list rows", RecordingSink::LiveCount);

const WarmUpStep s_lists(&WarmUpLists);

}  // namespace

HRESULT ListRow::CreateComboWindow(const RECT& bounds) {
    return script.createWindow ? script.createWindow(*this, bounds)
                               : CKvPeComboBase::CreateComboWindow(bounds);
}

HRESULT ListRow::FillList() {
    Note(L"fill");
    if (script.onFill) {
        script.onFill();
        return S_OK;
    }
    if (m_pList) {
        m_pList->ResetContent();
        for (const std::wstring& entry : script.entries) {
            m_pList->AddString(entry.c_str());
        }
        m_pList->SetCurSel(m_nCurItem);
    }
    return S_OK;
}

HRESULT ListRow::SetSelectedItem(int index) {
    Note(L"write", index);
    if (script.onWrite) {
        script.onWrite(index);
    }
    RETURN_IF_FAILED_EXPECTED(script.writeResult);
    script.current = index;
    return S_OK;
}

CString ListRow::GetItemText(int index) {
    if (m_pList && m_pList->GetCount() > 0) {
        return CKvPeComboBase::GetItemText(index);
    }
    const bool isEntry = index >= 0 && index < static_cast<int>(script.entries.size());
    return isEntry ? CString(script.entries[static_cast<std::size_t>(index)]) : CString();
}

int ListRow::GetCurrentItem() {
    Note(L"read");
    return script.current;
}

HRESULT ListRow::LaunchZRBPropertyDialog(CString& text) {
    Note(L"dialog", text.Std());
    return script.launchResult;
}

ListBench::ListBench() {
    elsewhere.Create(s_elsewhereClass, L"", WS_CHILD | WS_VISIBLE, {200, 100, 220, 120}, frame);
    elsewhere.SetFocus();
    Activate();
    font = MakeRowFont();
    EXPECT_TRUE(font);
    EXPECT_EQ(shell->put_Font(font.Get()), S_OK);
    EXPECT_EQ(Row().Handle_Refresh(), S_OK);
    Clear();
}

CallLines ListBench::Calls() {
    return CallsIgnoring(journal, {"Site.", "Frame.", "kvedIsLivePreviewStarted", "kvDocManagerPtr",
                                   "curDocument", "allowsLivePreview"});
}

LRESULT ListBench::Notify(int code) {
    return ::SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(1002, code),
                          reinterpret_cast<LPARAM>(List().m_hWnd));
}

void ListBench::Key(UINT key, LPARAM keyData) {
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, keyData);
    PumpWaiting();
}

void ListBench::Drop() {
    List().ShowDropDown();
    Clear();
    ASSERT_TRUE(List().GetDroppedState());
}

CPoint ListBench::MiddleOf(int entry) {
    CRect bounds;
    ::SendMessageW(ListPart(), LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&bounds));
    return {(bounds.left + bounds.right) / 2, (bounds.top + bounds.bottom) / 2};
}

void ListBench::Mouse(UINT message, int entry, WPARAM keys) {
    ::PostMessageW(ListPart(), message, keys, MiddleOf(entry).Packed());
    PumpWaiting();
}

}  // namespace kvtest
