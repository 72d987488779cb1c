#pragma once

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

namespace fw {

/// Writes a failure that should not have happened to the debugger; release builds leave the call out.
FW_API void TraceFailure(HRESULT result, const char* expression, const char* file, int line) noexcept;

/// Drops a result on purpose. The caller says in a comment why the result does not matter.
template <class Result>
constexpr void Ignore(const Result&) noexcept {
}

}  // namespace fw

#ifdef NDEBUG
#define KV_TRACE_FAILURE(result, expression) static_cast<void>(0)
#else
#define KV_TRACE_FAILURE(result, expression) ::fw::TraceFailure((result), (expression), __FILE__, __LINE__)
#endif

/// For failures that are bugs: traced in debug builds, then handed to the caller.
#define RETURN_IF_FAILED(expression)                      \
    do {                                                  \
        const HRESULT resultOfCall_ = (expression);       \
        if (FAILED(resultOfCall_)) {                      \
            KV_TRACE_FAILURE(resultOfCall_, #expression); \
            return resultOfCall_;                         \
        }                                                 \
    } while (false)

/// For failures that happen to users: handed to the caller without a trace.
#define RETURN_IF_FAILED_EXPECTED(expression)       \
    do {                                            \
        const HRESULT resultOfCall_ = (expression); \
        if (FAILED(resultOfCall_)) {                \
            return resultOfCall_;                   \
        }                                           \
    } while (false)

#define RETURN_HR_IF(result, condition) \
    do {                                \
        if (condition) {                \
            return (result);            \
        }                               \
    } while (false)

#define RETURN_IF_NULL_POINTER(pointer) RETURN_HR_IF(E_POINTER, (pointer) == nullptr)
