#include "palette/commands/Console.h"

#include "framework/base/Handles.h"
#include "framework/base/WindowsApi.h"

namespace kvpalette {

namespace {

constexpr DWORD c_largestTextFile = 16 * 1024 * 1024;

void Print(DWORD stream, std::wstring_view text) {
    const HANDLE output = ::GetStdHandle(stream);
    DWORD mode = 0;
    DWORD written = 0;
    if (output == nullptr || output == INVALID_HANDLE_VALUE) {
        return;
    }
    if (::GetConsoleMode(output, &mode)) {
        ::WriteConsoleW(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    const std::string bytes = ToUtf8(text);
    std::size_t done = 0;
    while (done < bytes.size() &&
           ::WriteFile(output, bytes.data() + done, static_cast<DWORD>(bytes.size() - done), &written,
                       nullptr) &&
           written != 0) {
        done += written;
    }
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int needed = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

bool FromUtf8(std::string_view bytes, std::wstring& text) {
    text.clear();
    if (bytes.empty()) {
        return true;
    }
    const int length = static_cast<int>(bytes.size());
    const int needed = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), length, nullptr, 0);
    if (needed == 0) {
        return false;
    }
    text.resize(static_cast<std::size_t>(needed));
    ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), length, text.data(), needed);
    return true;
}

void PrintText(std::wstring_view text) {
    Print(STD_OUTPUT_HANDLE, text);
}

void PrintError(std::wstring_view text) {
    Print(STD_ERROR_HANDLE, text);
}

bool ReadTextFile(const std::wstring& path, std::wstring& text) {
    const fw::UniqueFile file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file || !::GetFileSizeEx(file.Get(), &size) || size.QuadPart > c_largestTextFile) {
        return false;
    }
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    return ::ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) &&
           read == bytes.size() && FromUtf8(bytes, text);
}

}  // namespace kvpalette
