#include "framework/base/MessageBox.h"

#include <atomic>
#include <iterator>
#include <string>

namespace {

std::atomic<fw::MessageBoxHook> g_hook{nullptr};

std::wstring ProgramName() {
    wchar_t path[1024]{};
    const DWORD length = ::GetModuleFileNameW(nullptr, path, static_cast<DWORD>(std::size(path)) - 1);
    const std::wstring whole(path, length);
    const std::size_t slash = whole.find_last_of(L"\\/");
    const std::wstring file = slash == std::wstring::npos ? whole : whole.substr(slash + 1);
    return file.substr(0, file.rfind(L'.'));
}

}  // namespace

namespace fw {

MessageBoxHook SetMessageBoxHook(MessageBoxHook hook) {
    return g_hook.exchange(hook);
}

int ShowMessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags) {
    if (const MessageBoxHook hook = g_hook.load()) {
        return hook(owner, text, caption, flags);
    }
    return ::MessageBoxW(owner, text, caption, flags);
}

}  // namespace fw

int AfxMessageBox(const wchar_t* text, UINT flags) {
    return fw::ShowMessageBox(::GetActiveWindow(), text, ProgramName().c_str(), flags);
}
