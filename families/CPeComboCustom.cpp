#include "families/CPeComboCustom.h"

#include "core/ChildIds.h"

// Modules made elsewhere create their lists with these numbers.
static_assert(CPeComboCustom::Style == 0x40210223 && CPeComboCustom::SortedStyle == 0x40210323);

CPeComboCustom::CPeComboCustom() = default;

CPeComboCustom::~CPeComboCustom() {
    DestroyWindow();
}

BOOL CPeComboCustom::Create(const RECT& bounds, HWND parent, DWORD style) {
    m_bounds = bounds;
    if (!CLzUiComboBox::Create(style, bounds, parent, KVPE_ID_LIST)) {
        return FALSE;
    }
    InstallPlainList();
    SetLzUiParent(::GetParent(parent));
    m_customList.SetComboBox(this);
    SetListBox(&m_customList);
    return TRUE;
}

int CPeComboCustom::AddItem(std::unique_ptr<COwnerDrawItem> item) {
    const int row = AddString(item->name);
    return KeepItem(row, std::move(item));
}

int CPeComboCustom::InsertItem(int index, std::unique_ptr<COwnerDrawItem> item) {
    const int row = InsertString(index, item->name);
    return KeepItem(row, std::move(item));
}

int CPeComboCustom::KeepItem(LRESULT row, std::unique_ptr<COwnerDrawItem> item) {
    const int index = static_cast<int>(row);
    if (index < 0) {
        return -1;
    }
    SetItemData(index, static_cast<DWORD_PTR>(COwnerDrawItem::ToRowData(item.release())));
    return index;
}

LONG_PTR CPeComboCustom::GetItemObject(int index) const {
    return static_cast<LONG_PTR>(GetItemData(index));
}

void CPeComboCustom::DrawItem(DRAWITEMSTRUCT* item) {
    const int index = static_cast<int>(item->itemID);
    COwnerDrawItem* const entry =
        index == -1 ? nullptr : COwnerDrawItem::FromRowData(CPeComboCustom::GetItemObject(index));
    if (entry) {
        const CRect bounds = item->rcItem;
        entry->Draw(item->hDC, bounds, item->itemAction, item->itemState, item->itemID);
    }
}

void CPeComboCustom::MeasureItem(MEASUREITEMSTRUCT* item) {
    item->itemHeight = static_cast<UINT>(m_bounds.Height());
}

void CPeComboCustom::DeleteItem(DELETEITEMSTRUCT* item) {
    if (static_cast<int>(item->itemID) != -1) {
        delete COwnerDrawItem::FromRowData(static_cast<LONG_PTR>(item->itemData));
    }
}

LRESULT CPeComboCustom::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr std::array s_messages{
        fw::OnMessage(WM_DESTROY, &CPeComboCustom::OnDestroyMessage),
        fw::OnMessage(CB_SETITEMHEIGHT, &CPeComboCustom::OnSetItemHeight),
    };
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CPropComboBox::WindowProc(message, wParam, lParam);
}

LRESULT CPeComboCustom::OnDestroyMessage(UINT, WPARAM, LPARAM, BOOL& handled) {
    OnDestroy();
    handled = FALSE;
    return 0;
}

// The zero keeps the system's own notice of each row, which comes later, from deleting again.
void CPeComboCustom::OnDestroy() {
    const int count = GetCount();
    for (int row = 0; row < count; ++row) {
        delete COwnerDrawItem::FromRowData(CPeComboCustom::GetItemObject(row));
        SetItemData(row, 0);
    }
}

// The height at creation is that of the whole drop-down. Once the row has said how tall entries are, those
// that are added later are measured so.
LRESULT CPeComboCustom::OnSetItemHeight(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    if (static_cast<int>(wParam) >= 0) {
        m_bounds.bottom = m_bounds.top + static_cast<LONG>(lParam);
    }
    handled = FALSE;
    return 0;
}
