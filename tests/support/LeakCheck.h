#pragma once

#include "framework/base/WindowsApi.h"

#include <functional>
#include <string>
#include <vector>

namespace kvtest {

/// What the calling thread's windows, the process's GDI objects and the registered counters are at one
/// moment. Construct it before the work, ask `Describe` after it; the test main does so around every test.
class LeakCheck {
public:
    LeakCheck();

    /// One line per thing that exists now and did not at construction; empty when nothing was left behind.
    /// Posted messages are delivered first, since a window may be about to go.
    std::string Describe() const;

private:
    std::string DescribeGdiObjects() const;
    std::string DescribeWindows() const;
    std::string DescribeCounters() const;

    std::vector<BYTE> m_gdiTypes;
    std::vector<HWND> m_windows;
    std::vector<long> m_counts;
};

/// The process's GDI objects. The system's own count of them is not kept everywhere.
[[nodiscard]] long CountGdiObjects();

/// Adds a count that every test must leave as it found it, such as a module's live objects. Call it before
/// the tests start, for instance from a namespace-scope initialiser.
struct LeakCounter {
    LeakCounter(std::string name, std::function<long()> read);
};

}  // namespace kvtest
