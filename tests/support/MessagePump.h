#pragma once

#include <functional>

namespace kvtest {

/// Delivers the messages that wait in the thread's queue, and those that they cause.
void PumpWaiting();

/// Delivers messages until the condition holds; false when it does not within the time.
[[nodiscard]] bool PumpUntil(const std::function<bool()>& condition, unsigned timeoutMs = 5000);

}  // namespace kvtest
