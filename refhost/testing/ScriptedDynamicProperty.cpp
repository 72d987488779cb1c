#include "refhost/testing/ScriptedDynamicProperty.h"

#include <utility>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/ErrorInfo.h"
#include "refhost/testing/JournalText.h"
#include "refhost/testing/ScriptedAnswers.h"

namespace kvhost {

namespace {

long g_liveCount = 0;

// Keys of dynamic properties carry the object itself.
std::wstring SubjectOf(const VARIANT& key) {
    return key.vt == VT_UNKNOWN ? ScriptedObject::NameOf(key.punkVal) : AsText(key);
}

}  // namespace

fw::ComPtr<ScriptedDynamicProperty> ScriptedDynamicProperty::Make(std::wstring name, unsigned interfaces) {
    return {new ScriptedDynamicProperty(std::move(name), interfaces)};
}

ScriptedDynamicProperty::ScriptedDynamicProperty(std::wstring name, unsigned offered)
    : script(std::move(name)), interfaces(offered) {
    ++g_liveCount;
}

ScriptedDynamicProperty::~ScriptedDynamicProperty() {
    --g_liveCount;
}

long ScriptedDynamicProperty::LiveCount() {
    return g_liveCount;
}

ScriptedValue& ScriptedDynamicProperty::For(const std::wstring& subject) {
    std::unique_ptr<ScriptedValue>& value = m_values[subject];
    if (!value) {
        value = std::make_unique<ScriptedValue>();
    }
    return *value;
}

ScriptedValue& ScriptedDynamicProperty::Of(const std::wstring& subject) {
    return m_values.contains(subject) ? For(subject) : shared;
}

void* ScriptedDynamicProperty::Find(REFIID id) {
    const auto isOffered = [&](unsigned bit, REFIID offered) {
        return (interfaces & bit) != 0 && id == offered;
    };
    if (id == IID_IUnknown || isOffered(OffersByObject, __uuidof(IDynamicPropertyByObject))) {
        return static_cast<IDynamicPropertyByObject*>(this);
    }
    if (isOffered(OffersById, __uuidof(IDynamicProperty))) {
        return static_cast<IDynamicProperty*>(this);
    }
    if (isOffered(OffersDialog, __uuidof(IDynamicPropertyDialog))) {
        return static_cast<IDynamicPropertyDialog*>(this);
    }
    if (isOffered(OffersUnspecified, __uuidof(IPropertyUnspecifiedSupport))) {
        return static_cast<IPropertyUnspecifiedSupport*>(this);
    }
    if (isOffered(OffersExpression, __uuidof(IPropertyExpressionSupport))) {
        return static_cast<IPropertyExpressionSupport*>(this);
    }
    if (isOffered(OffersBrowsing, IID_IPerPropertyBrowsing)) {
        return static_cast<IPerPropertyBrowsing*>(this);
    }
    if (isOffered(OffersValues, __uuidof(IDynamicPropertyEnum))) {
        return static_cast<IDynamicPropertyEnum*>(this);
    }
    if (isOffered(OffersElements, __uuidof(IPropertyElementAccess))) {
        return static_cast<IPropertyElementAccess*>(this);
    }
    if (isOffered(OffersElementsOfObject, __uuidof(IPropertyElementAccess2))) {
        return static_cast<IPropertyElementAccess2*>(this);
    }
    return nullptr;
}

STDMETHODIMP ScriptedDynamicProperty::QueryInterface(REFIID id, void** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = Find(id);
    RETURN_HR_IF(E_NOINTERFACE, *result == nullptr);
    ++m_references;
    return S_OK;
}

STDMETHODIMP_(ULONG) ScriptedDynamicProperty::AddRef() {
    return ++m_references;
}

STDMETHODIMP_(ULONG) ScriptedDynamicProperty::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP ScriptedDynamicProperty::IsPropertyReadOnly(BOOL* readOnly) {
    RETURN_IF_NULL_POINTER(readOnly);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"IsPropertyReadOnly"));
    RETURN_IF_FAILED_EXPECTED(shared.readOnlyResult);
    *readOnly = shared.readOnly;
    return shared.readOnlyResult;
}

HRESULT ScriptedDynamicProperty::Get(const std::wstring& subject, VARIANT* value) {
    RETURN_IF_NULL_POINTER(value);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetCurrentValueData", subject));
    const ScriptedValue& scripted = Of(subject);
    RETURN_IF_FAILED_EXPECTED(scripted.getResult);
    RETURN_IF_FAILED_EXPECTED(scripted.CopyTo(value));
    return scripted.getResult;
}

