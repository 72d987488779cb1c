#pragma once

#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvconform {

/// A rule that does not hold.
struct Finding {
    std::string rule;
    std::string expected;
    std::string found;
};

/// What was checked of one subject: a class, or the module itself.
struct SubjectReport {
    std::string name;
    bool available = true;  ///< false: the module does not offer the class, and nothing was checked
    int checks = 0;
    std::vector<Finding> findings;
};

using Lines = std::vector<std::string>;

// How values read in a report.
[[nodiscard]] std::string ToText(HRESULT result);
[[nodiscard]] std::string ToText(bool value);
[[nodiscard]] std::string ToText(DWORD value);
[[nodiscard]] std::string ToText(const std::string& text);
[[nodiscard]] std::string ToText(const char* text);
[[nodiscard]] std::string ToText(const wchar_t* text);
[[nodiscard]] std::string ToText(const std::wstring& text);
[[nodiscard]] std::string ToText(const GUID& id);
[[nodiscard]] std::string ToText(const RECT& place);
[[nodiscard]] std::string ToText(const SIZEL& extent);
[[nodiscard]] std::string ToText(const Lines& lines);

/// All that was checked, in the order of the subjects.
class Report {
public:
    explicit Report(std::wstring module) : m_module(std::move(module)) {}

    /// Later checks belong to this subject.
    void Begin(std::string name);
    void SetUnavailable() { m_subjects.back().available = false; }
    /// True when the two read the same; else the rule is reported as broken.
    template <class Expected, class Found>
    bool Expect(const std::string& rule, const Expected& expected, const Found& found) {
        return Compare(rule, ToText(expected), ToText(found));
    }

    [[nodiscard]] std::size_t CountFindings() const;
    /// The subjects that are there.
    [[nodiscard]] std::size_t CountOffered() const;
    /// For people: one line per subject, one block per finding, a summary.
    [[nodiscard]] std::string Text() const;
    /// For programs: {"module", "checks", "findings", "subjects": [{"name", "available", "checks",
    /// "findings": [{"rule", "expected", "found"}]}]}.
    [[nodiscard]] std::string Json() const;

private:
    bool Compare(const std::string& rule, std::string expected, std::string found);
    [[nodiscard]] int CountChecks() const;

    std::wstring m_module;
    std::vector<SubjectReport> m_subjects;
};

}  // namespace kvconform
