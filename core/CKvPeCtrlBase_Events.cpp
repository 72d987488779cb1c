#include "core/CIPropEditUIEvents.h"
#include "core/CKvPeCtrlBase.h"

namespace {

LRESULT LeaveUnhandled(BOOL& handled) {
    handled = FALSE;
    return 0;
}

}  // namespace

HRESULT CKvPeCtrlBase::Fire_OnKeyDown(UINT_PTR key, LONG_PTR keyData) {
    RETURN_HR_IF(E_FAIL, m_events == nullptr);
    return m_events->FireKeyDownEvent(key, keyData);
}

HRESULT CKvPeCtrlBase::Fire_OnKeyUp(UINT_PTR key, LONG_PTR keyData) {
    RETURN_HR_IF(E_FAIL, m_events == nullptr);
    return m_events->FireKeyUpEvent(key, keyData);
}

HRESULT CKvPeCtrlBase::Fire_OnRButtonDown(UINT_PTR keys, LONG_PTR point) {
    RETURN_HR_IF(E_FAIL, m_events == nullptr);
    return m_events->FireRButtonDownEvent(keys, point);
}

HRESULT CKvPeCtrlBase::Fire_OnMButtonDown(UINT_PTR keys, LONG_PTR point) {
    RETURN_HR_IF(E_FAIL, m_events == nullptr);
    return m_events->FireMButtonDownEvent(keys, point);
}

LRESULT CKvPeCtrlBase::Handle_OnKeyDown(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    handled = TRUE;
    return Fire_OnKeyDown(wParam, lParam);
}

LRESULT CKvPeCtrlBase::Handle_OnLButtonDown(UINT, WPARAM, LPARAM, BOOL& handled) {
    return LeaveUnhandled(handled);
}

LRESULT CKvPeCtrlBase::Handle_OnRButtonDown(UINT, WPARAM, LPARAM, BOOL& handled) {
    return LeaveUnhandled(handled);
}

LRESULT CKvPeCtrlBase::Handle_OnMButtonDown(UINT, WPARAM, LPARAM, BOOL& handled) {
    return LeaveUnhandled(handled);
}

LRESULT CKvPeCtrlBase::Handle_OnLButtonDblClk(UINT, WPARAM, LPARAM, BOOL& handled) {
    return LeaveUnhandled(handled);
}

LRESULT CKvPeCtrlBase::Handle_OnCreate(UINT, WPARAM, LPARAM, BOOL&) {
    return 0;
}

LRESULT CKvPeCtrlBase::Handle_OnMouseLeave(UINT, WPARAM, LPARAM, BOOL& handled) {
    return LeaveUnhandled(handled);
}
