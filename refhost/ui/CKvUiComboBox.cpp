#include "host_sdk/CKvUiComboBox.h"

#include "framework/base/DeviceContexts.h"
#include "framework/window/CDC.h"

namespace {

constexpr UINT c_entryFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr int c_textMargin = 2;
constexpr int c_rowSpace = 2;

}  // namespace

CKvUiComboBox::CKvUiComboBox() = default;

CKvUiComboBox::~CKvUiComboBox() = default;

int CKvUiComboBox::GetRowHeight() const {
    const fw::WindowDc dc(m_hWnd);
    const fw::ScopedSelect font(dc, GetFont());
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    return static_cast<int>(metrics.tmHeight) + c_rowSpace;
}

void CKvUiComboBox::MeasureItem(MEASUREITEMSTRUCT* item) {
    item->itemHeight = static_cast<UINT>(GetRowHeight());
}

void CKvUiComboBox::DrawItem(DRAWITEMSTRUCT* item) {
    if (static_cast<int>(item->itemID) < 0) {
        return;
    }
    CDC dc(item->hDC);
    const fw::ScopedSaveDc saved(item->hDC);
    const bool selected = (item->itemState & ODS_SELECTED) != 0;
    if (!(IsVistaTheme() && IsInEdit(item->itemState))) {
        dc.FillSolidRect(item->rcItem, ::GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        dc.SetTextColor(::GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    }
    dc.SetBkMode(TRANSPARENT);
    CRect text = item->rcItem;
    text.left += c_textMargin;
    dc.DrawText(GetLBText(static_cast<int>(item->itemID)), &text, c_entryFormat);
    if ((item->itemState & ODS_FOCUS) != 0) {
        dc.DrawFocusRect(item->rcItem);
    }
}