HRESULT ScriptedDynamicProperty::Put(const std::wstring& subject, const VARIANT& value) {
    HRESULT result = script.Begin(L"SetCurrentValueData", JoinAsText(subject, AsText(value)));
    ScriptedValue& scripted = Of(subject);
    result = FAILED(result) ? result : scripted.putResult;
    if (FAILED(result)) {
        return errorText ? fw::SetErrorText(result, IID_NULL, script.Name(), *errorText) : result;
    }
    KeepPut(scripted, value);
    return result;
}

STDMETHODIMP ScriptedDynamicProperty::GetCurrentValueType(VARTYPE* type) {
    RETURN_IF_NULL_POINTER(type);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetCurrentValueType"));
    RETURN_HR_IF(E_NOTIMPL, !shared.valueType);
    *type = *shared.valueType;
    return S_OK;
}

STDMETHODIMP ScriptedDynamicProperty::GetCurrentValueData(IUnknown* object, VARIANT* value) {
    return Get(ScriptedObject::NameOf(object), value);
}

STDMETHODIMP ScriptedDynamicProperty::SetCurrentValueData(IUnknown* object, VARIANT value) {
    return Put(ScriptedObject::NameOf(object), value);
}

STDMETHODIMP ScriptedDynamicProperty::GetCurrentValueData(KvDbObjectId object, VARIANT* value) {
    return Get(AsText(object), value);
}

STDMETHODIMP ScriptedDynamicProperty::SetCurrentValueData(KvDbObjectId object, VARIANT value) {
    return Put(AsText(object), value);
}

STDMETHODIMP ScriptedDynamicProperty::GetPropertyNameCount(long* count) {
    RETURN_IF_NULL_POINTER(count);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetPropertyNameCount"));
    *count = static_cast<long>(names.size());
    return S_OK;
}

STDMETHODIMP ScriptedDynamicProperty::GetPropertyName(long index, BSTR* name) {
    RETURN_IF_NULL_POINTER(name);
    *name = nullptr;
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetPropertyName", AsText(index)));
    RETURN_HR_IF(E_INVALIDARG, index < 0 || index >= static_cast<long>(names.size()));
    return fw::MakeBstr(names[static_cast<std::size_t>(index)], name);
}

STDMETHODIMP ScriptedDynamicProperty::GetDialogProcedure(KvPropertyDialogProcedure* procedure) {
    RETURN_IF_NULL_POINTER(procedure);
    *procedure = nullptr;
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetDialogProcedure"));
    *procedure = dialogProcedure;
    return S_OK;
}

STDMETHODIMP ScriptedDynamicProperty::GetDialogMacro(BSTR* macro) {
    RETURN_IF_NULL_POINTER(macro);
    *macro = nullptr;
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetDialogMacro"));
    return dialogMacro ? fw::MakeBstr(*dialogMacro, macro) : S_OK;
}

STDMETHODIMP ScriptedDynamicProperty::IsUnspecified(VARIANT key, VARIANT_BOOL* unspecified) {
    const std::wstring subject = SubjectOf(key);
    return AnswerIsUnspecified(script, Of(subject), subject, unspecified);
}

STDMETHODIMP ScriptedDynamicProperty::SetUnspecified(VARIANT key, VARIANT_BOOL unspecified) {
    const std::wstring subject = SubjectOf(key);
    return AnswerSetUnspecified(script, Of(subject), subject, unspecified);
}

STDMETHODIMP ScriptedDynamicProperty::IsUnspecifiedAllowed(VARIANT key, VARIANT_BOOL* allowed) {
    const std::wstring subject = SubjectOf(key);
    return AnswerIsUnspecifiedAllowed(script, Of(subject), subject, allowed);
}

STDMETHODIMP ScriptedDynamicProperty::GetUnspecifiedText(VARIANT key, BSTR* text) {
    const std::wstring subject = SubjectOf(key);
    return AnswerGetUnspecifiedText(script, Of(subject), subject, text);
}

STDMETHODIMP ScriptedDynamicProperty::IsExpressionSupported(VARIANT key, VARIANT_BOOL* supported) {
    const std::wstring subject = SubjectOf(key);
    return AnswerIsExpressionSupported(script, Of(subject), subject, supported);
}

STDMETHODIMP ScriptedDynamicProperty::GetExpression(VARIANT key, BSTR* expression) {
    const std::wstring subject = SubjectOf(key);
    return AnswerGetExpression(script, Of(subject), subject, expression);
}

