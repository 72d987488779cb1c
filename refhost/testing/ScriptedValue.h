#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "framework/com/Variant.h"
#include "host_sdk/ErrorStatus.h"
#include "host_sdk/Export.h"

namespace kvhost {

/// The exception record that a failing get or put fills in. Absent texts stay null.
struct ScriptedException {
    SCODE scode = 0;
    std::optional<std::wstring> source;
    std::optional<std::wstring> description;
    std::optional<std::wstring> helpFile;
};

/// Everything that a scripted object answers about one property. All members may be set at any time.
class KVHOST_API ScriptedValue {
public:
    ScriptedValue();
    ~ScriptedValue();
    ScriptedValue(const ScriptedValue&) = delete;
    ScriptedValue& operator=(const ScriptedValue&) = delete;

    /// Sets the value that a get hands out, bit for bit where there is nothing to copy: a null BSTR, an array
    /// type without array and types that VariantCopy refuses all work. A BSTR or array is copied.
    void Set(const VARIANT& value);
    void Set(const wchar_t* text);
    void Set(double number);
    void Set(long number);
    [[nodiscard]] const VARIANT& Get() const { return m_value; }
    /// Copies the value by the same rule.
    [[nodiscard]] HRESULT CopyTo(VARIANT* result) const;

    HRESULT getResult = S_OK;
    HRESULT putResult = S_OK;
    ScriptedException exception;  ///< handed out with DISP_E_EXCEPTION
    bool keepsPuts = true;        ///< a successful put becomes the value
    std::vector<fw::Variant> puts;

    bool unspecifiedAllowed = false;
    bool unspecified = false;
    std::optional<std::wstring> unspecifiedText;  ///< absent: E_FAIL
    HRESULT isUnspecifiedAllowedResult = S_OK;
    HRESULT isUnspecifiedResult = S_OK;
    HRESULT setUnspecifiedResult = S_OK;

    bool expressionSupported = false;
    std::wstring expression;
    HRESULT isExpressionSupportedResult = S_OK;
    bool answersThoughFailing = false;  ///< a failing IsExpressionSupported gives its answer all the same
    HRESULT getExpressionResult = S_OK;
    HRESULT setExpressionResult = S_OK;

    BOOL editable = TRUE;
    HRESULT editableResult = S_OK;
    std::optional<Tolm::ErrorStatus> editableThrows;
    BOOL shown = TRUE;

    std::optional<VARTYPE> valueType;  ///< of a dynamic property; absent: E_NOTIMPL
    BOOL readOnly = FALSE;             ///< of a dynamic property
    HRESULT readOnlyResult = S_OK;

    CLSID page{};  ///< of the property's dialog
    HRESULT pageResult = S_OK;
    std::optional<std::wstring> displayString;  ///< absent: E_NOTIMPL
    std::vector<std::wstring> predefinedStrings;
    std::vector<fw::Variant> predefinedValues;  ///< shorter than the strings: E_NOTIMPL for the rest

    std::map<unsigned, fw::Variant> elements;  ///< of a grouped property, by key
    unsigned groupSize = 1;                    ///< elements per group
    /// Left as the thread's error text by a failing element write; absent: no error text.
    std::optional<std::wstring> errorText;

private:
    VARIANT m_value;
};

}  // namespace kvhost
