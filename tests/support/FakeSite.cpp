#include "tests/support/FakeSite.h"

#include "tests/support/JournalNote.h"

namespace kvtest {
namespace {

long s_live = 0;

}  // namespace

FakeSite::FakeSite(HWND parent, const RECT& bounds)
    : place(bounds), m_parent(parent), m_frame(FakeFrame::Make(::GetAncestor(parent, GA_ROOT))) {
    ++s_live;
}

FakeSite::~FakeSite() {
    --s_live;
}

fw::ComPtr<FakeSite> FakeSite::Make(HWND parent, const RECT& place) {
    return new FakeSite(parent, place);
}

void FakeSite::MoveTo(HWND parent) {
    m_parent = parent;
    m_frame = FakeFrame::Make(::GetAncestor(parent, GA_ROOT));
}

long FakeSite::LiveCount() {
    return s_live;
}

STDMETHODIMP FakeSite::QueryInterface(REFIID id, void** result) {
    *result = nullptr;
    if (id == IID_IUnknown || id == IID_IOleClientSite) {
        *result = static_cast<IOleClientSite*>(this);
    } else if (id == IID_IOleWindow || id == IID_IOleInPlaceSite) {
        *result = static_cast<IOleInPlaceSite*>(this);
    } else if (id == IID_IOleControlSite) {
        *result = static_cast<IOleControlSite*>(this);
    } else if (id == IID_IDispatch && offersAmbients) {
        *result = static_cast<IDispatch*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) FakeSite::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

// IOleClientSite

STDMETHODIMP FakeSite::SaveObject() {
    Note(L"Site.SaveObject");
    return S_OK;
}

STDMETHODIMP FakeSite::GetMoniker(DWORD, DWORD, IMoniker** result) {
    Note(L"Site.GetMoniker");
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP FakeSite::GetContainer(IOleContainer** result) {
    Note(L"Site.GetContainer");
    *result = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP FakeSite::ShowObject() {
    Note(L"Site.ShowObject");
    return S_OK;
}

STDMETHODIMP FakeSite::OnShowWindow(BOOL show) {
    Note(L"Site.OnShowWindow", show);
    return S_OK;
}

STDMETHODIMP FakeSite::RequestNewObjectLayout() {
    Note(L"Site.RequestNewObjectLayout");
    return E_NOTIMPL;
}

// IOleWindow

STDMETHODIMP FakeSite::GetWindow(HWND* result) {
    Note(L"Site.GetWindow");
    *result = m_parent;
    return S_OK;
}

STDMETHODIMP FakeSite::ContextSensitiveHelp(BOOL enter) {
    Note(L"Site.ContextSensitiveHelp", enter);
    return S_OK;
}

// IOleInPlaceSite

STDMETHODIMP FakeSite::CanInPlaceActivate() {
    Note(L"Site.CanInPlaceActivate");
    return canInPlaceActivate;
}

STDMETHODIMP FakeSite::OnInPlaceActivate() {
    Note(L"Site.OnInPlaceActivate");
    isActive = true;
    return S_OK;
}

STDMETHODIMP FakeSite::OnUIActivate() {
    Note(L"Site.OnUIActivate");
    isUIActive = true;
    return S_OK;
}

STDMETHODIMP FakeSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                        LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    Note(L"Site.GetWindowContext", info->cb);
    *frame = nullptr;
    *document = nullptr;
    if (info->cb != 32) {
        return E_INVALIDARG;  // by its size containers tell the forms of the record apart
    }
    if (FAILED(windowContextResult)) {
        return windowContextResult;
    }
    *frame = m_frame.Get();
    m_frame->AddRef();
    *position = place;
    *clip = place;
    info->fMDIApp = FALSE;
    info->hwndFrame = ::GetAncestor(m_parent, GA_ROOT);
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP FakeSite::Scroll(SIZE) {
    Note(L"Site.Scroll");
    return E_NOTIMPL;
}

STDMETHODIMP FakeSite::OnUIDeactivate(BOOL undoable) {
    Note(L"Site.OnUIDeactivate", undoable);
    isUIActive = false;
    return S_OK;
}

STDMETHODIMP FakeSite::OnInPlaceDeactivate() {
    Note(L"Site.OnInPlaceDeactivate");
    isActive = false;
    return S_OK;
}

STDMETHODIMP FakeSite::DiscardUndoState() {
    Note(L"Site.DiscardUndoState");
    return S_OK;
}

STDMETHODIMP FakeSite::DeactivateAndUndo() {
    Note(L"Site.DeactivateAndUndo");
    return S_OK;
}

STDMETHODIMP FakeSite::OnPosRectChange(LPCRECT) {
    Note(L"Site.OnPosRectChange");
    return S_OK;
}

// IOleControlSite

STDMETHODIMP FakeSite::OnControlInfoChanged() {
    Note(L"Site.OnControlInfoChanged");
    return S_OK;
}

STDMETHODIMP FakeSite::LockInPlaceActive(BOOL lock) {
    Note(L"Site.LockInPlaceActive", lock);
    return S_OK;
}

STDMETHODIMP FakeSite::GetExtendedControl(IDispatch** result) {
    Note(L"Site.GetExtendedControl");
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP FakeSite::TransformCoords(POINTL*, POINTF*, DWORD) {
    Note(L"Site.TransformCoords");
    return E_NOTIMPL;
}

STDMETHODIMP FakeSite::TranslateAccelerator(MSG* message, DWORD) {
    Note(L"Site.TranslateAccelerator", message->message, message->wParam);
    return S_FALSE;
}

STDMETHODIMP FakeSite::OnFocus(BOOL gotFocus) {
    Note(L"Site.OnFocus", gotFocus);
    return S_OK;
}

STDMETHODIMP FakeSite::ShowPropertyFrame() {
    Note(L"Site.ShowPropertyFrame");
    return E_NOTIMPL;
}

// IDispatch

STDMETHODIMP FakeSite::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP FakeSite::GetTypeInfo(UINT, LCID, ITypeInfo** result) {
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP FakeSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP FakeSite::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                              VARIANT* result, EXCEPINFO*, UINT*) {
    Note(L"Site.Ambient", id);
    const bool isRead = reserved == IID_NULL && flags == DISPATCH_PROPERTYGET && result && parameters &&
                        parameters->cArgs == 0 && parameters->cNamedArgs == 0;
    if (!isRead) {
        Note(L"Site.AmbientRefused", id, flags);
        return DISP_E_MEMBERNOTFOUND;
    }
    const auto found = ambients.find(id);
    return found == ambients.end() ? DISP_E_MEMBERNOTFOUND : found->second.CopyTo(result);
}

}  // namespace kvtest
