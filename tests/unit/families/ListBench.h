#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/EditState.h"
#include "core/PrivateMessages.h"
#include "families/CKvPeComboBase.h"
#include "families/CKvPeComboTempl.h"
#include "families/CPropComboBox.h"
#include "framework/com/Variant.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/JournalNote.h"
#include "tests/support/ShellBench.h"

namespace kvtest {

/// What the row's property gives and takes. `current` is the entry that stands for its value.
struct ListScript {
    std::vector<std::wstring> entries{L"alpha", L"beta", L"gamma"};
    int current = 0;
    int entryWithDialog = -1;  // opens a dialog and cannot be shown before
    HRESULT writeResult = S_OK;
    HRESULT launchResult = S_OK;
    std::function<void(int entry)> onWrite;  // before the write takes effect
    std::function<void()> onFill;
    std::function<HRESULT(CKvPeComboBase& row, const RECT& bounds)> createWindow;
};

/// A list row whose reads, fills and writes are scripted and noted as "read", "fill" and "write entry", with
/// its fields open.
class ListRow : public CKvPeComboBase {
public:
    using CKvPeComboBase::CKvPeComboBase;
    using CKvPeComboBase::GetChosenEntryText;
    using CKvPeComboBase::KeepList;
    using CKvPeComboBase::m_allowUnspecified;
    using CKvPeComboBase::m_bCancelled;
    using CKvPeComboBase::m_bDrawHighlighted;
    using CKvPeComboBase::m_bHasDialog;
    using CKvPeComboBase::m_bNeedsActiveDatabase;
    using CKvPeComboBase::m_childWindow;
    using CKvPeComboBase::m_failedObjectCount;
    using CKvPeComboBase::m_keepEditOnHide;
    using CKvPeComboBase::m_nButtonSide;
    using CKvPeComboBase::m_nCurItem;
    using CKvPeComboBase::m_nPreviewItem;
    using CKvPeComboBase::m_pButton;
    using CKvPeComboBase::m_pDefaultPicture;
    using CKvPeComboBase::m_pDisabledPicture;
    using CKvPeComboBase::m_pList;
    using CKvPeComboBase::m_readOnly;
    using CKvPeComboBase::m_state;
    using CKvPeComboBase::m_strText;
    using CKvPeComboBase::m_textTip;
    using CKvPeComboBase::PresetNumber;
    using CKvPeComboBase::PresetText;

    ListScript script;

    HRESULT CreateComboWindow(const RECT& bounds) override;
    HRESULT FillList() override;
    HRESULT SetSelectedItem(int index) override;
    CString GetItemText(int index) override;
    int GetCurrentItem() override;
    bool IsItemPreviewable(int index) override { return index != script.entryWithDialog; }
    HRESULT LaunchZRBPropertyDialog(CString& text) override;
};

}  // namespace kvtest

/// The tests' row has no place in the class table.
template <>
struct KvPeClassIdOf<kvtest::ListRow> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorText; }
};

namespace kvtest {

/// The shell over the row, with the row within reach.
class ListShell : public CKvPeComboTempl<ListRow> {
public:
    ListRow& Row() { return *Logic(); }
};

/// A frame window with one list row in it, active in place and not yet edited, in a host with one drawing.
/// Host calls and events stand in one journal.
class ListBench : public ShellBench<ListShell> {
protected:
    static constexpr RECT c_clientRect = {0, 0, 120, 20};

    ListBench();

    /// The journal without the calls on site and frame, and without the questions for a preview.
    CallLines Calls();

    ListRow& Row() { return shell->Row(); }
    CLzUiComboBox& List() { return *Row().m_pList; }
    HWND ListPart() { return List().GetListWindow(); }
    /// As the list says by WM_COMMAND.
    LRESULT Notify(int code);
    /// A key for the window with the focus, through the message queue.
    void Key(UINT key, LPARAM keyData = 1);
    /// Drops the list and forgets what that led to.
    void Drop();
    /// A mouse message for the open list, in the middle of an entry, through the message queue.
    void Mouse(UINT message, int entry, WPARAM keys = 0);
    CPoint MiddleOf(int entry);

    CWnd elsewhere;  // a child of the frame that can have the focus
    fw::ComPtr<IFont> font;
};

}  // namespace kvtest
