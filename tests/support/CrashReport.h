#pragma once

namespace kvtest {

/// Lets a fault print its stack as module+offset on standard error and end the process with status 99; by
/// default a crashed process may end with status 0.
void InstallCrashReport();

}  // namespace kvtest
