#include "tests/control/support/UserEdit.h"

#include <cwchar>

#include "refhost/testing/Answers.h"
#include "tests/support/MessagePump.h"

namespace kvtest {
namespace {

// When no dialog came.
void TakeUnusedAnswer() {
    if (kvhost::Answers::Waiting() > 0) {
        static_cast<void>(kvhost::Answers::Take({}));
    }
}

}  // namespace

bool UserEdit::Enter(HWND row) const {
    const HWND child = ChildInFocus(row);
    if (!child) {
        return false;
    }
    if (way == EditWay::Choose) {
        ::SendMessageW(child, CB_SHOWDROPDOWN, TRUE, 0);
        return ::SendMessageW(child, CB_SETCURSEL, static_cast<WPARAM>(entry), 0) == entry;
    }
    if (way == EditWay::Press) {
        kvhost::Answers::QueueText(text);
        PressInRow(::GetParent(child), VK_RETURN);
        TakeUnusedAnswer();
        return true;
    }
    ::SendMessageW(child, EM_SETSEL, 0, -1);
    for (const wchar_t* character = text; *character; ++character) {
        ::SendMessageW(child, WM_CHAR, static_cast<WPARAM>(*character), 1);
    }
    return true;
}

bool UserEdit::EnterUnconfirmed(HWND row) const {
    if (way != EditWay::Press) {
        return Enter(row);
    }
    const HWND child = ChildInFocus(row);
    if (child) {
        kvhost::Answers::QueueButton(IDCANCEL);
        PressInRow(::GetParent(child), VK_RETURN);
        TakeUnusedAnswer();
    }
    return child != nullptr;
}

bool UserEdit::IsShownIn(HWND child) const {
    if (way == EditWay::Choose) {
        return ::SendMessageW(child, CB_GETCURSEL, 0, 0) == entry;
    }
    wchar_t shown[50]{};
    const HWND box = way == EditWay::Press ? ::GetDlgItem(::GetParent(child), 1038) : child;
    ::GetWindowTextW(box, shown, 50);
    return std::wcscmp(shown, text) == 0;
}

HWND ChildInFocus(HWND row) {
    const HWND focus = ::GetFocus();
    return ::IsChild(row, focus) ? focus : nullptr;
}

void PressInRow(HWND row, WORD key) {
    if (const HWND child = ChildInFocus(row)) {
        ::PostMessageW(child, WM_KEYDOWN, key, 1);  // the message loop offers keys to the row first
        PumpWaiting();
    }
}

}  // namespace kvtest
