#include <utility>
#include <vector>

#include "tests/conform/faulty/Fault.h"
#include "tests/conform/faulty/FaultyRow.h"

namespace {

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

}  // namespace

STDMETHODIMP FaultyRow::Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                               VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    std::vector<VARIANT> arguments = ArgumentsOf(*parameters, id);
    DISPPARAMS given = *parameters;
    given.rgvarg = arguments.data();
    const HRESULT invoked =
        CKvPeEditTempl::Invoke(id, reserved, locale, flags, &given, result, exception, badArgument);
    if (SUCCEEDED(invoked) && result && id == DISPID_BACKCOLOR && HasFault(L"other-color-by-id")) {
        ++result->ulVal;
    }
    return invoked;
}
