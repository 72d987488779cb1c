#pragma once

#include "core/CKvPeBaseTempl.h"
#include "core/ChildIds.h"
#include "core/PrivateMessages.h"

/// The shell of list rows: the list's colours and owner-drawing, and the end of a drop-down.
template <class LogicClass>
class CKvPeComboTempl : public CKvPeBaseTempl<LogicClass> {
    using Base = CKvPeBaseTempl<LogicClass>;

public:
    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        using Shell = CKvPeComboTempl;
        static constexpr std::array s_messages{
            fw::OnMessage(WM_CTLCOLORLISTBOX, &Shell::OnListColor),
            fw::OnMessage(WM_CTLCOLOREDIT, &Shell::OnListColor),
            fw::OnMessage(WM_CTLCOLORBTN, &Shell::OnListColor),
            fw::OnMessage(WM_DRAWITEM, &Shell::OnDrawItem),
            fw::OnMessage(WM_MEASUREITEM, &Shell::OnMeasureItem),
            fw::OnMessage(WM_DELETEITEM, &Shell::OnDeleteItem),
            fw::OnCommand(KVPE_ID_LAUNCHER_BUTTON, BN_CLICKED, &Shell::OnLauncherClicked),
            fw::OnCommand(KVPE_ID_LIST, CBN_SELENDCANCEL, &Shell::OnDropDownCancelled),
            fw::OnCommand(KVPE_ID_LIST, CBN_SELENDOK, &Shell::OnDropDownAccepted),
            fw::OnMessage(WM_KVPE_CANCEL_DROPDOWN, &Shell::OnCancelDropDown),
            fw::OnMessage(WM_DESTROY, &Shell::OnDestroyWindow),
        };
        const fw::ComPtr<IUnknown> self(this->GetUnknown());
        LRESULT result = 0;
        return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
                   ? result
                   : Base::WindowProc(message, wParam, lParam);
    }

protected:
    CKvPeComboTempl() = default;
    ~CKvPeComboTempl() override = default;

    // CKvPeShell
    HRESULT DoVerbHide(const RECT* position, HWND parent) override {
        CancelBeforeLeaving();
        return Base::DoVerbHide(position, parent);
    }

    HRESULT OnUIDeactivating() override {
        CancelBeforeLeaving();
        return Base::OnUIDeactivating();
    }

private:
    LRESULT OnListColor(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        return this->ToLogic(&CKvPeCtrlBase::Handle_OnCtlColor, message, wParam, lParam, handled);
    }

    LRESULT OnDrawItem(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        return OwnerDraw(&LogicClass::OnDrawItem, message, wParam, reinterpret_cast<DRAWITEMSTRUCT*>(lParam),
                         handled);
    }

    LRESULT OnMeasureItem(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        return OwnerDraw(&LogicClass::OnMeasureItem, message, wParam,
                         reinterpret_cast<MEASUREITEMSTRUCT*>(lParam), handled);
    }

    LRESULT OnDeleteItem(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        return OwnerDraw(&LogicClass::OnDeleteItem, message, wParam,
                         reinterpret_cast<DELETEITEMSTRUCT*>(lParam), handled);
    }

    // TRUE is the system's answer for a duty that is done.
    template <class Operation, class Item>
    LRESULT OwnerDraw(Operation operation, UINT message, WPARAM id, Item* item, BOOL& handled) {
        handled = this->m_logic != nullptr;
        if (handled) {
            fw::Ignore((this->Logic()->*operation)(message, id, item, handled));  // it tells by handled
        }
        return handled;
    }

    LRESULT OnLauncherClicked(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        handled = this->m_logic != nullptr;
        return handled ? this->Logic()->OnButtonCommand(HIWORD(wParam), LOWORD(wParam),
                                                        reinterpret_cast<HWND>(lParam), handled)
                       : 0;
    }

    // A list may report a close as cancelled and then as accepted: the acceptance counts, so that a cancel
    // waits until the messages of the close are through.
    LRESULT OnDropDownCancelled(UINT, WPARAM, LPARAM, BOOL&) {
        m_cancelPending = true;
        this->PostMessage(WM_KVPE_CANCEL_DROPDOWN);
        return 0;
    }

    LRESULT OnDropDownAccepted(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        m_cancelPending = false;
        handled = this->m_logic != nullptr;
        return handled ? this->Logic()->OnSelectionEndOk(message, wParam, lParam, handled) : 0;
    }

    LRESULT OnCancelDropDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) {
        handled = m_cancelPending && this->m_logic;
        if (!handled) {
            return 0;
        }
        m_cancelPending = false;
        return this->Logic()->OnSelectionCancel(message, wParam, lParam, handled);
    }

    // The cancel that was posted goes with the window.
    LRESULT OnDestroyWindow(UINT, WPARAM, LPARAM, BOOL& handled) {
        m_cancelPending = false;
        handled = FALSE;
        return 0;
    }

    // A row that is left before its cancel comes would take the entry under the mouse for a choice.
    void CancelBeforeLeaving() {
        BOOL handled = TRUE;
        OnCancelDropDown(WM_KVPE_CANCEL_DROPDOWN, 0, 0, handled);
    }

    bool m_cancelPending = false;
};
