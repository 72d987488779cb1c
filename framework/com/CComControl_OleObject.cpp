#include <array>
#include <cstring>
#include <cwchar>

#include "framework/base/Hresult.h"
#include "framework/com/CComControl.h"
#include "framework/com/CComModule.h"
#include "framework/com/ComEnumerator.h"
#include "framework/com/Guarded.h"

namespace {

HRESULT CopyToTaskMemory(const wchar_t* text, LPOLESTR* result) noexcept {
    const std::size_t bytes = (std::wcslen(text) + 1) * sizeof(wchar_t);
    *result = static_cast<LPOLESTR>(::CoTaskMemAlloc(bytes));
    RETURN_HR_IF(E_OUTOFMEMORY, !*result);
    std::memcpy(*result, text, bytes);
    return S_OK;
}

struct NamedVerb {
    LONG id;
    const wchar_t* name;
};

struct VerbTraits {
    using Interface = IEnumOLEVERB;
    using Stored = NamedVerb;
    using Given = OLEVERB;

    // The verbs stand in no menu of a container (no attributes), so their names are never seen by a user.
    static HRESULT Copy(const Stored& from, Given& to) noexcept {
        to = OLEVERB{from.id, nullptr, 0, 0};
        return CopyToTaskMemory(from.name, &to.lpszVerbName);
    }
    static void Destroy(Given& given) noexcept {
        ::CoTaskMemFree(std::exchange(given.lpszVerbName, nullptr));
    }
};

constexpr std::array s_verbs{
    NamedVerb{OLEIVERB_PRIMARY, L"Primary"},
    NamedVerb{OLEIVERB_SHOW, L"Show"},
    NamedVerb{OLEIVERB_OPEN, L"Open"},
    NamedVerb{OLEIVERB_HIDE, L"Hide"},
    NamedVerb{OLEIVERB_UIACTIVATE, L"UIActivate"},
    NamedVerb{OLEIVERB_INPLACEACTIVATE, L"InPlaceActivate"},
};

class ScopedFlag {
public:
    explicit ScopedFlag(bool& flag) noexcept : m_flag(flag), m_former(flag) { m_flag = true; }
    ~ScopedFlag() { m_flag = m_former; }
    ScopedFlag(const ScopedFlag&) = delete;
    ScopedFlag& operator=(const ScopedFlag&) = delete;

private:
    bool& m_flag;
    bool m_former;
};

}  // namespace

// IOleObject

STDMETHODIMP CComControl::SetClientSite(IOleClientSite* site) {
    return fw::Guarded([&] {
        RETURN_HR_IF(S_OK, site == m_spClientSite.Get());
        const fw::ComPtr<IUnknown> self(GetUnknown());
        // A container may take its site back without having closed the control.
        RETURN_IF_FAILED(InPlaceDeactivate());
        m_spInPlaceSite.Reset();
        m_quickAmbients = QuickAmbients();
        m_spAmbientDispatch = fw::QueryFrom<IDispatch>(site);
        m_spClientSite = site;
        return S_OK;
    });
}

STDMETHODIMP CComControl::GetClientSite(IOleClientSite** result) {
    RETURN_IF_NULL_POINTER(result);
    return m_spClientSite.CopyTo(result);
}

STDMETHODIMP CComControl::SetHostNames(LPCOLESTR, LPCOLESTR) {
    return S_OK;
}

STDMETHODIMP CComControl::Close(DWORD) {
    // A control has no document that could be saved, so the option makes no difference.
    return fw::Guarded([&] {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        const ScopedFlag closing(m_bClosing);
        ++m_closings;
        const HRESULT deactivated = InPlaceDeactivate();
        if (const fw::ComPtr<IOleAdviseHolder> holder = m_adviseHolder) {
            // A sink that fails must not keep the control open.
            fw::Ignore(holder->SendOnClose());
        }
        return deactivated;
    });
}

STDMETHODIMP CComControl::SetMoniker(DWORD, IMoniker*) {
    return E_NOTIMPL;
}

