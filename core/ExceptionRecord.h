#pragma once

#include "framework/base/WindowsApi.h"

/// Owns what an object tells of an automation call that raised an exception.
class ExceptionRecord {
public:
    ExceptionRecord() = default;
    ExceptionRecord(const ExceptionRecord&) = delete;
    ExceptionRecord& operator=(const ExceptionRecord&) = delete;
    ~ExceptionRecord() { Clear(); }

    /// Empties the record and gives the place for a call to fill.
    EXCEPINFO* Put();
    /// Lets an object that deferred the details fill them in; to be called when the call raised an exception.
    void Complete();
    void Clear();

    [[nodiscard]] SCODE Code() const;
    /// Null when the object gave none.
    [[nodiscard]] const wchar_t* Description() const { return m_info.bstrDescription; }

private:
    EXCEPINFO m_info{};
};