STDMETHODIMP ScriptedDynamicProperty::SetExpression(VARIANT key, wchar_t* expression) {
    const std::wstring subject = SubjectOf(key);
    return AnswerSetExpression(script, Of(subject), subject, expression);
}

STDMETHODIMP ScriptedDynamicProperty::GetDisplayString(DISPID dispid, BSTR* text) {
    return AnswerGetDisplayString(script, shared, dispid, text);
}

STDMETHODIMP ScriptedDynamicProperty::MapPropertyToPage(DISPID dispid, CLSID* page) {
    return AnswerMapPropertyToPage(script, shared, dispid, page);
}

STDMETHODIMP ScriptedDynamicProperty::GetPredefinedStrings(DISPID dispid, CALPOLESTR* strings,
                                                           CADWORD* cookies) {
    return AnswerGetPredefinedStrings(script, shared, dispid, strings, cookies);
}

STDMETHODIMP ScriptedDynamicProperty::GetPredefinedValue(DISPID dispid, DWORD cookie, VARIANT* value) {
    return AnswerGetPredefinedValue(script, shared, dispid, cookie, value);
}

STDMETHODIMP ScriptedDynamicProperty::GetValueCount(long* count) {
    RETURN_IF_NULL_POINTER(count);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetValueCount"));
    *count = static_cast<long>(values.size());
    return S_OK;
}

STDMETHODIMP ScriptedDynamicProperty::GetValueName(long index, BSTR* name) {
    RETURN_IF_NULL_POINTER(name);
    *name = nullptr;
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetValueName", AsText(index)));
    RETURN_HR_IF(E_INVALIDARG, index < 0 || index >= static_cast<long>(values.size()));
    return fw::MakeBstr(values[static_cast<std::size_t>(index)].first, name);
}

STDMETHODIMP ScriptedDynamicProperty::GetValueData(long index, VARIANT* data) {
    RETURN_IF_NULL_POINTER(data);
    ::VariantInit(data);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetValueData", AsText(index)));
    RETURN_HR_IF(E_INVALIDARG, index < 0 || index >= static_cast<long>(values.size()));
    return values[static_cast<std::size_t>(index)].second.CopyTo(data);
}

// The form with the object says in the journal which one it was told.
STDMETHODIMP ScriptedDynamicProperty::GetElementValue(long dispid, unsigned key, VARIANT* value) {
    return AnswerGetElement(script, shared, L"IPropertyElementAccess.GetElementValue", AsText(dispid), key,
                            value);
}

STDMETHODIMP ScriptedDynamicProperty::SetElementValue(long dispid, unsigned key, VARIANT value) {
    return AnswerSetElement(script, shared, L"IPropertyElementAccess.SetElementValue", AsText(dispid), key,
                            value);
}

STDMETHODIMP ScriptedDynamicProperty::GetGroupSize(long dispid, unsigned* size) {
    return AnswerGetGroupSize(script, shared, AsText(dispid), size);
}

STDMETHODIMP ScriptedDynamicProperty::GetGroupCount(long dispid, long* count) {
    return AnswerGetGroupCount(script, shared, AsText(dispid), count);
}

STDMETHODIMP ScriptedDynamicProperty::GetElementValue(long dispid, IDispatch* object, unsigned key,
                                                      VARIANT* value) {
    return AnswerGetElement(script, shared, L"IPropertyElementAccess2.GetElementValue",
                            JoinAsText(dispid, ScriptedObject::NameOf(object)), key, value);
}

STDMETHODIMP ScriptedDynamicProperty::SetElementValue(long dispid, IDispatch* object, unsigned key,
                                                      VARIANT value) {
    return AnswerSetElement(script, shared, L"IPropertyElementAccess2.SetElementValue",
                            JoinAsText(dispid, ScriptedObject::NameOf(object)), key, value);
}

STDMETHODIMP ScriptedDynamicProperty::GetGroupSize(long dispid, IDispatch* object, unsigned* size) {
    return AnswerGetGroupSize(script, shared, JoinAsText(dispid, ScriptedObject::NameOf(object)), size);
}

STDMETHODIMP ScriptedDynamicProperty::GetGroupCount(long dispid, IDispatch* object, long* count) {
    return AnswerGetGroupCount(script, shared, JoinAsText(dispid, ScriptedObject::NameOf(object)), count);
}

}  // namespace kvhost
