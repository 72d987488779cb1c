#include "framework/base/CString.h"

#include "framework/base/ModuleState.h"
#include "framework/base/TextResource.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <iterator>
#include <utility>

namespace {

const wchar_t* OrEmpty(const wchar_t* text) {
    return text ? text : L"";
}

std::size_t Clamped(int position, std::size_t length) {
    return std::min(static_cast<std::size_t>(std::max(position, 0)), length);
}

int ToIndex(std::size_t position) {
    return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

bool IsSpace(wchar_t character) {
    WORD type = 0;
    return ::GetStringTypeW(CT_CTYPE1, &character, 1, &type) && (type & C1_SPACE) != 0;
}

// The system maps case by its own tables, which do not depend on the C library's locale.
void MapCase(std::wstring& text, DWORD mapping) {
    if (!text.empty()) {
        const int length = static_cast<int>(text.size());
        ::LCMapStringEx(LOCALE_NAME_INVARIANT, mapping, text.data(), length, text.data(), length, nullptr,
                        nullptr, 0);
    }
}

}  // namespace

CString& CString::operator=(const wchar_t* text) {
    m_text = OrEmpty(text);
    return *this;
}

CString& CString::operator=(std::wstring_view text) {
    m_text = text;
    return *this;
}

CString& CString::operator=(const std::wstring& text) {
    m_text = text;
    return *this;
}

int CString::Compare(const wchar_t* other) const {
    return m_text.compare(OrEmpty(other));
}

int CString::CompareNoCase(const wchar_t* other) const {
    return ::CompareStringOrdinal(m_text.c_str(), -1, OrEmpty(other), -1, TRUE) - CSTR_EQUAL;
}

int CString::CompareLocale(const wchar_t* other) const {
    return ::CompareStringEx(LOCALE_NAME_USER_DEFAULT, 0, m_text.c_str(), -1, OrEmpty(other), -1, nullptr,
                             nullptr, 0) -
           CSTR_EQUAL;
}

CString CString::Left(int count) const {
    return Mid(0, count);
}

CString CString::Right(int count) const {
    const std::size_t kept = Clamped(count, m_text.size());
    return m_text.substr(m_text.size() - kept);
}

CString CString::Mid(int first) const {
    return m_text.substr(Clamped(first, m_text.size()));
}

CString CString::Mid(int first, int count) const {
    return m_text.substr(Clamped(first, m_text.size()), Clamped(count, m_text.size()));
}

int CString::Find(const wchar_t* part, int start) const {
    return ToIndex(m_text.find(OrEmpty(part), Clamped(start, m_text.size())));
}

int CString::Find(wchar_t character, int start) const {
    return ToIndex(m_text.find(character, Clamped(start, m_text.size())));
}

int CString::ReverseFind(wchar_t character) const {
    return ToIndex(m_text.rfind(character));
}

CString& CString::Trim() {
    const auto first = std::find_if_not(m_text.begin(), m_text.end(), IsSpace);
    const auto last = std::find_if_not(m_text.rbegin(), std::make_reverse_iterator(first), IsSpace).base();
    m_text = std::wstring(first, last);
    return *this;
}

CString& CString::MakeUpper() {
    MapCase(m_text, LCMAP_UPPERCASE);
    return *this;
}

CString& CString::MakeLower() {
    MapCase(m_text, LCMAP_LOWERCASE);
    return *this;
}

int CString::Replace(const wchar_t* from, const wchar_t* to) {
    const std::wstring_view wanted = OrEmpty(from);
    const std::wstring_view replacement = OrEmpty(to);
    if (wanted.empty()) {
        return 0;
    }
    int count = 0;
    for (std::size_t at = m_text.find(wanted); at != std::wstring::npos; ++count) {
        m_text.replace(at, wanted.size(), replacement);
        at = m_text.find(wanted, at + replacement.size());
    }
    return count;
}

void CString::Format(const wchar_t* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    // The functions of the platform's C library: the compiler's own read %s as narrow text.
    const int length = ::_vscwprintf(format, arguments);
    std::wstring text(static_cast<std::size_t>(std::max(length, 0)) + 1, L'\0');
    const int written = length < 0 ? 0 : ::_vsnwprintf(text.data(), text.size(), format, again);
    va_end(again);
    va_end(arguments);
    text.resize(static_cast<std::size_t>(std::max(written, 0)));
    m_text = std::move(text);
}

bool CString::LoadString(UINT id) {
    return LoadString(AfxGetResourceHandle(), id);
}

bool CString::LoadString(HINSTANCE module, UINT id) {
    m_text = fw::FindText(module, id);
    return !m_text.empty();
}

BSTR CString::AllocSysString() const {
    return ::SysAllocStringLen(m_text.data(), static_cast<UINT>(m_text.size()));
}

CString& CString::operator+=(const wchar_t* text) {
    m_text += OrEmpty(text);
    return *this;
}

CString& CString::operator+=(const CString& text) {
    m_text += text.m_text;
    return *this;
}

CString& CString::operator+=(wchar_t character) {
    m_text += character;
    return *this;
}

CString operator+(const CString& left, const CString& right) {
    return CString(left) += right;
}
CString operator+(const CString& left, const wchar_t* right) {
    return CString(left) += right;
}
CString operator+(const wchar_t* left, const CString& right) {
    return CString(left) += right;
}
CString operator+(const CString& left, wchar_t right) {
    return CString(left) += right;
}
