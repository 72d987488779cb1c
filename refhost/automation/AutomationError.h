#pragma once

#include <string>

#include "framework/base/WindowsApi.h"
#include "host_sdk/ErrorStatus.h"

namespace kvhost {

/// Exception code that stands for a status of the database.
[[nodiscard]] SCODE ScodeOf(Tolm::ErrorStatus status);
/// The reason as a sentence for users.
[[nodiscard]] std::wstring ReasonOf(Tolm::ErrorStatus status);

/// S_OK for eOk. Else DISP_E_EXCEPTION with the reason in `exception`, which may be null.
[[nodiscard]] HRESULT AsException(Tolm::ErrorStatus status, EXCEPINFO* exception);
/// The same for interfaces without exception record: the code, with the reason as the thread's error text.
[[nodiscard]] HRESULT AsErrorText(Tolm::ErrorStatus status, REFIID interfaceId);

}  // namespace kvhost
