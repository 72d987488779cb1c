#pragma once

#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvbench {

/// The platform's own drop-down without any of our code around it: the floor of list rows.
class BareList {
public:
    /// Who draws the entries: the platform, or the parent, as COwnerDrawItem does; the third sorts them, too.
    enum class Entries { Plain, OwnerDrawn, Sorted };

    BareList(Entries entries, HFONT font, const RECT& row);
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;
    ~BareList();

    /// Fills the list, shows it with the focus, drops it and paints it. `texts` must outlive the paint.
    void Open(const std::vector<std::wstring>& texts);
    void Close();

    [[nodiscard]] HWND Window() const { return m_list; }

private:
    static LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Draw(const DRAWITEMSTRUCT& item) const;

    Entries m_entries;
    LONG m_rowHeight;
    HWND m_frame = nullptr;
    HWND m_row = nullptr;
    HWND m_list = nullptr;
    const std::vector<std::wstring>* m_texts = nullptr;
};

/// The drop-down part of a list. The second drops it and paints it; the third makes its pixels a text to
/// compare.
[[nodiscard]] HWND ListPartOf(HWND list);
void DropAndPaint(HWND list);
[[nodiscard]] std::vector<DWORD> PixelsOf(HWND window);

}  // namespace kvbench
