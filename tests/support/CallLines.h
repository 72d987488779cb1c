#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "framework/base/WindowsApi.h"
#include "refhost/testing/Journal.h"

namespace kvtest {

[[nodiscard]] inline std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

using CallLines = std::vector<std::string>;

/// Every line of the journal, in order, in UTF-8.
[[nodiscard]] inline CallLines CallsOf(const kvhost::Journal& journal) {
    CallLines lines;
    for (const kvhost::JournalEntry& entry : journal.Entries()) {
        lines.push_back(ToUtf8(entry.Line()));
    }
    return lines;
}

[[nodiscard]] inline CallLines CallsOf(CallLines lines) {
    return lines;
}

/// The lines that begin with none of `prefixes`: for tests to which some calls do not matter.
[[nodiscard]] inline CallLines CallsIgnoring(const kvhost::Journal& journal, const CallLines& prefixes) {
    CallLines lines = CallsOf(journal);
    std::erase_if(lines, [&](const std::string& line) {
        return std::any_of(prefixes.begin(), prefixes.end(),
                           [&](const std::string& prefix) { return line.starts_with(prefix); });
    });
    return lines;
}

/// The lines that begin with one of `prefixes`.
[[nodiscard]] inline CallLines CallsOnly(const kvhost::Journal& journal, const CallLines& prefixes) {
    CallLines lines = CallsOf(journal);
    std::erase_if(lines, [&](const std::string& line) {
        return std::none_of(prefixes.begin(), prefixes.end(),
                            [&](const std::string& prefix) { return line.starts_with(prefix); });
    });
    return lines;
}

}  // namespace kvtest
