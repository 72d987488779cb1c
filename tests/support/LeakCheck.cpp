#include "tests/support/LeakCheck.h"

#include <algorithm>
#include <utility>

#include "tests/support/MessagePump.h"

namespace kvtest {
namespace {

constexpr unsigned kGdiHandles = 0x10000;

struct Counter {
    std::string name;
    std::function<long()> read;
};

std::vector<Counter>& Counters() {
    static std::vector<Counter> counters;
    return counters;
}

// The system's own counters of a process are not kept everywhere; asking each handle for its type is exact.
std::vector<BYTE> GdiTypes() {
    std::vector<BYTE> types(kGdiHandles);
    for (unsigned handle = 1; handle < kGdiHandles; ++handle) {
        types[handle] = static_cast<BYTE>(GetObjectType(reinterpret_cast<HGDIOBJ>(ULONG_PTR{handle})));
    }
    return types;
}

const char* GdiTypeName(BYTE type) {
    switch (type) {
        case OBJ_PEN:
        case OBJ_EXTPEN:
            return "pen";
        case OBJ_BRUSH:
            return "brush";
        case OBJ_DC:
        case OBJ_MEMDC:
            return "device context";
        case OBJ_METADC:
        case OBJ_ENHMETADC:
            return "metafile device context";
        case OBJ_METAFILE:
        case OBJ_ENHMETAFILE:
            return "metafile";
        case OBJ_PAL:
            return "palette";
        case OBJ_FONT:
            return "font";
        case OBJ_BITMAP:
            return "bitmap";
        case OBJ_REGION:
            return "region";
        default:
            return "GDI object";
    }
}

std::vector<HWND> ThreadWindows() {
    std::vector<HWND> windows;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&windows));
    HWND messageOnly = nullptr;
    while ((messageOnly = FindWindowExW(HWND_MESSAGE, messageOnly, nullptr, nullptr)) != nullptr) {
        if (GetWindowThreadProcessId(messageOnly, nullptr) == GetCurrentThreadId()) {
            windows.push_back(messageOnly);
        }
    }
    return windows;
}

// Windows that the system itself makes once for a thread and keeps.
bool IsSystemWindow(const std::string& className) {
    return className == "IME" || className.starts_with("MSCTFIME") || className.starts_with("Ole");
}

}  // namespace

long CountGdiObjects() {
    return static_cast<long>(std::ranges::count_if(GdiTypes(), [](BYTE type) { return type != 0; }));
}

LeakCheck::LeakCheck() : m_gdiTypes(GdiTypes()), m_windows(ThreadWindows()) {
    for (const Counter& counter : Counters()) {
        m_counts.push_back(counter.read());
    }
}

std::string LeakCheck::Describe() const {
    PumpWaiting();
    return DescribeWindows() + DescribeGdiObjects() + DescribeCounters();
}

std::string LeakCheck::DescribeGdiObjects() const {
    const std::vector<BYTE> now = GdiTypes();
    const auto isObject = [](BYTE type) { return type != 0; };
    // A cache may exchange one object for another: only a growing number is a leak.
    if (std::ranges::count_if(now, isObject) <= std::ranges::count_if(m_gdiTypes, isObject)) {
        return {};
    }
    std::string text;
    for (unsigned handle = 1; handle < kGdiHandles; ++handle) {
        if (now[handle] != 0 && m_gdiTypes[handle] == 0) {
            text += std::string("left behind: ") + GdiTypeName(now[handle]) + "\n";
        }
    }
    return text;
}

std::string LeakCheck::DescribeWindows() const {
    std::string text;
    for (HWND window : ThreadWindows()) {
        if (std::ranges::find(m_windows, window) != m_windows.end()) {
            continue;
        }
        char className[128] = "";
        GetClassNameA(window, className, sizeof className);
        if (!IsSystemWindow(className)) {
            text += std::string("left behind: window of class ") + className + "\n";
        }
    }
    return text;
}

std::string LeakCheck::DescribeCounters() const {
    std::string text;
    for (size_t index = 0; index < m_counts.size(); ++index) {
        const long now = Counters()[index].read();
        if (now != m_counts[index]) {
            text +=
                "left behind: " + std::to_string(now - m_counts[index]) + " " + Counters()[index].name + "\n";
        }
    }
    return text;
}

LeakCounter::LeakCounter(std::string name, std::function<long()> read) {
    Counters().push_back({std::move(name), std::move(read)});
}

}  // namespace kvtest
