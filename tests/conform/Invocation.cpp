#include "tests/conform/Invocation.h"

namespace kvconform {

HRESULT Invoke(IDispatch& control, DISPID id, WORD flags, std::vector<VARIANT> arguments, VARIANT* result) {
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    if (flags == DISPATCH_PROPERTYPUT) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    EXCEPINFO exception{};
    const HRESULT invoked =
        control.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result, &exception, nullptr);
    ::SysFreeString(exception.bstrSource);
    ::SysFreeString(exception.bstrDescription);
    ::SysFreeString(exception.bstrHelpFile);
    return invoked == DISP_E_EXCEPTION ? exception.scode : invoked;
}

}  // namespace kvconform
