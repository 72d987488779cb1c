#include "framework/window/Reflection.h"

#include "framework/window/CWnd.h"

namespace {

CWnd* OwnerDrawChild(HWND parent, UINT message, LPARAM lParam) {
    switch (message) {
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            return item.CtlType == ODT_MENU ? nullptr : CWnd::FromHandlePermanent(item.hwndItem);
        }
        case WM_MEASUREITEM: {
            const auto& item = *reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam);
            return item.CtlType == ODT_MENU
                       ? nullptr
                       : CWnd::FromHandlePermanent(::GetDlgItem(parent, static_cast<int>(item.CtlID)));
        }
        case WM_DELETEITEM:
            return CWnd::FromHandlePermanent(reinterpret_cast<const DELETEITEMSTRUCT*>(lParam)->hwndItem);
        case WM_COMPAREITEM:
            return CWnd::FromHandlePermanent(reinterpret_cast<const COMPAREITEMSTRUCT*>(lParam)->hwndItem);
        default:
            return nullptr;
    }
}

LRESULT DoOwnerDraw(CWnd& child, UINT message, LPARAM lParam) {
    switch (message) {
        case WM_DRAWITEM:
            child.DrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_MEASUREITEM:
            child.MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
            return TRUE;
        case WM_DELETEITEM:
            child.DeleteItem(reinterpret_cast<DELETEITEMSTRUCT*>(lParam));
            return TRUE;
        default:
            return child.CompareItem(reinterpret_cast<COMPAREITEMSTRUCT*>(lParam));
    }
}

// The control that a command, notification, colour question or scroll message speaks of.
HWND Sender(UINT message, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
        case WM_HSCROLL:
        case WM_VSCROLL:
            return reinterpret_cast<HWND>(lParam);
        case WM_NOTIFY:
            return reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
        default:
            return nullptr;
    }
}

}  // namespace

namespace fw {

bool ReflectMessage(HWND parent, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (!lParam) {
        return false;  // from a menu or an accelerator
    }
    if (CWnd* const child = OwnerDrawChild(parent, message, lParam)) {
        result = DoOwnerDraw(*child, message, lParam);
        return true;
    }
    const HWND sender = Sender(message, lParam);
    CWnd* const child = sender == parent ? nullptr : CWnd::FromHandlePermanent(sender);
    return child && child->OnReflectedMessage(message, wParam, lParam, result);
}

}  // namespace fw
