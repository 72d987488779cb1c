#include "refhost/db/DrawingFile.h"

#include <algorithm>

#include "framework/base/Handles.h"
#include "refhost/db/NameRules.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

/// Larger files would not fit into the readers' counts, nor into memory several times over.
constexpr LONGLONG c_largestFile = 1LL << 30;

std::wstring SystemReason(DWORD code) {
    wchar_t* text = nullptr;
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        code, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring reason(text != nullptr ? text : L"", length);
    ::LocalFree(text);
    while (!reason.empty() && reason.back() <= L' ') {
        reason.pop_back();
    }
    return reason.empty() ? L"error " + std::to_wstring(code) : reason;
}

std::size_t NameStart(const std::wstring& path) {
    return path.find_last_of(L"\\/") + 1;  // npos + 1 is 0.
}

std::wstring ExtensionOf(const std::wstring& path) {
    const std::size_t dot = path.find_last_of(L'.');
    return dot != std::wstring::npos && dot >= NameStart(path) ? path.substr(dot) : std::wstring();
}

std::wstring BaseName(const std::wstring& path) {
    const std::size_t start = NameStart(path);
    return path.substr(start, path.size() - start - ExtensionOf(path).size());
}

/// Gives the reason, empty when done.
std::wstring ReadFileContent(const std::wstring& path, std::string& content) {
    const fw::UniqueFile file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file || !::GetFileSizeEx(file.Get(), &size)) {
        return SystemReason(::GetLastError());
    }
    if (size.QuadPart > c_largestFile) {
        return L"the file is too large";
    }
    content.resize(static_cast<std::size_t>(size.QuadPart));
    DWORD read = 0;
    if (!::ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr)) {
        return SystemReason(::GetLastError());
    }
    content.resize(read);
    return {};
}

/// Gives the reason, empty when done; the file is flushed and closed then.
std::wstring WriteNewFile(const std::wstring& path, const std::string& content) {
    const fw::UniqueFile file(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                            FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return SystemReason(::GetLastError());
    }
    DWORD written = 0;
    const bool done =
        ::WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) &&
        written == content.size() && ::FlushFileBuffers(file.Get());
    return done ? std::wstring() : SystemReason(::GetLastError());
}

/// The old file stays until the new one is complete.
std::wstring ReplaceContent(const std::wstring& path, const std::string& content) {
    const std::wstring newPath = path + L".new";
    std::wstring reason = WriteNewFile(newPath, content);
    if (reason.empty() &&
        !::MoveFileExW(newPath.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        reason = SystemReason(::GetLastError());
    }
    if (!reason.empty()) {
        ::DeleteFileW(newPath.c_str());
    }
    return reason;
}

}  // namespace

DrawingReadResult ReadDrawing(const std::wstring& path) {
    ServiceCall call(L"readDrawing", path);
    DrawingReadResult result;
    const std::wstring extension = ExtensionOf(path);
    std::string content;
    result.error = call.Fails() ? L"reading failed" : ReadFileContent(path, content);
    if (result.error.empty()) {
        if (SameName(extension, L".qxf")) {
            result = ReadQxf(content);
        } else if (SameName(extension, L".qdf")) {
            result = ReadQdf(content);
        } else if (SameName(extension, L".geojson") || SameName(extension, L".json")) {
            result = ReadGeoJson(content, BaseName(path));
        } else {
            result.error = L"drawings end in .qxf, .qdf, .geojson or .json";
        }
    }
    if (!result.error.empty()) {
        result.error = path + L": " + result.error;
    }
    call.Returns(result.error.empty());
    return result;
}

std::wstring WriteDrawing(const Database& database, const std::wstring& path) {
    ServiceCall call(L"writeDrawing", path);
    const std::wstring extension = ExtensionOf(path);
    std::wstring reason;
    if (call.Fails()) {
        reason = L"writing failed";
    } else if (SameName(extension, L".qxf")) {
        reason = ReplaceContent(path, QxfContent(database));
    } else if (SameName(extension, L".qdf")) {
        reason = ReplaceContent(path, QdfContent(database));
    } else {
        reason = L"drawings are saved as .qxf or .qdf";
    }
    call.Returns(reason.empty());
    return reason.empty() ? reason : path + L": " + reason;
}

}  // namespace kvhost
