#pragma once

#include <random>

#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/RowContainer.h"

namespace kvtest {

/// A seeded walk of a user through rows of one class, in a palette, over a drawing with the layers that the
/// class asks for.
class RowWalk : public RowContainer, public ::testing::WithParamInterface<AvailableClass> {
protected:
    static constexpr std::size_t c_objects = 3;

    RowWalk();
    ~RowWalk() override;

    /// From zero, below the limit.
    [[nodiscard]] int Below(int limit);
    [[nodiscard]] bool IsOneIn(int count) { return Below(count) == 0; }
    [[nodiscard]] HWND List() const { return Box(1002); }

    const ClassScenario& scenario = *GetParam().scenario;

private:
    std::mt19937 m_random;
};

}  // namespace kvtest
