#include "tests/conform/faulty/Fault.h"
#include "tests/conform/faulty/FaultyRow.h"

STDMETHODIMP FaultyRow::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    if (!container && HasFault(L"quick-without-record")) {
        return S_OK;
    }
    if (!control && HasFault(L"quick-without-answer")) {
        return S_OK;
    }
    if (!container || !control) {
        return CKvPeEditTempl::QuickActivate(container, control);
    }
    QACONTAINER taken = *container;
    if (HasFault(L"quick-takes-short-record")) {
        taken.cbSize = sizeof taken;
    }
    if (HasFault(L"quick-drops-events")) {
        taken.pUnkEventSink = nullptr;
    }
    if (HasFault(L"quick-drops-notices")) {
        taken.pPropertyNotifySink = nullptr;
    }
    if (HasFault(L"quick-drops-view")) {
        taken.pAdviseSink = nullptr;
    }
    if (HasFault(L"quick-drops-font")) {
        taken.pFont = nullptr;
    }
    if (HasFault(L"quick-swaps-colors")) {
        std::swap(taken.colorFore, taken.colorBack);
    }
    if (!taken.pUnkEventSink && HasFault(L"quick-needs-sink")) {
        return E_INVALIDARG;
    }
    const HRESULT result = CKvPeEditTempl::QuickActivate(&taken, control);
    if (SUCCEEDED(result) && HasFault(L"quick-status")) {
        control->dwMiscStatus = 0;
    }
    if (SUCCEEDED(result) && HasFault(L"quick-policy")) {
        control->dwPointerActivationPolicy = 1;
    }
    return result;
}

STDMETHODIMP FaultyRow::SetContentExtent(LPSIZEL extent) {
    SIZEL taken = *extent;
    if (HasFault(L"quick-cuts-extent")) {
        --taken.cy;
    }
    return CKvPeEditTempl::SetContentExtent(&taken);
}
