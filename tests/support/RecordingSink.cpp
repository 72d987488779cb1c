#include "tests/support/RecordingSink.h"

#include <utility>

#include "tests/support/JournalNote.h"

namespace kvtest {
namespace {

long s_live = 0;

}  // namespace

RecordingSink::RecordingSink(std::wstring name) : m_name(std::move(name)) {
    ++s_live;
}

RecordingSink::~RecordingSink() {
    --s_live;
}

fw::ComPtr<RecordingSink> RecordingSink::Make(std::wstring name) {
    return new RecordingSink(std::move(name));
}

long RecordingSink::LiveCount() {
    return s_live;
}

STDMETHODIMP RecordingSink::QueryInterface(REFIID id, void** result) {
    *result = nullptr;
    const bool isSecond = id == __uuidof(IKvPiPropertyEditEventsSink2);
    if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(IKvPiPropertyEditEventsSink) ||
        (isSecond && answersSecondInterface)) {
        *result = static_cast<IKvPiPropertyEditEventsSink2*>(this);
        AddRef();
        return S_OK;
    }
    return E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) RecordingSink::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP RecordingSink::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

STDMETHODIMP RecordingSink::GetTypeInfo(UINT, LCID, ITypeInfo** result) {
    *result = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP RecordingSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP RecordingSink::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
    return DISP_E_MEMBERNOTFOUND;
}

template <class... Arguments>
HRESULT RecordingSink::Tell(const wchar_t* event, const Arguments&... arguments) {
    const fw::ComPtr<RecordingSink> self(this);
    Note((m_name.empty() ? std::wstring(event) : m_name + L"." + event).c_str(), arguments...);
    return onEvent ? onEvent(event) : S_OK;
}

STDMETHODIMP RecordingSink::OnClick() {
    return Tell(L"OnClick");
}

STDMETHODIMP RecordingSink::OnDblClick() {
    return Tell(L"OnDblClick");
}

STDMETHODIMP RecordingSink::OnKeyDown(LONG_PTR key, LONG_PTR keyData) {
    return Tell(L"OnKeyDown", key, keyData);
}

STDMETHODIMP RecordingSink::OnKeyUp(LONG_PTR key, LONG_PTR keyData) {
    return Tell(L"OnKeyUp", key, keyData);
}

STDMETHODIMP RecordingSink::OnRButtonDown(UINT_PTR keys, LONG_PTR point) {
    return Tell(L"OnRButtonDown", keys, point);
}

STDMETHODIMP RecordingSink::OnMButtonDown(UINT_PTR keys, LONG_PTR point) {
    return Tell(L"OnMButtonDown", keys, point);
}

STDMETHODIMP RecordingSink::OnBeginPropertyUpdate() {
    return Tell(L"OnBeginPropertyUpdate");
}

STDMETHODIMP RecordingSink::OnEndPropertyUpdate() {
    return Tell(L"OnEndPropertyUpdate");
}

STDMETHODIMP RecordingSink::OnBeginModal(UINT code) {
    return Tell(L"OnBeginModal", code);
}

STDMETHODIMP RecordingSink::OnEndModal(UINT code) {
    return Tell(L"OnEndModal", code);
}

}  // namespace kvtest
