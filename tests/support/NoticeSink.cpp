#include "tests/support/NoticeSink.h"

#include "tests/support/JournalNote.h"

namespace kvtest {

fw::ComPtr<NoticeSink> NoticeSink::Make() {
    return new NoticeSink;
}

STDMETHODIMP NoticeSink::QueryInterface(REFIID id, void** result) {
    *result = nullptr;
    if (id == IID_IUnknown || id == IID_IAdviseSink || id == IID_IAdviseSinkEx) {
        *result = static_cast<IAdviseSinkEx*>(this);
    } else if (id == IID_IPropertyNotifySink) {
        *result = static_cast<IPropertyNotifySink*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) NoticeSink::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP_(void) NoticeSink::OnDataChange(FORMATETC*, STGMEDIUM*) {
    Note(L"Notice.OnDataChange");
}

STDMETHODIMP_(void) NoticeSink::OnViewChange(DWORD aspect, LONG index) {
    Note(L"Notice.OnViewChange", aspect, index);
}

STDMETHODIMP_(void) NoticeSink::OnRename(IMoniker*) {
    Note(L"Notice.OnRename");
}

STDMETHODIMP_(void) NoticeSink::OnSave() {
    Note(L"Notice.OnSave");
}

STDMETHODIMP_(void) NoticeSink::OnClose() {
    Note(L"Notice.OnClose");
}

STDMETHODIMP_(void) NoticeSink::OnViewStatusChange(DWORD status) {
    Note(L"Notice.OnViewStatusChange", status);
}

STDMETHODIMP NoticeSink::OnChanged(DISPID id) {
    Note(L"Notice.OnChanged", id);
    return S_OK;
}

STDMETHODIMP NoticeSink::OnRequestEdit(DISPID id) {
    Note(L"Notice.OnRequestEdit", id);
    return S_OK;
}

}  // namespace kvtest
