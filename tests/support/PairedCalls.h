#pragma once

#include "tests/support/CallLines.h"

namespace kvtest {

/// What the calls opened and did not close, or closed without opening, of undo groups, updates, modal
/// dialogs, user breaks and marks; empty when all is paired.
[[nodiscard]] std::string DescribeUnpaired(const CallLines& calls);

}  // namespace kvtest
