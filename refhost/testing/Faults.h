#pragma once

#include <cstddef>
#include <string>

#include "host_sdk/Export.h"

namespace kvhost {

/// Fault switches: let a host service fail at its n-th call. All are off at start; Reset turns them off
/// again.
class KVHOST_API Faults {
public:
    Faults() = delete;

    /// The service fails at its `occurrence`-th call from now (1 is the next one); 0 means every call.
    static void FailService(const wchar_t* name, std::size_t occurrence);
    /// The `occurrence`-th call of any service from now fails; 0 counts without failing.
    static void FailAnyService(std::size_t occurrence);
    /// Calls of all services since FailAnyService, to know where a sweep ends.
    [[nodiscard]] static std::size_t CountedCalls();
    /// Name of the service that failed last by FailAnyService, empty when none has.
    [[nodiscard]] static std::wstring LastFailedService();
    static void Reset();
};

}  // namespace kvhost
