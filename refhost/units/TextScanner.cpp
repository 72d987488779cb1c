#include "refhost/units/TextScanner.h"

namespace kvhost {

namespace {

bool IsBlank(wchar_t character) {
    return character == L' ' || character == L'\t';
}

bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

wchar_t Lower(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

}  // namespace

bool TextScanner::SkipBlanks() {
    const std::wstring_view before = m_rest;
    while (!m_rest.empty() && IsBlank(m_rest.front())) {
        m_rest.remove_prefix(1);
    }
    return before.size() != m_rest.size();
}

bool TextScanner::Take(wchar_t character) {
    if (m_rest.empty() || Lower(m_rest.front()) != Lower(character)) {
        return false;
    }
    m_rest.remove_prefix(1);
    return true;
}

std::wstring_view TextScanner::TakeDigits() {
    const std::wstring_view before = m_rest;
    while (!m_rest.empty() && IsDigit(m_rest.front())) {
        m_rest.remove_prefix(1);
    }
    return before.substr(0, before.size() - m_rest.size());
}

std::wstring_view TextScanner::TakeNumber() {
    const std::wstring_view before = m_rest;
    const bool hasWhole = !TakeDigits().empty();
    const bool hasPlaces = Take(L'.') && !TakeDigits().empty();
    if (!hasWhole && !hasPlaces) {
        m_rest = before;
        return {};
    }
    const std::wstring_view mantissaEnd = m_rest;
    if (Take(L'e')) {
        if (!Take(L'+')) {
            Take(L'-');
        }
        if (TakeDigits().empty()) {
            m_rest = mantissaEnd;
        }
    }
    return before.substr(0, before.size() - m_rest.size());
}

bool TextScanner::TakeMinus() {
    const bool isNegative = Take(L'-');
    if (isNegative || Take(L'+')) {
        SkipBlanks();
    }
    return isNegative;
}

}  // namespace kvhost
