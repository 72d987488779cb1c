#pragma once

namespace kvpalette {

/// What the program tells its caller; users' scripts build on the numbers.
enum class ExitStatus {
    Done = 0,
    BadUsage = 2,
    BadDrawing = 3,
    EditRefused = 4,
    Failed = 5,
};

}  // namespace kvpalette
