#include "refhost/automation/PropertyDispatch.h"

#include <algorithm>

#include "framework/base/Hresult.h"
#include "framework/com/Guarded.h"
#include "refhost/automation/AutomationError.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/automation/TypeInformation.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

// Array values are checked element by element where they are read.
HRESULT ConvertTo(VARTYPE type, LCID locale, fw::Variant& value) {
    if (value.Is(type) || (type & VT_ARRAY) != 0) {
        return S_OK;
    }
    fw::Variant converted;
    const HRESULT result = ::VariantChangeTypeEx(converted.Put(), value.Address(), locale, 0, type);
    if (SUCCEEDED(result)) {
        value = std::move(converted);
    }
    return result;
}

// Passcodes do not belong into a trace that users send around.
std::wstring PutText(const PropertyDescription& property, const VARIANT& value) {
    return property.Has(PropertyMasked) ? L"***" : AsText(value);
}

}  // namespace

STDMETHODIMP PropertyDispatch::GetTypeInfoCount(UINT* count) {
    RETURN_IF_NULL_POINTER(count);
    *count = 1;
    return S_OK;
}

STDMETHODIMP PropertyDispatch::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    RETURN_IF_NULL_POINTER(info);
    *info = nullptr;
    RETURN_HR_IF(DISP_E_BADINDEX, index != 0);
    ServiceCall call(L"GetTypeInfo", [this] { return JournalName(); });
    return call.ReturnsCode(call.Fails() ? E_FAIL : GetTypeInformation(Table(), info));
}

STDMETHODIMP PropertyDispatch::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                             DISPID* ids) {
    RETURN_HR_IF(DISP_E_UNKNOWNINTERFACE, reserved != IID_NULL);
    RETURN_IF_NULL_POINTER(names);
    RETURN_IF_NULL_POINTER(ids);
    RETURN_HR_IF(E_INVALIDARG, count == 0);
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const PropertyDescription* const property = Table().FindByName(names[0]);
    RETURN_HR_IF(DISP_E_UNKNOWNNAME, property == nullptr);
    *ids = property->dispid;
    // Properties have no named parameters.
    return count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

STDMETHODIMP PropertyDispatch::Invoke(DISPID dispid, REFIID reserved, LCID locale, WORD flags,
                                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT*) {
    RETURN_HR_IF(DISP_E_UNKNOWNINTERFACE, reserved != IID_NULL);
    RETURN_IF_NULL_POINTER(parameters);
    const PropertyDescription* const property = Table().Find(dispid);
    RETURN_HR_IF(DISP_E_MEMBERNOTFOUND, property == nullptr);
    if ((flags & DISPATCH_PROPERTYGET) != 0) {
        RETURN_HR_IF(DISP_E_BADPARAMCOUNT, parameters->cArgs != 0);
        return fw::Guarded([&] { return Get(*property, result, exception); });
    }
    const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    RETURN_HR_IF(DISP_E_MEMBERNOTFOUND, !isPut || property->Has(PropertyReadOnly));
    return fw::Guarded([&] { return Put(*property, locale, *parameters, exception); });
}

HRESULT PropertyDispatch::Get(const PropertyDescription& property, VARIANT* result, EXCEPINFO* exception) {
    ServiceCall call(
        L"Invoke", [this] { return JournalName(); }, L"get", property.dispid);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    fw::Variant value;
    const HRESULT read = AsException(Read(property, value), exception);
    if (SUCCEEDED(read) && result != nullptr) {
        ::VariantInit(result);
        value.DetachTo(*result);
    }
    return call.ReturnsCode(read);
}

HRESULT PropertyDispatch::Put(const PropertyDescription& property, LCID locale, const DISPPARAMS& parameters,
                              EXCEPINFO* exception) {
    RETURN_HR_IF(DISP_E_BADPARAMCOUNT, parameters.cArgs != 1);
    const bool isNamed = parameters.cNamedArgs == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    RETURN_HR_IF(DISP_E_PARAMNOTFOUND, !isNamed);
    const VARIANT& given = parameters.rgvarg[0];
    ServiceCall call(
        L"Invoke", [this] { return JournalName(); }, L"put", property.dispid,
        [&] { return PutText(property, given); });
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    fw::Variant value;
    if (FAILED(value.CopyIndirectFrom(given)) || FAILED(ConvertTo(property.type, locale, value))) {
        return call.ReturnsCode(DISP_E_TYPEMISMATCH);
    }
    return call.ReturnsCode(AsException(Write(property, value), exception));
}

}  // namespace kvhost
