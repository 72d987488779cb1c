#include "benchmarks/BareList.h"

#include "benchmarks/Drawing.h"
#include "families/CPeComboCustom.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"

namespace kvbench {
namespace {

constexpr wchar_t c_parentClass[] = L"KvBenchBareParent";
constexpr DWORD c_plainStyle = 0x4020004B;
constexpr UINT c_entryFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP;
constexpr LONG c_frame = 2;
constexpr LONG c_openRows = 9;

DWORD StyleOf(BareList::Entries entries) {
    switch (entries) {
        case BareList::Entries::OwnerDrawn:
            return CPeComboCustom::Style;
        case BareList::Entries::Sorted:
            return CPeComboCustom::SortedStyle;
        default:
            return c_plainStyle;
    }
}

}  // namespace

BareList::BareList(Entries entries, HFONT font, const RECT& row)
    : m_entries(entries), m_rowHeight(row.bottom - row.top) {
    WNDCLASSW parentClass{};
    parentClass.lpfnWndProc = &BareList::ParentProc;
    parentClass.hInstance = ::GetModuleHandleW(nullptr);
    parentClass.lpszClassName = c_parentClass;
    ::RegisterClassW(&parentClass);
    const LONG width = row.right - row.left;
    m_frame = ::CreateWindowExW(0, c_parentClass, L"", WS_POPUP | WS_VISIBLE, 50, 50, 400, 300, nullptr,
                                nullptr, parentClass.hInstance, this);
    m_row = ::CreateWindowExW(0, c_parentClass, L"", WS_CHILD | WS_VISIBLE, row.left, row.top, width,
                              m_rowHeight, m_frame, nullptr, parentClass.hInstance, this);
    const DWORD style = StyleOf(entries);
    m_list = ::CreateWindowExW(0, WC_COMBOBOXW, L"", style, -c_frame, -c_frame, width + 2 * c_frame,
                               c_openRows * m_rowHeight, m_row, reinterpret_cast<HMENU>(1002),
                               parentClass.hInstance, nullptr);
    Require(m_list != nullptr, "the platform makes a list");
    ::SendMessageW(m_list, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    ::SendMessageW(m_list, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), m_rowHeight - c_frame);
    ::SendMessageW(m_list, CB_SETITEMHEIGHT, 0, m_rowHeight - c_frame);
    // The room for the open list is worked out anew from the height of the closed one.
    ::SetWindowPos(m_list, nullptr, -c_frame, -c_frame, width + 2 * c_frame, c_openRows * m_rowHeight,
                   SWP_NOACTIVATE | SWP_NOZORDER);
}

BareList::~BareList() {
    ::DestroyWindow(m_frame);
    ::UnregisterClassW(c_parentClass, ::GetModuleHandleW(nullptr));
}

LRESULT CALLBACK BareList::ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        ::SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    const auto* const self = reinterpret_cast<const BareList*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_MEASUREITEM) {
        reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight =
            static_cast<UINT>(self->m_rowHeight - c_frame);
        return TRUE;
    }
    if (message == WM_DRAWITEM) {
        self->Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

void BareList::Draw(const DRAWITEMSTRUCT& item) const {
    if (!m_texts || item.itemID >= m_texts->size()) {
        return;
    }
    const std::wstring& text = (*m_texts)[item.itemID];
    const COLORREF back = ::SetBkColor(item.hDC, RGB(255, 255, 255));
    const COLORREF ink = ::SetTextColor(item.hDC, RGB(0, 0, 0));
    RECT bounds = item.rcItem;
    ::ExtTextOutW(item.hDC, bounds.left, bounds.top, ETO_OPAQUE, &bounds, nullptr, 0, nullptr);
    ::DrawTextW(item.hDC, text.c_str(), static_cast<int>(text.size()), &bounds, c_entryFormat);
    ::SetTextColor(item.hDC, ink);
    ::SetBkColor(item.hDC, back);
}

void BareList::Open(const std::vector<std::wstring>& texts) {
    m_texts = &texts;
    ::SendMessageW(m_list, WM_SETREDRAW, FALSE, 0);
    ::SendMessageW(m_list, CB_RESETCONTENT, 0, 0);
    for (const std::wstring& text : texts) {
        const LRESULT row = ::SendMessageW(m_list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        if (m_entries != Entries::Plain) {
            ::SendMessageW(m_list, CB_SETITEMDATA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&text));
        }
    }
    ::SendMessageW(m_list, CB_SETCURSEL, 0, 0);
    ::SendMessageW(m_list, WM_SETREDRAW, TRUE, 0);
    ::ShowWindow(m_list, SW_SHOW);
    ::SetFocus(m_list);
    DropAndPaint(m_list);
}

void BareList::Close() {
    ::SendMessageW(m_list, CB_SHOWDROPDOWN, FALSE, 0);
    ::ShowWindow(m_list, SW_HIDE);
}

HWND ListPartOf(HWND list) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    Require(::GetComboBoxInfo(list, &parts), "a list has its drop-down");
    return parts.hwndList;
}

void DropAndPaint(HWND list) {
    ::SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    ::UpdateWindow(list);
    ::UpdateWindow(ListPartOf(list));
}

std::vector<DWORD> PixelsOf(HWND window) {
    RECT bounds{};
    ::GetWindowRect(window, &bounds);
    const int width = bounds.right - bounds.left;
    const int height = bounds.bottom - bounds.top;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    const fw::MemoryDc dc(nullptr);
    void* pixels = nullptr;
    const fw::UniqueBitmap bitmap(::CreateDIBSection(dc, &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
    Require(bitmap.Get() != nullptr, "the system makes a picture");
    const fw::ScopedSelect selected(dc, bitmap.Get());
    const HDC source = ::GetWindowDC(window);
    ::BitBlt(dc, 0, 0, width, height, source, 0, 0, SRCCOPY);
    ::ReleaseDC(window, source);
    ::GdiFlush();
    const auto* const first = static_cast<const DWORD*>(pixels);
    std::vector<DWORD> result(first, first + static_cast<std::ptrdiff_t>(width) * height);
    result.push_back(static_cast<DWORD>(width));
    return result;
}

}  // namespace kvbench