STDMETHODIMP CComControl::GetMoniker(DWORD, DWORD, IMoniker** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP CComControl::InitFromData(IDataObject*, BOOL, DWORD) {
    return E_NOTIMPL;
}

STDMETHODIMP CComControl::GetClipboardData(DWORD, IDataObject** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP CComControl::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT position) {
    return fw::Guarded([&] {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        return DoStandardVerb(verb, position, parent);
    });
}

HRESULT CComControl::DoStandardVerb(LONG verb, const RECT* position, HWND parent) {
    switch (verb) {
        case OLEIVERB_PRIMARY:
            return DoVerbPrimary(position, parent);
        case OLEIVERB_SHOW:
            return DoVerbShow(position, parent);
        case OLEIVERB_OPEN:
            return DoVerbOpen(position, parent);
        case OLEIVERB_HIDE:
            return DoVerbHide(position, parent);
        case OLEIVERB_UIACTIVATE:
            return DoVerbUIActivate(position, parent);
        case OLEIVERB_INPLACEACTIVATE:
            return DoVerbInPlaceActivate(position, parent);
        case OLEIVERB_DISCARDUNDOSTATE:
            return DoVerbDiscardUndo(position, parent);
        default:
            break;
    }
    RETURN_HR_IF(E_NOTIMPL, verb < 0);
    // An unknown verb of a control's own is taken for the primary one, and the container is told so.
    RETURN_IF_FAILED_EXPECTED(DoVerbPrimary(position, parent));
    return OLEOBJ_S_INVALIDVERB;
}

STDMETHODIMP CComControl::EnumVerbs(IEnumOLEVERB** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return fw::Guarded([&] {
        return fw::ComEnumerator<VerbTraits>::Make(nullptr, {s_verbs.begin(), s_verbs.end()}, GetUnknown(),
                                                   result);
    });
}

STDMETHODIMP CComControl::Update() {
    return S_OK;
}

STDMETHODIMP CComControl::IsUpToDate() {
    return S_OK;
}

STDMETHODIMP CComControl::GetUserClassID(CLSID* classId) {
    RETURN_IF_NULL_POINTER(classId);
    *classId = ClassId();
    return S_OK;
}

STDMETHODIMP CComControl::GetUserType(DWORD, LPOLESTR* result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return CopyToTaskMemory(Description(), result);
}

STDMETHODIMP CComControl::SetExtent(DWORD aspect, SIZEL* extent) {
    RETURN_IF_NULL_POINTER(extent);
    RETURN_HR_IF(DV_E_DVASPECT, aspect != DVASPECT_CONTENT);
    RETURN_HR_IF(E_INVALIDARG, extent->cx < 0 || extent->cy < 0);
    const bool changed = extent->cx != m_sizeExtent.cx || extent->cy != m_sizeExtent.cy;
    m_sizeExtent = *extent;
    // The size in pixels comes with SetObjectRects; only those who show a picture of the control must know
    // now.
    return changed ? fw::Guarded([&] {
        NotifyViewSink();
        return S_OK;
    })
                   : S_OK;
}

STDMETHODIMP CComControl::GetExtent(DWORD aspect, SIZEL* extent) {
    RETURN_IF_NULL_POINTER(extent);
    *extent = SIZEL{0, 0};
    RETURN_HR_IF(DV_E_DVASPECT, aspect != DVASPECT_CONTENT);
    *extent = m_sizeExtent;
    return S_OK;
}

STDMETHODIMP CComControl::Advise(IAdviseSink* sink, DWORD* cookie) {
    RETURN_IF_NULL_POINTER(cookie);
    *cookie = 0;
    RETURN_IF_NULL_POINTER(sink);
    if (!m_adviseHolder) {
        RETURN_IF_FAILED(::CreateOleAdviseHolder(m_adviseHolder.Put()));
    }
    return m_adviseHolder->Advise(sink, cookie);
}

STDMETHODIMP CComControl::Unadvise(DWORD cookie) {
    return m_adviseHolder ? m_adviseHolder->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

STDMETHODIMP CComControl::EnumAdvise(IEnumSTATDATA** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    // No enumerator and no failure: nobody has connected yet.
    return m_adviseHolder ? m_adviseHolder->EnumAdvise(result) : S_OK;
}

STDMETHODIMP CComControl::GetMiscStatus(DWORD aspect, DWORD* status) {
    RETURN_IF_NULL_POINTER(status);
    *status = 0;
    RETURN_HR_IF(DV_E_DVASPECT, aspect != DVASPECT_CONTENT);
    const CComModule* const module = GetModule();
    const fw::ObjectMapEntry* const object = module ? module->FindObject(ClassId()) : nullptr;
    *status = object ? object->miscStatus : fw::ControlMiscStatus;
    return S_OK;
}

STDMETHODIMP CComControl::SetColorScheme(LOGPALETTE*) {
    return E_NOTIMPL;
}

// The standard verbs

HRESULT CComControl::DoVerbPrimary(const RECT* position, HWND) {
    return InPlaceActivate(OLEIVERB_PRIMARY, position);
}

HRESULT CComControl::DoVerbShow(const RECT* position, HWND) {
    return InPlaceActivate(OLEIVERB_SHOW, position);
}

// There is no window outside the container that could be opened.
HRESULT CComControl::DoVerbOpen(const RECT* position, HWND parent) {
    return DoVerbShow(position, parent);
}

HRESULT CComControl::DoVerbHide(const RECT*, HWND) {
    LeaveUserInterface();
    if (IsWindow()) {
        ShowWindow(SW_HIDE);
    }
    return S_OK;
}

HRESULT CComControl::DoVerbUIActivate(const RECT* position, HWND) {
    return InPlaceActivate(OLEIVERB_UIACTIVATE, position);
}

HRESULT CComControl::DoVerbInPlaceActivate(const RECT* position, HWND) {
    return InPlaceActivate(OLEIVERB_INPLACEACTIVATE, position);
}

HRESULT CComControl::DoVerbDiscardUndo(const RECT*, HWND) {
    return S_OK;
}
