#pragma once

#include <set>
#include <string>
#include <string_view>

#include "tests/conform/Report.h"

namespace kvconform {

/// What the registry holds under the classes of the current user at one time: each key, and each value with
/// its type and data.
class UserClasses {
public:
    UserClasses();

    /// The entries that the other does not have.
    [[nodiscard]] Lines Without(const UserClasses& other) const;

private:
    void AddKey(HKEY key, const std::wstring& path);
    void AddValue(HKEY key, const std::wstring& path, DWORD index, DWORD longest);

    std::set<std::wstring> m_entries;
};

}  // namespace kvconform
