#pragma once

#include <string>
#include <string_view>

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

namespace fw {

/// The text that travels beside a failed automation call.
struct ErrorInfo {
    IID interfaceId{};
    std::wstring source;
    std::wstring description;
};

/// Stores the text for the thread's next GetErrorInfo and gives the code back, so that a method can return
/// it.
FW_API HRESULT SetErrorText(HRESULT code, REFIID interfaceId, std::wstring_view source,
                            std::wstring_view description) noexcept;
/// Takes the thread's error text away and gives it; false when there was none.
[[nodiscard]] FW_API bool TakeErrorInfo(ErrorInfo& info);
/// Removes the thread's error text, so that a later failure is not told with an older reason.
FW_API void ClearErrorInfo() noexcept;

}  // namespace fw
