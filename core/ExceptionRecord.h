#pragma once

#include "framework/base/WindowsApi.h"

/// Owns what an object tells of an automation call that raised an exception.
class ExceptionRecord {
public:
    ExceptionRecord() = default;
    ExceptionRecord(const ExceptionRecord&) = delete;
    ExceptionRecord& operator=(const ExceptionRecord&) = delete;
    ~ExceptionRecord() {
        if (HoldsTexts()) {
            Clear();
        }
    }

    /// Empties the record and gives the place for a call to fill.
    EXCEPINFO* Put() {
        if (m_used) {
            Clear();
        }
        m_used = true;
        return &m_info;
    }
    /// Lets an object that deferred the details fill them in; to be called when the call raised an exception.
    void Complete();
    void Clear();

    [[nodiscard]] SCODE Code() const;
    /// Null when the object gave none.
    [[nodiscard]] const wchar_t* Description() const { return m_info.bstrDescription; }

private:
    // Nearly all calls succeed and leave none.
    [[nodiscard]] bool HoldsTexts() const {
        return m_info.bstrSource != nullptr || m_info.bstrDescription != nullptr ||
               m_info.bstrHelpFile != nullptr;
    }

    EXCEPINFO m_info{};
    bool m_used = false;
};
