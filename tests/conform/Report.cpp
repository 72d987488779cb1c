#include "tests/conform/Report.h"

#include <algorithm>

#include <nlohmann/json.hpp>

#include "tests/support/CallLines.h"

namespace kvconform {
namespace {

std::string Hexadecimal(unsigned long value) {
    char text[16]{};
    std::snprintf(text, sizeof text, "0x%08lX", value);
    return text;
}

// Continues on further lines under the first.
std::string Indented(const std::string& text) {
    std::string indented;
    for (const char character : text) {
        indented += character;
        if (character == '\n') {
            indented += "              ";
        }
    }
    return indented;
}

std::string HeadingOf(const SubjectReport& subject) {
    const bool isBroken = !subject.findings.empty();
    if (!subject.available) {
        return (isBroken ? "FAIL  " : "none  ") + subject.name + ": not offered\n";
    }
    return (isBroken ? "FAIL  " : "ok    ") + subject.name + ": " + std::to_string(subject.checks) +
           " checks, " + std::to_string(subject.findings.size()) + " broken\n";
}

}  // namespace

std::string ToText(HRESULT result) {
    return Hexadecimal(static_cast<unsigned long>(result));
}

std::string ToText(bool value) {
    return value ? "yes" : "no";
}

std::string ToText(DWORD value) {
    return std::to_string(value) + " (" + Hexadecimal(value) + ")";
}

std::string ToText(const std::string& text) {
    return text;
}

std::string ToText(const char* text) {
    return text;
}

std::string ToText(const wchar_t* text) {
    return kvtest::ToUtf8(text);
}

std::string ToText(const std::wstring& text) {
    return kvtest::ToUtf8(text);
}

std::string ToText(const GUID& id) {
    wchar_t text[64]{};
    ::StringFromGUID2(id, text, 64);
    return kvtest::ToUtf8(text);
}

std::string ToText(const RECT& place) {
    return std::to_string(place.left) + ',' + std::to_string(place.top) + " to " +
           std::to_string(place.right) + ',' + std::to_string(place.bottom);
}

std::string ToText(const SIZEL& extent) {
    return std::to_string(extent.cx) + " by " + std::to_string(extent.cy);
}

std::string ToText(const Lines& lines) {
    if (lines.empty()) {
        return "nothing";
    }
    std::string text;
    for (const std::string& line : lines) {
        text += (text.empty() ? "" : "\n") + line;
    }
    return text;
}

void Report::Begin(std::string name) {
    m_subjects.emplace_back();
    m_subjects.back().name = std::move(name);
}

bool Report::Compare(const std::string& rule, std::string expected, std::string found) {
    SubjectReport& subject = m_subjects.back();
    ++subject.checks;
    if (expected == found) {
        return true;
    }
    subject.findings.push_back({rule, std::move(expected), std::move(found)});
    return false;
}

std::size_t Report::CountFindings() const {
    std::size_t findings = 0;
    for (const SubjectReport& subject : m_subjects) {
        findings += subject.findings.size();
    }
    return findings;
}

std::size_t Report::CountOffered() const {
    return static_cast<std::size_t>(std::ranges::count(m_subjects, true, &SubjectReport::available));
}

int Report::CountChecks() const {
    int checks = 0;
    for (const SubjectReport& subject : m_subjects) {
        checks += subject.checks;
    }
    return checks;
}

std::string Report::Text() const {
    std::string text = kvtest::ToUtf8(m_module) + "\n\n";
    for (const SubjectReport& subject : m_subjects) {
        text += HeadingOf(subject);
        for (const Finding& finding : subject.findings) {
            text += "        " + finding.rule + "\n";
            text += "    expected: " + Indented(finding.expected) + "\n";
            text += "    found:    " + Indented(finding.found) + "\n";
        }
    }
    const std::size_t available = CountOffered();
    text += "\n" + std::to_string(CountChecks()) + " checks of " + std::to_string(available) + " subjects; " +
            std::to_string(m_subjects.size() - available) + " classes are not offered; " +
            std::to_string(CountFindings()) + " rules broken\n";
    return text;
}

std::string Report::Json() const {
    nlohmann::ordered_json json;
    json["module"] = kvtest::ToUtf8(m_module);
    json["checks"] = CountChecks();
    json["findings"] = CountFindings();
    json["subjects"] = nlohmann::ordered_json::array();
    for (const SubjectReport& subject : m_subjects) {
        nlohmann::ordered_json entry;
        entry["name"] = subject.name;
        entry["available"] = subject.available;
        entry["checks"] = subject.checks;
        entry["findings"] = nlohmann::ordered_json::array();
        for (const Finding& finding : subject.findings) {
            entry["findings"].push_back(
                {{"rule", finding.rule}, {"expected", finding.expected}, {"found", finding.found}});
        }
        json["subjects"].push_back(std::move(entry));
    }
    return json.dump(2) + "\n";
}

}  // namespace kvconform
