#pragma once

#include <functional>

namespace kvtest {

/// Uses windows, fonts and contexts once, so that what the system keeps for ever exists before the first
/// test.
void WarmUp();

/// Adds a step to the warm-up, for caches of our own that live as long as a module. Make it at namespace
/// scope.
struct WarmUpStep {
    explicit WarmUpStep(std::function<void()> step);
};

}  // namespace kvtest
