#include "palette/commands/DropDown.h"

#include <algorithm>
#include <cstddef>

#include "palette/commands/MessageLoop.h"
#include "palette/commands/Typist.h"

namespace kvpalette {

namespace {

constexpr DWORD c_longestWait = 1000;

bool IsDropDown(HWND window) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    return window && ::GetComboBoxInfo(window, &info) && info.hwndList;
}

bool IsSame(const std::wstring& left, const std::wstring& right, bool ignoreCase) {
    return ::CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, ignoreCase) == CSTR_EQUAL;
}

RECT EntryBounds(HWND list, int entry) {
    RECT bounds{};
    ::SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&bounds));
    return bounds;
}

}  // namespace

DropDown DropDown::Around(HWND window) {
    if (IsDropDown(window)) {
        return DropDown(window);
    }
    const HWND parent = window ? ::GetParent(window) : nullptr;
    return DropDown(IsDropDown(parent) ? parent : nullptr);
}

HWND DropDown::List() const {
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    return ::GetComboBoxInfo(m_window, &info) ? info.hwndList : nullptr;
}

bool DropDown::IsOpen() const {
    return ::SendMessageW(m_window, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

bool DropDown::Open() const {
    if (!IsOpen()) {
        Typist(m_window).PressKey(VK_F4);
    }
    return PumpUntil([this] { return IsOpen(); }, c_longestWait);
}

void DropDown::Cancel() const {
    if (IsOpen()) {
        Typist(m_window).PressKey(VK_ESCAPE);
    }
}

std::vector<std::wstring> DropDown::Entries() const {
    std::vector<std::wstring> entries;
    const LRESULT count = ::SendMessageW(m_window, CB_GETCOUNT, 0, 0);
    for (LRESULT entry = 0; entry < count; ++entry) {
        const auto index = static_cast<WPARAM>(entry);
        const LRESULT length = ::SendMessageW(m_window, CB_GETLBTEXTLEN, index, 0);
        std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
        const LRESULT got =
            ::SendMessageW(m_window, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<std::size_t>(std::max<LRESULT>(got, 0)));
        entries.push_back(std::move(text));
    }
    return entries;
}

int DropDown::Chosen() const {
    return static_cast<int>(::SendMessageW(m_window, CB_GETCURSEL, 0, 0));
}

int DropDown::Find(const std::wstring& text) const {
    const std::vector<std::wstring> entries = Entries();
    for (const bool ignoreCase : {false, true}) {
        const auto found = std::find_if(entries.begin(), entries.end(), [&](const std::wstring& entry) {
            return IsSame(entry, text, ignoreCase);
        });
        if (found != entries.end()) {
            return static_cast<int>(found - entries.begin());
        }
    }
    return -1;
}

// As the wheel and the scroll bar do it, line by line.
void DropDown::ScrollTo(int entry) const {
    const HWND list = List();
    RECT client{};
    ::GetClientRect(list, &client);
    const auto count = ::SendMessageW(m_window, CB_GETCOUNT, 0, 0);
    for (LRESULT step = 0; step < count; ++step) {
        const RECT bounds = EntryBounds(list, entry);
        if (bounds.top >= client.top && bounds.bottom <= client.bottom) {
            return;
        }
        ::SendMessageW(list, WM_VSCROLL, bounds.top < client.top ? SB_LINEUP : SB_LINEDOWN, 0);
    }
}

void DropDown::RestOn(int entry) const {
    ScrollTo(entry);
    const HWND list = List();
    const RECT bounds = EntryBounds(list, entry);
    const POINT inside{bounds.left + (bounds.right - bounds.left) / 3, (bounds.top + bounds.bottom) / 2};
    POINT onScreen = inside;
    ::ClientToScreen(list, &onScreen);
    ::SetCursorPos(static_cast<int>(onScreen.x), static_cast<int>(onScreen.y));
    ::PostMessageW(list, WM_MOUSEMOVE, 0, MAKELPARAM(inside.x, inside.y));
    PumpMessages();
}

void DropDown::Click(int entry) const {
    RestOn(entry);
    const HWND list = List();
    const RECT bounds = EntryBounds(list, entry);
    const LPARAM place =
        MAKELPARAM(bounds.left + (bounds.right - bounds.left) / 3, (bounds.top + bounds.bottom) / 2);
    ::PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, place);
    ::PostMessageW(list, WM_LBUTTONUP, 0, place);
    PumpMessages();
}

}  // namespace kvpalette
