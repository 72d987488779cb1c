#include "tests/support/ListWarmUp.h"

#include "framework/window/CComboBox.h"
#include "tests/support/MessagePump.h"

namespace kvtest {
namespace {

const fw::WindowClass s_windowClass{.name = L"KvTestListWarmUp"};

}  // namespace

void WarmUpLists() {
    CWnd frame;
    frame.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 400, 300}, nullptr);
    for (const DWORD kind : {DWORD{CBS_DROPDOWNLIST}, DWORD{CBS_DROPDOWNLIST | CBS_HASSTRINGS}}) {
        CComboBox list;
        list.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | kind, {0, 0, 120, 200}, frame, 1);
        list.AddString(L"a");
        list.AddString(L"b");
        list.SetFocus();
        list.ShowDropDown();
        PumpWaiting();
        list.ShowDropDown(FALSE);
        list.DestroyWindow();
    }
    frame.DestroyWindow();
    PumpWaiting();
}

}  // namespace kvtest
