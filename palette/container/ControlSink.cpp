#include "palette/container/ControlSink.h"

#include <algorithm>
#include <array>
#include <string>

#include "framework/base/Hresult.h"
#include "framework/com/Guarded.h"
#include "framework/com/Variant.h"
#include "framework/window/Geometry.h"
#include "palette/container/HostedControl.h"
#include "refhost/testing/Journal.h"
#include "refhost/testing/JournalText.h"

namespace kvpalette {

namespace {

constexpr DISPID c_onRightButton = -2030;
constexpr DISPID c_onMiddleButton = -2031;
constexpr DISPID c_onBeginUpdate = -2002;
constexpr DISPID c_onEndUpdate = -2003;

// Arguments stand in reverse order in an automation call.
LONG_PTR ArgumentOf(const DISPPARAMS* parameters, UINT index) {
    if (!parameters || index >= parameters->cArgs) {
        return 0;
    }
    fw::Variant value;
    if (FAILED(value.CopyIndirectFrom(parameters->rgvarg[parameters->cArgs - 1 - index])) ||
        FAILED(value.ChangeType(VT_I8))) {
        return 0;
    }
    return static_cast<LONG_PTR>(value.Get().llVal);
}

}  // namespace

std::span<const fw::InterfaceEntry> ControlSink::Interfaces() {
    static constexpr std::array s_interfaces{
        fw::Implements<ControlSink, IKvPiPropertyEditEventsSink2>(),
        fw::Implements<ControlSink, IKvPiPropertyEditEventsSink, IKvPiPropertyEditEventsSink2>(),
        fw::Implements<ControlSink, IDispatch, IKvPiPropertyEditEventsSink2>(),
        fw::Implements<ControlSink, IPropertyNotifySink>(),
    };
    return s_interfaces;
}

template <class Work>
HRESULT ControlSink::Tell(const wchar_t* event, const std::wstring& arguments, Work&& work) {
    return fw::Guarded([&] {
        if (kvhost::Journal* const journal = kvhost::Journal::Attached()) {
            journal->Write(event, arguments);
        }
        if (m_owner) {
            work(*m_owner, m_owner->Events());
        }
        return S_OK;
    });
}

STDMETHODIMP ControlSink::GetTypeInfoCount(UINT* count) {
    RETURN_IF_NULL_POINTER(count);
    *count = 0;
    return S_OK;
}

STDMETHODIMP ControlSink::GetTypeInfo(UINT, LCID, ITypeInfo** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) {
    RETURN_IF_NULL_POINTER(ids);
    std::fill_n(ids, count, DISPID_UNKNOWN);
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP ControlSink::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                 VARIANT*, EXCEPINFO*, UINT*) {
    RETURN_HR_IF(DISP_E_UNKNOWNINTERFACE, !::IsEqualIID(reserved, IID_NULL));
    RETURN_HR_IF(DISP_E_MEMBERNOTFOUND, !(flags & DISPATCH_METHOD));
    switch (id) {
        case DISPID_CLICK:
            return OnClick();
        case DISPID_DBLCLICK:
            return OnDblClick();
        case DISPID_KEYDOWN:
            return OnKeyDown(ArgumentOf(parameters, 0), ArgumentOf(parameters, 1));
        case DISPID_KEYUP:
            return OnKeyUp(ArgumentOf(parameters, 0), ArgumentOf(parameters, 1));
        case c_onRightButton:
            return OnRButtonDown(static_cast<UINT_PTR>(ArgumentOf(parameters, 0)), ArgumentOf(parameters, 1));
        case c_onMiddleButton:
            return OnMButtonDown(static_cast<UINT_PTR>(ArgumentOf(parameters, 0)), ArgumentOf(parameters, 1));
        case c_onBeginUpdate:
            return OnBeginPropertyUpdate();
        case c_onEndUpdate:
            return OnEndPropertyUpdate();
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
}

STDMETHODIMP ControlSink::OnClick() {
    return Tell(L"OnClick", {}, [](auto& control, auto& events) { events.OnControlClick(control); });
}

STDMETHODIMP ControlSink::OnDblClick() {
    return Tell(L"OnDblClick", {}, [](auto& control, auto& events) { events.OnControlDoubleClick(control); });
}

STDMETHODIMP ControlSink::OnKeyDown(LONG_PTR key, LONG_PTR keyData) {
    return Tell(L"OnKeyDown", kvhost::AsText(key), [&](auto& control, auto& events) {
        events.OnControlKey(control, static_cast<WPARAM>(key), keyData);
    });
}

STDMETHODIMP ControlSink::OnKeyUp(LONG_PTR key, LONG_PTR) {
    return Tell(L"OnKeyUp", kvhost::AsText(key), [](auto&, auto&) {});
}

STDMETHODIMP ControlSink::OnRButtonDown(UINT_PTR wParam, LONG_PTR lParam) {
    const CPoint point(static_cast<LPARAM>(lParam));
    return Tell(L"OnRButtonDown", kvhost::JoinAsText(wParam, point.x, point.y),
                [&](auto& control, auto& events) { events.OnControlRightButton(control, wParam, point); });
}

STDMETHODIMP ControlSink::OnMButtonDown(UINT_PTR wParam, LONG_PTR lParam) {
    const CPoint point(static_cast<LPARAM>(lParam));
    return Tell(L"OnMButtonDown", kvhost::JoinAsText(wParam, point.x, point.y),
                [&](auto& control, auto& events) { events.OnControlMiddleButton(control, wParam, point); });
}

STDMETHODIMP ControlSink::OnBeginPropertyUpdate() {
    return Tell(L"OnBeginPropertyUpdate", {},
                [](auto& control, auto& events) { events.OnControlBeginUpdate(control); });
}

STDMETHODIMP ControlSink::OnEndPropertyUpdate() {
    return Tell(L"OnEndPropertyUpdate", {},
                [](auto& control, auto& events) { events.OnControlEndUpdate(control); });
}

STDMETHODIMP ControlSink::OnBeginModal(UINT code) {
    return Tell(L"OnBeginModal", kvhost::AsText(code),
                [](auto& control, auto& events) { events.OnControlModal(control, true); });
}

STDMETHODIMP ControlSink::OnEndModal(UINT code) {
    return Tell(L"OnEndModal", kvhost::AsText(code),
                [](auto& control, auto& events) { events.OnControlModal(control, false); });
}

STDMETHODIMP ControlSink::OnChanged(DISPID id) {
    return Tell(L"OnChanged", kvhost::AsText(id), [](auto&, auto&) {});
}

STDMETHODIMP ControlSink::OnRequestEdit(DISPID id) {
    return Tell(L"OnRequestEdit", kvhost::AsText(id), [](auto&, auto&) {});
}

}  // namespace kvpalette
