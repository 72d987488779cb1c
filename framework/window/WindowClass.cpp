#include "framework/window/WindowClass.h"

#include <algorithm>
#include <mutex>
#include <string>
#include <vector>

#include "framework/window/CWndEntry.h"

namespace {

struct RegisteredClass {
    HINSTANCE module;
    std::wstring name;
};

struct Registry {
    std::mutex guard;
    std::vector<RegisteredClass> classes;
};

Registry& TheRegistry() {
    static Registry s_registry;
    return s_registry;
}

WNDCLASSEXW Describe(const fw::WindowClass& windowClass) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = windowClass.style;
    description.lpfnWndProc = CWndEntry::WindowProc;
    description.hInstance = windowClass.Module();
    description.hCursor = windowClass.cursor == fw::NoCursor
                              ? nullptr
                              : ::LoadCursorW(nullptr, MAKEINTRESOURCEW(windowClass.cursor));
    description.hbrBackground = windowClass.background;
    description.lpszClassName = windowClass.name;
    return description;
}

}  // namespace

namespace fw {

bool RegisterWindowClass(const WindowClass& windowClass) {
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.guard);
    const bool known = std::any_of(registry.classes.begin(), registry.classes.end(), [&](const auto& entry) {
        return entry.module == windowClass.Module() && entry.name == windowClass.name;
    });
    if (known) {
        return true;
    }
    const WNDCLASSEXW description = Describe(windowClass);
    if (!::RegisterClassExW(&description)) {
        return false;
    }
    registry.classes.push_back({windowClass.Module(), windowClass.name});
    return true;
}

void UnregisterWindowClasses(HINSTANCE module) {
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.guard);
    std::erase_if(registry.classes, [module](const RegisteredClass& entry) {
        return entry.module == module && ::UnregisterClassW(entry.name.c_str(), module);
    });
}

}  // namespace fw
