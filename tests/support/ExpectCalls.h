#pragma once

#include <gtest/gtest.h>

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

/// Names the first line that differs and shows both lists, so that a failed test is read without a debugger.
[[nodiscard]] inline ::testing::AssertionResult SameCalls(const CallLines& expected,
                                                          const CallLines& actual) {
    if (expected == actual) {
        return ::testing::AssertionSuccess();
    }
    std::size_t first = 0;
    while (first < expected.size() && first < actual.size() && expected[first] == actual[first]) {
        ++first;
    }
    auto result = ::testing::AssertionFailure();
    result << "calls differ at line " << first + 1 << "\nexpected:\n";
    for (std::size_t i = 0; i < expected.size(); ++i) {
        result << (i == first ? "> " : "  ") << expected[i] << '\n';
    }
    result << "actual:\n";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        result << (i == first ? "> " : "  ") << actual[i] << '\n';
    }
    return result;
}

}  // namespace kvtest

/// The journal (or a filtered list from CallsIgnoring, CallsOnly) holds exactly these lines in this order.
#define EXPECT_CALLS(journal, ...) \
    EXPECT_TRUE(::kvtest::SameCalls(::kvtest::CallLines{__VA_ARGS__}, ::kvtest::CallsOf(journal)))
#define EXPECT_NO_CALLS(journal) EXPECT_TRUE(::kvtest::SameCalls({}, ::kvtest::CallsOf(journal)))
