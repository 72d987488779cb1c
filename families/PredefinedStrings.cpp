#include "families/PredefinedStrings.h"

#include <algorithm>

PredefinedStrings::~PredefinedStrings() {
    for (ULONG index = 0; m_strings.pElems && index < m_strings.cElems; ++index) {
        ::SysFreeString(m_strings.pElems[index]);
    }
    ::CoTaskMemFree(m_strings.pElems);
    ::CoTaskMemFree(m_cookies.pElems);
}

HRESULT PredefinedStrings::Read(IPerPropertyBrowsing& object, DISPID dispid) {
    const HRESULT result = object.GetPredefinedStrings(dispid, &m_strings, &m_cookies);
    if (FAILED(result)) {
        // What a failing object leaves behind is not to be trusted.
        m_strings = {};
        m_cookies = {};
    }
    return result;
}

ULONG PredefinedStrings::Count() const {
    return m_strings.pElems && m_cookies.pElems ? std::min(m_strings.cElems, m_cookies.cElems) : 0;
}

std::wstring_view PredefinedStrings::Text(ULONG index) const {
    const wchar_t* const text = m_strings.pElems[index];
    return text ? text : L"";
}
