#include "core/CKvPeShell.h"

#include "core/DispatchIds.h"
#include "framework/base/Hresult.h"
#include "framework/com/Variant.h"

namespace {

// Bits of LaunchDialog's flags.
constexpr LONG c_launchPropertyDialog = 8;
constexpr LONG c_pressButton = 24;

}  // namespace

CKvPeShell::CKvPeShell()
    : m_sinks(*this, __uuidof(IKvPiPropertyEditEventsSink2)),
      m_propertyNotifySinks(*this, IID_IPropertyNotifySink) {
}

CKvPeShell::~CKvPeShell() = default;

void CKvPeShell::FinalRelease() {
    if (m_logic) {
        fw::Ignore(m_logic->Cleanup());  // before the window: a box that loses its window would commit
    }
    CComControl::FinalRelease();
}

std::span<const fw::InterfaceEntry> CKvPeShell::Interfaces() {
    using Editing = IKvPiPropertyEditControl2;
    static constexpr auto s_interfaces = fw::JoinInterfaces(
        std::array{
            fw::Implements<CKvPeShell, IDispatch, Editing>(),
            fw::Implements<CKvPeShell, IKvPiPropertyEditControl, Editing>(),
            fw::Implements<CKvPeShell, IKvPiPropertyEditControl2>(),
        },
        fw::ControlInterfaces<CKvPeShell>);
    return s_interfaces;
}

STDMETHODIMP CKvPeShell::InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                         VARIANT_BOOL readOnly) {
    return WithLogic([&](CKvPeCtrlBase& logic) {
        fw::Ignore(OnAmbientPropertyChange(DISPID_UNKNOWN));  // the container may offer none
        return logic.Handle_InitEditControl(objects, dynamicProperties, dispids, readOnly);
    });
}

STDMETHODIMP CKvPeShell::Refresh(ULONG) {
    return WithLogic([&](CKvPeCtrlBase& logic) {
        fw::Ignore(logic.Handle_Refresh());  // a failed read keeps what the row shows
        FireViewChange();
        return S_OK;
    });
}

STDMETHODIMP CKvPeShell::get_KeepFocus(VARIANT_BOOL* keepFocus) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_get_KeepFocus(keepFocus); });
}

STDMETHODIMP CKvPeShell::put_BackColor(OLE_COLOR color) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_put_BackColor(color); });
}

STDMETHODIMP CKvPeShell::get_BackColor(OLE_COLOR* color) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_get_BackColor(color); });
}

STDMETHODIMP CKvPeShell::put_ForeColor(OLE_COLOR color) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_put_ForeColor(color); });
}

STDMETHODIMP CKvPeShell::get_ForeColor(OLE_COLOR* color) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_get_ForeColor(color); });
}

STDMETHODIMP CKvPeShell::put_ReadOnlyBackColor(OLE_COLOR color) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_put_ReadOnlyBackColor(color); });
}

STDMETHODIMP CKvPeShell::get_ReadOnlyBackColor(OLE_COLOR* color) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_get_ReadOnlyBackColor(color); });
}

STDMETHODIMP CKvPeShell::put_ReadOnlyForeColor(OLE_COLOR color) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_put_ReadOnlyForeColor(color); });
}

STDMETHODIMP CKvPeShell::get_ReadOnlyForeColor(OLE_COLOR* color) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_get_ReadOnlyForeColor(color); });
}

STDMETHODIMP CKvPeShell::put_Font(IUnknown* font) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_put_Font(font); });
}

STDMETHODIMP CKvPeShell::get_Font(IUnknown** font) {
    return WithLogic([&](CKvPeCtrlBase& logic) { return logic.Handle_get_Font(font); });
}

STDMETHODIMP CKvPeShell::get_PropertyIdentifier(IUnknown** identifier) {
    return WithLogic([&](CKvPeCtrlBase& logic) -> HRESULT {
        RETURN_IF_NULL_POINTER(identifier);
        *identifier = nullptr;
        fw::ComPtr<IKvPiPropertyIdentifier> held;
        RETURN_IF_FAILED_EXPECTED(logic.Handle_GetPropertyIdentifier(held.Put()));
        return held.CopyTo(identifier);
    });
}

STDMETHODIMP CKvPeShell::put_PropertyIdentifier(IUnknown* identifier) {
    return WithLogic([&](CKvPeCtrlBase& logic) -> HRESULT {
        const fw::ComPtr<IKvPiPropertyIdentifier> known = fw::QueryFrom<IKvPiPropertyIdentifier>(identifier);
        RETURN_HR_IF(E_NOINTERFACE, identifier && !known);
        return logic.Handle_PutPropertyIdentifier(known.Get());
    });
}

STDMETHODIMP CKvPeShell::SetValue(VARIANT* value, LONG valueType) {
    return WithLogic([&](CKvPeCtrlBase& logic) {
        return logic.SetPropertyValue(value, static_cast<ValueType>(valueType));
    });
}

STDMETHODIMP CKvPeShell::LaunchDialog(BSTR text, LONG flags) {
    return WithLogic([&](CKvPeCtrlBase& logic) -> HRESULT {
        if ((flags & c_pressButton) >= c_pressButton) {
            return PressCustomButton();
        }
        RETURN_HR_IF(E_UNEXPECTED, (flags & c_launchPropertyDialog) == 0);
        CString row(fw::Bstr::ViewOf(text));
        return logic.LaunchZRBPropertyDialog(row);
    });
}

HRESULT CKvPeShell::PressCustomButton() {
    return E_UNEXPECTED;
}

// IOleControl

STDMETHODIMP CKvPeShell::GetControlInfo(CONTROLINFO* info) {
    RETURN_IF_NULL_POINTER(info);
    *info = {.cb = sizeof(CONTROLINFO), .hAccel = nullptr, .cAccel = 0, .dwFlags = 0};
    return S_OK;
}

STDMETHODIMP CKvPeShell::OnAmbientPropertyChange(DISPID id) {
    const fw::ComPtr<IUnknown> self(GetUnknown());  // a container that is asked may let the control go
    return fw::Guarded([&] {
        const bool all = id == DISPID_UNKNOWN;
        if (all || id == DISPID_FONT) {
            TakeAmbientFont();
        }
        if (all || id == DISPID_FORECOLOR) {
            TakeAmbientForeColor();
        }
        if (all || id == DISPID_BACKCOLOR) {
            TakeAmbientBackColor();
        }
        return S_OK;
    });
}
