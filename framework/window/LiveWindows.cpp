#include "framework/window/LiveWindows.h"

#include <map>
#include <mutex>

#include "framework/window/PreTranslation.h"
#include "framework/window/WindowClass.h"

namespace {

struct ModuleCounts {
    std::mutex guard;
    std::map<HINSTANCE, int> windows;
};

ModuleCounts& Counts() {
    static ModuleCounts s_counts;
    return s_counts;
}

thread_local int t_windows = 0;

}  // namespace

namespace fw {

void AddLiveWindow(HINSTANCE module) {
    {
        const std::lock_guard lock(Counts().guard);
        ++Counts().windows[module];
    }
    if (t_windows++ == 0) {
        StartPreTranslation();
    }
}

void RemoveLiveWindow(HINSTANCE module) {
    {
        const std::lock_guard lock(Counts().guard);
        const auto entry = Counts().windows.find(module);
        if (entry != Counts().windows.end() && --entry->second == 0) {
            Counts().windows.erase(entry);
        }
    }
    if (--t_windows == 0) {
        EndPreTranslation();
    }
}

int CountWindowsOfModule(HINSTANCE module) {
    const std::lock_guard lock(Counts().guard);
    const auto entry = Counts().windows.find(module);
    return entry == Counts().windows.end() ? 0 : entry->second;
}

}  // namespace fw
