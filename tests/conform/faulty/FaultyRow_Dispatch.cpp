#include <utility>
#include <vector>

#include "tests/conform/faulty/Fault.h"
#include "tests/conform/faulty/FaultyRow.h"

namespace {

constexpr DISPID s_keepFocus = 3;

/// Two arguments of an operation, counted from the last, that change places.
struct Swap {
    const wchar_t* fault;
    DISPID id;
    std::size_t first;
    std::size_t second;
};

constexpr Swap c_swaps[] = {
    {L"swaps-arrays", 1, 2, 3}, {L"swaps-value", 5, 0, 1}, {L"swaps-dialog", 6, 0, 1}};

std::vector<VARIANT> ArgumentsOf(const DISPPARAMS& parameters, DISPID id) {
    std::vector<VARIANT> arguments(parameters.rgvarg, parameters.rgvarg + parameters.cArgs);
    for (const Swap& swap : c_swaps) {
        if (swap.id == id && HasFault(swap.fault)) {
            std::swap(arguments.at(swap.first), arguments.at(swap.second));
        }
    }
    return arguments;
}

bool AcceptsBlindly(DISPID id, WORD flags, const DISPPARAMS& parameters) {
    constexpr DISPID refresh = 2;
    return (id == 12345 && HasFault(L"knows-all-ids")) ||
           (id == refresh && parameters.cArgs == 0 && HasFault(L"needs-no-arguments")) ||
           (id == s_keepFocus && flags == DISPATCH_PROPERTYPUT && HasFault(L"puts-keep-focus")) ||
           (id == DISPID_FORECOLOR && flags == DISPATCH_METHOD && HasFault(L"property-as-method"));
}

}  // namespace

STDMETHODIMP FaultyRow::GetTypeInfoCount(UINT* count) {
    const HRESULT result = CKvPeEditTempl::GetTypeInfoCount(count);
    *count += HasFault(L"two-descriptions") ? 1U : 0U;
    return result;
}

STDMETHODIMP FaultyRow::GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) {
    if (index == 0 && HasFault(L"other-description")) {
        return GetModule()->GetTypeInfo(__uuidof(IKvPiPropertyEditEventsSink2), result);
    }
    return CKvPeEditTempl::GetTypeInfo(HasFault(L"any-description") ? 0 : index, locale, result);
}

STDMETHODIMP FaultyRow::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                      DISPID* ids) {
    const HRESULT result = CKvPeEditTempl::GetIDsOfNames(reserved, names, count, locale, ids);
    if (FAILED(result) && HasFault(L"knows-all-names")) {
        return S_OK;
    }
    if (SUCCEEDED(result) && ids[0] == 2 && HasFault(L"other-id-of-name")) {
        ids[0] = 1;
    }
    return result;
}

STDMETHODIMP FaultyRow::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    if (AcceptsBlindly(id, flags, *parameters)) {
        return S_OK;
    }
    std::vector<VARIANT> arguments = ArgumentsOf(*parameters, id);
    DISPPARAMS given = *parameters;
    given.rgvarg = arguments.data();
    const HRESULT invoked = CKvPeEditTempl::Invoke(id, HasFault(L"ignores-reserved-id") ? IID_NULL : reserved,
                                                   locale, flags, &given, result, exception, badArgument);
    if (SUCCEEDED(invoked) && result && id == DISPID_BACKCOLOR && HasFault(L"other-color-by-id")) {
        ++result->ulVal;
    }
    if (SUCCEEDED(invoked) && result && id == s_keepFocus && HasFault(L"other-focus-by-id")) {
        result->boolVal = result->boolVal == VARIANT_FALSE ? VARIANT_TRUE : VARIANT_FALSE;
    }
    if (SUCCEEDED(invoked) && result && id == DISPID_FONT && HasFault(L"no-font-by-id")) {
        ::VariantClear(result);
    }
    return invoked;
}
