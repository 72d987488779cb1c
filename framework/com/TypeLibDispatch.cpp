#include "framework/com/TypeLibDispatch.h"

#include "framework/base/Hresult.h"
#include "framework/com/ComPtr.h"
#include "framework/com/ErrorInfo.h"

namespace fw {

namespace {

HRESULT FindTypeInfo(CComModule* module, REFIID interfaceId, ComPtr<ITypeInfo>& info) noexcept {
    RETURN_HR_IF(E_UNEXPECTED, !module);
    return module->GetTypeInfo(interfaceId, info.Put());
}

}  // namespace

HRESULT TypeLibCalls::GetTypeInfoCount(UINT* count) noexcept {
    RETURN_IF_NULL_POINTER(count);
    *count = 1;
    return S_OK;
}

HRESULT TypeLibCalls::GetTypeInfo(CComModule* module, REFIID interfaceId, UINT index,
                                  ITypeInfo** result) noexcept {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    RETURN_HR_IF(DISP_E_BADINDEX, index != 0);
    ComPtr<ITypeInfo> info;
    RETURN_IF_FAILED_EXPECTED(FindTypeInfo(module, interfaceId, info));
    return info.CopyTo(result);
}

HRESULT TypeLibCalls::GetIDsOfNames(CComModule* module, REFIID interfaceId, REFIID reserved, LPOLESTR* names,
                                    UINT count, DISPID* ids) noexcept {
    RETURN_IF_NULL_POINTER(ids);
    for (UINT i = 0; i < count; ++i) {
        ids[i] = DISPID_UNKNOWN;
    }
    RETURN_IF_NULL_POINTER(names);
    RETURN_HR_IF(DISP_E_UNKNOWNINTERFACE, !::IsEqualIID(reserved, IID_NULL));
    RETURN_HR_IF(E_INVALIDARG, count == 0);
    ComPtr<ITypeInfo> info;
    RETURN_IF_FAILED_EXPECTED(FindTypeInfo(module, interfaceId, info));
    return info->GetIDsOfNames(names, count, ids);
}

HRESULT TypeLibCalls::Invoke(CComModule* module, REFIID interfaceId, void* instance, DISPID id,
                             REFIID reserved, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO* exception, UINT* badArgument) noexcept {
    if (result) {
        ::VariantInit(result);
    }
    if (exception) {
        *exception = EXCEPINFO();
    }
    // The system leaves the index alone for some type errors: a caller then reads the first argument.
    UINT unwantedIndex = 0;
    UINT* const index = badArgument ? badArgument : &unwantedIndex;
    *index = 0;
    RETURN_HR_IF(DISP_E_UNKNOWNINTERFACE, !::IsEqualIID(reserved, IID_NULL));
    RETURN_IF_NULL_POINTER(parameters);
    const bool argumentsMissing = (parameters->cArgs != 0 && !parameters->rgvarg) ||
                                  (parameters->cNamedArgs != 0 && !parameters->rgdispidNamedArgs) ||
                                  parameters->cNamedArgs > parameters->cArgs;
    RETURN_HR_IF(E_INVALIDARG, argumentsMissing);
    ComPtr<ITypeInfo> info;
    RETURN_IF_FAILED_EXPECTED(FindTypeInfo(module, interfaceId, info));
    ClearErrorInfo();
    return info->Invoke(instance, id, flags, parameters, result, exception, index);
}

}  // namespace fw
