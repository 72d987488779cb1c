#pragma once

namespace kvtest {

/// The process's handles of files, events, threads and the like; -1 when the system does not tell. The
/// system's count of them by process is not kept everywhere, its table of them is.
[[nodiscard]] long CountKernelHandles();

}  // namespace kvtest
