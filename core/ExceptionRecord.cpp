#include "core/ExceptionRecord.h"

#include "framework/base/Hresult.h"

void ExceptionRecord::Complete() {
    if (m_info.pfnDeferredFillIn != nullptr) {
        // Without the details the record is as good as one of an object that gives none.
        fw::Ignore(m_info.pfnDeferredFillIn(&m_info));
    }
}

void ExceptionRecord::Clear() {
    ::SysFreeString(m_info.bstrSource);
    ::SysFreeString(m_info.bstrDescription);
    ::SysFreeString(m_info.bstrHelpFile);
    m_info = {};
}

// Objects that number their exceptions themselves leave scode at 0.
SCODE ExceptionRecord::Code() const {
    return m_info.scode != 0 ? m_info.scode : static_cast<SCODE>(m_info.wCode);
}
