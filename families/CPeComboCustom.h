#pragma once

#include <memory>

#include "families/COwnerDrawItem.h"
#include "families/CPeCustomLBox.h"
#include "families/CPropComboBox.h"

/// An owner-drawn drop-down whose rows are COwnerDrawItem objects: each request to draw goes to the row's
/// item.
class KVPEX_API CPeComboCustom : public CPropComboBox {
public:
    CPeComboCustom();
    ~CPeComboCustom() override;

    /// `style` is one of the two below. False when the system refuses the window.
    BOOL Create(const RECT& bounds, HWND parent, DWORD style);
    /// Entries of differing height that the window keeps a text of, in the row's own order.
    static constexpr DWORD Style =
        WS_CHILD | WS_VSCROLL | WS_TABSTOP | CBS_DROPDOWNLIST | CBS_OWNERDRAWVARIABLE | CBS_HASSTRINGS;
    /// The same, sorted by their texts.
    static constexpr DWORD SortedStyle = Style | CBS_SORT;

    /// Adds a row with the item's name as its text. The row's index, or -1, without the item, when the window
    /// takes none.
    int AddItem(std::unique_ptr<COwnerDrawItem> item);
    /// The same at an index, -1 for the end, without sorting.
    int InsertItem(int index, std::unique_ptr<COwnerDrawItem> item);

    // CPeBaseComboBox
    [[nodiscard]] LONG_PTR GetItemObject(int index) const override;

    // CWnd
    void DrawItem(DRAWITEMSTRUCT* item) override;
    void MeasureItem(MEASUREITEMSTRUCT* item) override;
    void DeleteItem(DELETEITEMSTRUCT* item) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    /// The window is about to go: deletes the rows' items.
    virtual void OnDestroy();

private:
    LRESULT OnDestroyMessage(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSetItemHeight(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    int KeepItem(LRESULT row, std::unique_ptr<COwnerDrawItem> item);

    CRect m_bounds;  // as tall as an entry is measured
    CPeCustomLBox m_customList;
};
