#include "tests/conform/faulty/Fault.h"
#include "tests/conform/faulty/FaultyRow.h"

STDMETHODIMP FaultyRow::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    return CKvPeEditTempl::SetAdvise(aspects, flags, HasFault(L"loses-view-sink") ? nullptr : sink);
}

STDMETHODIMP FaultyRow::Advise(IAdviseSink* sink, DWORD* cookie) {
    if (HasFault(L"keeps-notice-sink")) {
        sink->AddRef();
    }
    return CKvPeEditTempl::Advise(sink, cookie);
}

STDMETHODIMP FaultyRow::Unadvise(DWORD cookie) {
    const HRESULT result = CKvPeEditTempl::Unadvise(cookie);
    return HasFault(L"any-notice-cookie") ? S_OK : HasFault(L"no-notice-cookie") ? E_FAIL : result;
}
