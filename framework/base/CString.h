#pragma once

#include <string>
#include <string_view>

#include "framework/base/Export.h"
#include "framework/base/WindowsApi.h"

// A wide string value. Positions and lengths count UTF-16 units; positions out of range are cut to the text.
class FW_API CString {
public:
    CString() = default;
    CString(const wchar_t* text) : m_text(text ? text : L"") {}
    CString(const wchar_t* text, int length) : m_text(text, static_cast<std::size_t>(length)) {}
    CString(std::wstring_view text) : m_text(text) {}
    CString(const std::wstring& text) : m_text(text) {}
    explicit CString(wchar_t character, int count = 1) : m_text(static_cast<std::size_t>(count), character) {}

    CString& operator=(const wchar_t* text);
    CString& operator=(std::wstring_view text);
    CString& operator=(const std::wstring& text);

    const wchar_t* GetString() const { return m_text.c_str(); }
    operator const wchar_t*() const { return m_text.c_str(); }
    std::wstring_view View() const { return m_text; }
    const std::wstring& Std() const { return m_text; }

    bool IsEmpty() const { return m_text.empty(); }
    int GetLength() const { return static_cast<int>(m_text.size()); }
    void Empty() { m_text.clear(); }
    wchar_t GetAt(int index) const { return m_text[static_cast<std::size_t>(index)]; }

    // Each returns a value below, at or above 0.
    int Compare(const wchar_t* other) const;                            // by code unit
    int compare(const wchar_t* other) const { return Compare(other); }  // as hosts call it
    int CompareNoCase(const wchar_t* other) const;  // without regard to case, the same in every locale
    int CompareLocale(const wchar_t* other) const;  // in the user's sorting order

    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    // The first position at or behind start, -1 if there is none.
    int Find(const wchar_t* part, int start = 0) const;
    int Find(wchar_t character, int start = 0) const;
    int ReverseFind(wchar_t character) const;

    CString& Trim();  // white space at both ends
    CString& MakeUpper();
    CString& MakeLower();
    int Replace(const wchar_t* from, const wchar_t* to);  // returns the number of replacements

    // Format letters are the platform's: %s and %c take wide text, %S and %hs narrow text.
    void Format(const wchar_t* format, ...);

    // Loads from the framework's current resource handle, in the user's language or else in English. False,
    // with an empty text, if there is no such id.
    bool LoadString(UINT id);
    bool LoadString(HINSTANCE module, UINT id);

    // The caller owns the result. Null when memory is short.
    BSTR AllocSysString() const;

    CString& operator+=(const wchar_t* text);
    CString& operator+=(const CString& text);
    CString& operator+=(wchar_t character);

private:
    std::wstring m_text;
};

FW_API CString operator+(const CString& left, const CString& right);
FW_API CString operator+(const CString& left, const wchar_t* right);
FW_API CString operator+(const wchar_t* left, const CString& right);
FW_API CString operator+(const CString& left, wchar_t right);

inline bool operator==(const CString& left, const CString& right) {
    return left.View() == right.View();
}
inline bool operator==(const CString& left, const wchar_t* right) {
    return left.Compare(right) == 0;
}
inline bool operator<(const CString& left, const CString& right) {
    return left.View() < right.View();
}
