#include "palette/container/ControlFrame.h"

#include <algorithm>
#include <array>
#include <utility>

#include "framework/base/Hresult.h"
#include "framework/com/ComEnumerator.h"
#include "palette/container/HostedControl.h"

namespace kvpalette {

namespace {

struct ObjectEnumeration {
    using Interface = IEnumUnknown;
    using Stored = fw::ComPtr<IUnknown>;
    using Given = IUnknown*;

    static HRESULT Copy(const Stored& from, Given& to) { return from.CopyTo(&to); }
    static void Destroy(Given& given) { given->Release(); }
};

}  // namespace

std::span<const fw::InterfaceEntry> ControlFrame::Interfaces() {
    static constexpr std::array s_interfaces{
        fw::Implements<ControlFrame, IOleContainer>(),
        fw::Implements<ControlFrame, IParseDisplayName, IOleContainer>(),
        fw::Implements<ControlFrame, IOleInPlaceFrame>(),
        fw::Implements<ControlFrame, IOleInPlaceUIWindow, IOleInPlaceFrame>(),
        fw::Implements<ControlFrame, IOleWindow, IOleInPlaceFrame>(),
    };
    return s_interfaces;
}

void ControlFrame::Disconnect() {
    m_frameWindow = nullptr;
    m_controls.clear();
    m_active.Reset();
}

void ControlFrame::AddControl(HostedControl* control) {
    m_controls.push_back(control);
}

void ControlFrame::RemoveControl(HostedControl* control) {
    std::erase(m_controls, control);
}

bool ControlFrame::TranslateAccelerator(MSG& message) {
    const auto active = m_active;
    return active && active->TranslateAccelerator(&message) == S_OK;
}

STDMETHODIMP ControlFrame::ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlFrame::EnumObjects(DWORD flags, IEnumUnknown** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return fw::Guarded([&] {
        std::vector<fw::ComPtr<IUnknown>> objects;
        if (flags & OLECONTF_EMBEDDINGS) {
            for (const HostedControl* control : m_controls) {
                if (IUnknown* const object = control->Object()) {
                    objects.emplace_back(object);
                }
            }
        }
        return fw::ComEnumerator<ObjectEnumeration>::Make(nullptr, std::move(objects), nullptr, result);
    });
}

STDMETHODIMP ControlFrame::LockContainer(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlFrame::GetWindow(HWND* result) {
    RETURN_IF_NULL_POINTER(result);
    *result = m_frameWindow;
    return m_frameWindow ? S_OK : E_UNEXPECTED;
}

STDMETHODIMP ControlFrame::ContextSensitiveHelp(BOOL) {
    return S_OK;
}

STDMETHODIMP ControlFrame::GetBorder(LPRECT border) {
    RETURN_IF_NULL_POINTER(border);
    *border = {};
    return INPLACE_E_NOTOOLSPACE;
}

STDMETHODIMP ControlFrame::RequestBorderSpace(LPCBORDERWIDTHS) {
    return INPLACE_E_NOTOOLSPACE;
}

STDMETHODIMP ControlFrame::SetBorderSpace(LPCBORDERWIDTHS) {
    return S_OK;
}

STDMETHODIMP ControlFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    m_active = object;
    return S_OK;
}

STDMETHODIMP ControlFrame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) {
    return S_OK;
}

STDMETHODIMP ControlFrame::SetMenu(HMENU, HOLEMENU, HWND) {
    return S_OK;
}

STDMETHODIMP ControlFrame::RemoveMenus(HMENU) {
    return S_OK;
}

STDMETHODIMP ControlFrame::SetStatusText(LPCOLESTR) {
    return S_OK;
}

STDMETHODIMP ControlFrame::EnableModeless(BOOL enable) {
    if (m_frameWindow) {
        ::EnableWindow(m_frameWindow, enable);
    }
    return S_OK;
}

STDMETHODIMP ControlFrame::TranslateAccelerator(LPMSG, WORD) {
    return S_FALSE;
}

}  // namespace kvpalette
