#include "tests/conform/faulty/AmbientDetour.h"
#include "tests/conform/faulty/Fault.h"
#include "tests/conform/faulty/FaultyRow.h"

STDMETHODIMP FaultyRow::SetClientSite(IOleClientSite* site) {
    if (site && HasFault(L"keeps-site")) {
        site->AddRef();
    }
    const HRESULT result = CKvPeEditTempl::SetClientSite(site);
    m_spAmbientDispatch = AmbientDetour::Around(m_spAmbientDispatch);
    return result;
}

// Verbs that are answered without the row: the answer's result, or E_PENDING for all others.
HRESULT FaultyRow::AnswerVerb(LONG verb) const {
    const bool isOfSystem = verb == -99;
    const bool isOfItsOwn = verb == 99;
    if ((verb == OLEIVERB_HIDE && HasFault(L"deaf-to-hide")) ||
        (verb == OLEIVERB_SHOW && HasFault(L"deaf-to-show")) ||
        (verb == OLEIVERB_OPEN && HasFault(L"deaf-to-open")) ||
        (isOfSystem && HasFault(L"knows-all-verbs"))) {
        return S_OK;
    }
    if ((isOfItsOwn && HasFault(L"refuses-own-verbs")) ||
        (m_spClientSite && !m_spAmbientDispatch && HasFault(L"needs-ambients"))) {
        return E_NOTIMPL;
    }
    return E_PENDING;
}

STDMETHODIMP FaultyRow::DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                               LPCRECT position) {
    if (HasFault(L"site-order") && m_spClientSite) {
        fw::Ignore(m_spClientSite->ShowObject());
    }
    const HRESULT answer = AnswerVerb(verb);
    if (answer != E_PENDING) {
        return answer;
    }
    const bool isForUser = verb == OLEIVERB_OPEN && HasFault(L"opens-for-user");
    const HRESULT result = CKvPeEditTempl::DoVerb(isForUser ? OLEIVERB_UIACTIVATE : verb, message, site,
                                                  index, parent, position);
    if (m_hWnd && HasFault(L"lies-elsewhere")) {
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    const auto place = fw::QueryFrom<IOleInPlaceSite>(m_spClientSite.Get());
    const bool hasNoContext = result == E_UNEXPECTED;
    if (FAILED(result) && place && HasFault(hasNoContext ? L"activates-by-half" : L"insists")) {
        fw::Ignore(place->OnInPlaceActivate());
    }
    return result;
}

STDMETHODIMP FaultyRow::EnumVerbs(IEnumOLEVERB** result) {
    if (HasFault(L"no-verbs")) {
        *result = nullptr;
        return E_NOTIMPL;
    }
    return CKvPeEditTempl::EnumVerbs(result);
}

STDMETHODIMP FaultyRow::UIDeactivate() {
    return HasFault(L"ends-silently") ? S_OK : CKvPeEditTempl::UIDeactivate();
}

STDMETHODIMP FaultyRow::Close(DWORD saveOption) {
    if (HasFault(L"keeps-window")) {
        return S_OK;
    }
    const HRESULT closed = CKvPeEditTempl::Close(saveOption);
    if (HasFault(L"keeps-module")) {
        GetModule()->Lock();
    }
    return closed;
}

STDMETHODIMP FaultyRow::OnAmbientPropertyChange(DISPID id) {
    if (!m_spAmbientDispatch && HasFault(L"fails-without-ambients")) {
        return E_FAIL;
    }
    const HRESULT result =
        CKvPeEditTempl::OnAmbientPropertyChange(HasFault(L"asks-for-all") ? DISPID_UNKNOWN : id);
    OLE_COLOR color = 0;
    if (id == DISPID_UNKNOWN && HasFault(L"forgets-color") && FAILED(GetAmbientBackColor(color))) {
        fw::Ignore(put_BackColor(0));
    }
    return result;
}
