#include "refhost/testing/ScriptedAnswers.h"

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/ErrorInfo.h"
#include "refhost/automation/CountedArrays.h"
#include "refhost/testing/JournalText.h"

namespace kvhost {

namespace {

HRESULT AnswerTruth(HRESULT began, HRESULT scripted, bool truth, VARIANT_BOOL* result) {
    RETURN_IF_NULL_POINTER(result);
    RETURN_IF_FAILED_EXPECTED(began);
    RETURN_IF_FAILED_EXPECTED(scripted);
    *result = truth ? VARIANT_TRUE : VARIANT_FALSE;
    return scripted;
}

}  // namespace

HRESULT AnswerIsUnspecified(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                            VARIANT_BOOL* unspecified) {
    return AnswerTruth(script.Begin(L"IsUnspecified", subject), value.isUnspecifiedResult, value.unspecified,
                       unspecified);
}

HRESULT AnswerSetUnspecified(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                             VARIANT_BOOL unspecified) {
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"SetUnspecified", JoinAsText(subject, unspecified)));
    RETURN_IF_FAILED_EXPECTED(value.setUnspecifiedResult);
    value.unspecified = unspecified != VARIANT_FALSE;
    return value.setUnspecifiedResult;
}

HRESULT AnswerIsUnspecifiedAllowed(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                                   VARIANT_BOOL* allowed) {
    return AnswerTruth(script.Begin(L"IsUnspecifiedAllowed", subject), value.isUnspecifiedAllowedResult,
                       value.unspecifiedAllowed, allowed);
}

HRESULT AnswerGetUnspecifiedText(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                                 BSTR* text) {
    RETURN_IF_NULL_POINTER(text);
    *text = nullptr;
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetUnspecifiedText", subject));
    RETURN_HR_IF(E_FAIL, !value.unspecifiedText);
    return fw::MakeBstr(*value.unspecifiedText, text);
}

HRESULT AnswerIsExpressionSupported(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                                    VARIANT_BOOL* supported) {
    const HRESULT began = script.Begin(L"IsExpressionSupported", subject);
    if (value.answersThoughFailing && supported != nullptr) {
        *supported = value.expressionSupported ? VARIANT_TRUE : VARIANT_FALSE;
    }
    return AnswerTruth(began, value.isExpressionSupportedResult, value.expressionSupported, supported);
}

HRESULT AnswerGetExpression(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                            BSTR* expression) {
    RETURN_IF_NULL_POINTER(expression);
    *expression = nullptr;
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetExpression", subject));
    RETURN_IF_FAILED_EXPECTED(value.getExpressionResult);
    return fw::MakeBstr(value.expression, expression);
}

HRESULT AnswerSetExpression(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                            const wchar_t* expression) {
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"SetExpression", JoinAsText(subject, expression)));
    RETURN_IF_FAILED_EXPECTED(value.setExpressionResult);
    value.expression = expression != nullptr ? expression : L"";
    return value.setExpressionResult;
}

HRESULT AnswerMapPropertyToPage(CallScript& script, const ScriptedValue& value, DISPID dispid, CLSID* page) {
    RETURN_IF_NULL_POINTER(page);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"MapPropertyToPage", AsText(dispid)));
    *page = value.page;
    return value.pageResult;
}

HRESULT AnswerGetDisplayString(CallScript& script, const ScriptedValue& value, DISPID dispid, BSTR* text) {
    RETURN_IF_NULL_POINTER(text);
    *text = nullptr;
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetDisplayString", AsText(dispid)));
    RETURN_HR_IF(E_NOTIMPL, !value.displayString);
    return fw::MakeBstr(*value.displayString, text);
}

HRESULT AnswerGetPredefinedStrings(CallScript& script, const ScriptedValue& value, DISPID dispid,
                                   CALPOLESTR* strings, CADWORD* cookies) {
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetPredefinedStrings", AsText(dispid)));
    return MakeCountedArrays(value.predefinedStrings, strings, cookies);
}

HRESULT AnswerGetPredefinedValue(CallScript& script, const ScriptedValue& value, DISPID dispid, DWORD cookie,
                                 VARIANT* result) {
    RETURN_IF_NULL_POINTER(result);
    ::VariantInit(result);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetPredefinedValue", JoinAsText(dispid, cookie)));
    RETURN_HR_IF(E_NOTIMPL, cookie >= value.predefinedValues.size());
    return value.predefinedValues[cookie].CopyTo(result);
}

HRESULT AnswerGetElement(CallScript& script, const ScriptedValue& value, const wchar_t* operation,
                         const std::wstring& subject, unsigned key, VARIANT* result) {
    RETURN_IF_NULL_POINTER(result);
    ::VariantInit(result);
    RETURN_IF_FAILED_EXPECTED(script.Begin(operation, JoinAsText(subject, key)));
    const auto found = value.elements.find(key);
    RETURN_HR_IF(E_INVALIDARG, found == value.elements.end());
    return found->second.CopyTo(result);
}

HRESULT AnswerSetElement(CallScript& script, ScriptedValue& value, const wchar_t* operation,
                         const std::wstring& subject, unsigned key, const VARIANT& put) {
    HRESULT result = script.Begin(operation, JoinAsText(subject, key, put));
    const auto found = value.elements.find(key);
    if (SUCCEEDED(result)) {
        result = found == value.elements.end() ? E_INVALIDARG : found->second.CopyIndirectFrom(put);
    }
    const bool tellsWhy = FAILED(result) && value.errorText;
    return tellsWhy ? fw::SetErrorText(result, IID_NULL, script.Name(), *value.errorText) : result;
}

HRESULT AnswerGetGroupSize(CallScript& script, const ScriptedValue& value, const std::wstring& subject,
                           unsigned* size) {
    RETURN_IF_NULL_POINTER(size);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetGroupSize", subject));
    *size = value.groupSize;
    return S_OK;
}

HRESULT AnswerGetGroupCount(CallScript& script, const ScriptedValue& value, const std::wstring& subject,
                            long* count) {
    RETURN_IF_NULL_POINTER(count);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetGroupCount", subject));
    *count = value.groupSize == 0 ? 0 : static_cast<long>(value.elements.size() / value.groupSize);
    return S_OK;
}

void KeepPut(ScriptedValue& value, const VARIANT& put) {
    fw::Variant copy;
    // A value that cannot be copied is still a put: it is noted as empty.
    fw::Ignore(copy.CopyIndirectFrom(put));
    value.puts.push_back(copy);
    if (value.keepsPuts) {
        value.Set(copy.Get());
    }
}

}  // namespace kvhost
