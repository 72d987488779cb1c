#include "tests/conform/UserClasses.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace kvconform {
namespace {

constexpr DWORD c_longestKey = 256;
constexpr DWORD c_longestName = 16384;  // of a value

std::wstring DataOf(DWORD type, const std::vector<BYTE>& data) {
    std::wstring text = std::to_wstring(type) + L':';
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        text.append(reinterpret_cast<const wchar_t*>(data.data()), data.size() / sizeof(wchar_t));
        return text.substr(0, text.find(L'\0'));
    }
    for (const BYTE byte : data) {
        text += L' ' + std::to_wstring(byte);
    }
    return text;
}

}  // namespace

UserClasses::UserClasses() {
    HKEY root = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, KEY_READ, &root) == ERROR_SUCCESS) {
        AddKey(root, L"");
        ::RegCloseKey(root);
    }
}

// There are thousands of keys, and each question of them takes its time.
void UserClasses::AddKey(HKEY key, const std::wstring& path) {
    DWORD keys = 0;
    DWORD values = 0;
    DWORD longest = 0;
    ::RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr, &longest,
                       nullptr, nullptr);
    for (DWORD index = 0; index < values; ++index) {
        AddValue(key, path, index, longest);
    }
    for (DWORD index = 0; index < keys; ++index) {
        wchar_t name[c_longestKey]{};
        DWORD length = c_longestKey;
        ::RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr);
        const std::wstring child = path + L'\\' + name;
        m_entries.insert(child);
        HKEY opened = nullptr;
        if (::RegOpenKeyExW(key, name, 0, KEY_READ, &opened) == ERROR_SUCCESS) {
            AddKey(opened, child);
            ::RegCloseKey(opened);
        }
    }
}

void UserClasses::AddValue(HKEY key, const std::wstring& path, DWORD index, DWORD longest) {
    std::vector<wchar_t> name(c_longestName);
    DWORD length = c_longestName;
    DWORD type = 0;
    DWORD size = longest;
    std::vector<BYTE> data(longest + sizeof(wchar_t));
    if (::RegEnumValueW(key, index, name.data(), &length, nullptr, &type, data.data(), &size) ==
        ERROR_SUCCESS) {
        data.resize(size);
        m_entries.insert(path + L" \"" + name.data() + L"\" = " + DataOf(type, data));
    }
}

Lines UserClasses::Without(const UserClasses& other) const {
    std::vector<std::wstring> left;
    std::ranges::set_difference(m_entries, other.m_entries, std::back_inserter(left));
    Lines lines;
    std::ranges::transform(left, std::back_inserter(lines),
                           [](const std::wstring& entry) { return ToText(entry); });
    return lines;
}

}  // namespace kvconform
