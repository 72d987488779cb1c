#pragma once

#include <string>

#include "refhost/testing/CallScript.h"
#include "refhost/testing/ScriptedValue.h"

namespace kvhost {

// The operations that scripted objects and scripted dynamic properties have in common, each with its journal
// line. `subject` names what is asked beside the object itself.

HRESULT AnswerIsUnspecified(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                            VARIANT_BOOL* unspecified);
HRESULT AnswerSetUnspecified(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                             VARIANT_BOOL unspecified);
HRESULT AnswerIsUnspecifiedAllowed(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                                   VARIANT_BOOL* allowed);
HRESULT AnswerGetUnspecifiedText(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                                 BSTR* text);
HRESULT AnswerIsExpressionSupported(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                                    VARIANT_BOOL* supported);
HRESULT AnswerGetExpression(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                            BSTR* expression);
HRESULT AnswerSetExpression(CallScript& script, ScriptedValue& value, const std::wstring& subject,
                            const wchar_t* expression);
HRESULT AnswerMapPropertyToPage(CallScript& script, const ScriptedValue& value, DISPID dispid, CLSID* page);
HRESULT AnswerGetDisplayString(CallScript& script, const ScriptedValue& value, DISPID dispid, BSTR* text);
HRESULT AnswerGetPredefinedStrings(CallScript& script, const ScriptedValue& value, DISPID dispid,
                                   CALPOLESTR* strings, CADWORD* cookies);
HRESULT AnswerGetPredefinedValue(CallScript& script, const ScriptedValue& value, DISPID dispid, DWORD cookie,
                                 VARIANT* result);

/// Element access, journalled as `IPropertyElementAccess.GetElementValue name subject key`. Keys without an
/// element give E_INVALIDARG; a failing write leaves `errorText`, where there is one, as the thread's error
/// text.
HRESULT AnswerGetElement(CallScript& script, const ScriptedValue& value, const wchar_t* operation,
                         const std::wstring& subject, unsigned key, VARIANT* result);
HRESULT AnswerSetElement(CallScript& script, ScriptedValue& value, const wchar_t* operation,
                         const std::wstring& subject, unsigned key, const VARIANT& put);
HRESULT AnswerGetGroupSize(CallScript& script, const ScriptedValue& value, const std::wstring& subject,
                           unsigned* size);
HRESULT AnswerGetGroupCount(CallScript& script, const ScriptedValue& value, const std::wstring& subject,
                            long* count);

/// Notes the put and keeps it as the value unless the script says otherwise.
void KeepPut(ScriptedValue& value, const VARIANT& put);

}  // namespace kvhost
