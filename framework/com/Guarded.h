#pragma once

#include <new>
#include <utility>

#include "framework/base/WindowsApi.h"

namespace fw {

/// Runs the body of an interface method and turns an exception into a result: E_OUTOFMEMORY when memory ran
/// out, E_FAIL for everything else. Nothing thrown crosses an interface.
template <class Work>
[[nodiscard]] HRESULT Guarded(Work&& work) noexcept {
    try {
        return std::forward<Work>(work)();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace fw
