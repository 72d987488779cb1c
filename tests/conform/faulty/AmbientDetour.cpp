#include "tests/conform/faulty/AmbientDetour.h"

#include "framework/com/Variant.h"
#include "tests/conform/faulty/Fault.h"

fw::ComPtr<IDispatch> AmbientDetour::Around(const fw::ComPtr<IDispatch>& site) {
    const bool isAskedFor = HasFault(L"ambient-as-method") || HasFault(L"ambient-with-argument");
    return site && isAskedFor ? fw::ComPtr<IDispatch>(new AmbientDetour(site)) : site;
}

STDMETHODIMP_(ULONG) AmbientDetour::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP AmbientDetour::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags,
                                   DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                   UINT* badArgument) {
    fw::Variant argument = fw::Variant::FromLong(1);
    DISPPARAMS given = *parameters;
    if (HasFault(L"ambient-with-argument")) {
        given.rgvarg = argument.Address();
        given.cArgs = 1;
    }
    const WORD asked = HasFault(L"ambient-as-method") ? DISPATCH_METHOD : flags;
    return m_site->Invoke(id, reserved, locale, asked, &given, result, exception, badArgument);
}
