#include "refhost/testing/ScriptedObject.h"

#include <set>
#include <utility>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "refhost/testing/JournalText.h"
#include "refhost/testing/ScriptedAnswers.h"

namespace kvhost {

namespace {

std::set<ScriptedObject*>& LiveObjects() {
    static std::set<ScriptedObject*> objects;
    return objects;
}

BSTR TextOrNull(const std::optional<std::wstring>& text) {
    return text ? ::SysAllocStringLen(text->data(), static_cast<UINT>(text->size())) : nullptr;
}

void FillException(const ScriptedException& from, EXCEPINFO* to) {
    if (to == nullptr) {
        return;
    }
    *to = {};
    to->scode = from.scode;
    to->bstrSource = TextOrNull(from.source);
    to->bstrDescription = TextOrNull(from.description);
    to->bstrHelpFile = TextOrNull(from.helpFile);
}

std::wstring KeyText(const VARIANT& key) {
    return key.vt == VT_I4 ? AsText(key.lVal) : AsText(key);
}

}  // namespace

fw::ComPtr<ScriptedObject> ScriptedObject::Make(std::wstring name, unsigned interfaces) {
    return {new ScriptedObject(std::move(name), interfaces)};
}

ScriptedObject::ScriptedObject(std::wstring name, unsigned offered)
    : script(std::move(name)), interfaces(offered) {
    LiveObjects().insert(this);
}

ScriptedObject::~ScriptedObject() {
    LiveObjects().erase(this);
}

long ScriptedObject::LiveCount() {
    return static_cast<long>(LiveObjects().size());
}

std::wstring ScriptedObject::NameOf(IUnknown* object) {
    if (object == nullptr) {
        return L"null";
    }
    for (ScriptedObject* const live : LiveObjects()) {
        if (fw::IsSameObject(object, static_cast<IDispatch*>(live))) {
            return live->script.Name();
        }
    }
    return L"?";
}

ScriptedValue& ScriptedObject::At(DISPID dispid) {
    std::unique_ptr<ScriptedValue>& value = m_values[dispid];
    if (!value) {
        value = std::make_unique<ScriptedValue>();
    }
    return *value;
}

ScriptedValue& ScriptedObject::Known(DISPID dispid) {
    return m_values.contains(dispid) ? At(dispid) : m_unknown;
}

void* ScriptedObject::Find(REFIID id) {
    const auto isOffered = [&](unsigned bit, REFIID offered) {
        return (interfaces & bit) != 0 && id == offered;
    };
    if (id == IID_IUnknown || id == IID_IDispatch) {
        return static_cast<IDispatch*>(this);
    }
    if (isOffered(OffersUnspecified, __uuidof(IPropertyUnspecifiedSupport))) {
        return static_cast<IPropertyUnspecifiedSupport*>(this);
    }
    if (isOffered(OffersExpression, __uuidof(IPropertyExpressionSupport))) {
        return static_cast<IPropertyExpressionSupport*>(this);
    }
    if (isOffered(OffersEditability, __uuidof(IPropertyEditability))) {
        return static_cast<IPropertyEditability*>(this);
    }
    if (isOffered(OffersIdentity, __uuidof(IDatabaseObjectIdentity))) {
        return static_cast<IDatabaseObjectIdentity*>(this);
    }
    if (isOffered(OffersTransientIdentity, __uuidof(ITransientObjectIdentity))) {
        return static_cast<ITransientObjectIdentity*>(this);
    }
    if (isOffered(OffersUpdate, __uuidof(IGraphicalObjectUpdate))) {
        return static_cast<IGraphicalObjectUpdate*>(this);
    }
    if (isOffered(OffersBrowsing, __uuidof(IPropertyOfDialog))) {
        return static_cast<IPropertyOfDialog*>(this);
    }
    if (isOffered(OffersBrowsing, IID_IPerPropertyBrowsing)) {
        return static_cast<IPerPropertyBrowsing*>(this);
    }
    if (isOffered(OffersElements, __uuidof(IPropertyElementAccess))) {
        return static_cast<IPropertyElementAccess*>(this);
    }
    if (isOffered(OffersElementsOfObject, __uuidof(IPropertyElementAccess2))) {
        return static_cast<IPropertyElementAccess2*>(this);
    }
    return nullptr;
}

STDMETHODIMP ScriptedObject::QueryInterface(REFIID id, void** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = Find(id);
    RETURN_HR_IF(E_NOINTERFACE, *result == nullptr);
    ++m_references;
    return S_OK;
}

STDMETHODIMP_(ULONG) ScriptedObject::AddRef() {
    return ++m_references;
}

STDMETHODIMP_(ULONG) ScriptedObject::Release() {
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

STDMETHODIMP ScriptedObject::GetTypeInfoCount(UINT* count) {
    RETURN_IF_NULL_POINTER(count);
    *count = typeInfo ? 1 : 0;
    return S_OK;
}

STDMETHODIMP ScriptedObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    RETURN_IF_NULL_POINTER(info);
    *info = nullptr;
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetTypeInfo", AsText(index)));
    RETURN_HR_IF(E_NOTIMPL, !typeInfo);
    RETURN_HR_IF(DISP_E_BADINDEX, index != 0);
    return typeInfo.CopyTo(info);
}

STDMETHODIMP ScriptedObject::GetIDsOfNames(REFIID, LPOLESTR* texts, UINT count, LCID, DISPID* ids) {
    RETURN_IF_NULL_POINTER(texts);
    RETURN_IF_NULL_POINTER(ids);
    RETURN_HR_IF(E_INVALIDARG, count == 0);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetIDsOfNames", AsText(texts[0])));
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto found = names.find(texts[0]);
    RETURN_HR_IF(DISP_E_UNKNOWNNAME, found == names.end() || count > 1);
    *ids = found->second;
    return S_OK;
}

STDMETHODIMP ScriptedObject::Invoke(DISPID dispid, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                    VARIANT* result, EXCEPINFO* exception, UINT*) {
    RETURN_IF_NULL_POINTER(parameters);
    if ((flags & DISPATCH_PROPERTYPUT) != 0) {
        RETURN_HR_IF(DISP_E_BADPARAMCOUNT, parameters->cArgs != 1);
        return Put(dispid, parameters->rgvarg[0], exception);
    }
    RETURN_HR_IF(DISP_E_MEMBERNOTFOUND, (flags & DISPATCH_PROPERTYGET) == 0);
    return Get(dispid, result, exception);
}

HRESULT ScriptedObject::Get(DISPID dispid, VARIANT* result, EXCEPINFO* exception) {
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"Invoke", JoinAsText(L"get", dispid)));
    RETURN_HR_IF(DISP_E_MEMBERNOTFOUND, !m_values.contains(dispid));
    const ScriptedValue& value = At(dispid);
    if (value.getResult == DISP_E_EXCEPTION) {
        FillException(value.exception, exception);
    }
    RETURN_IF_FAILED_EXPECTED(value.getResult);
    RETURN_IF_FAILED_EXPECTED(result == nullptr ? S_OK : value.CopyTo(result));
    return value.getResult;
}

HRESULT ScriptedObject::Put(DISPID dispid, const VARIANT& put, EXCEPINFO* exception) {
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"Invoke", JoinAsText(L"put", dispid, AsText(put))));
    RETURN_HR_IF(DISP_E_MEMBERNOTFOUND, !m_values.contains(dispid));
    ScriptedValue& value = At(dispid);
    if (value.putResult == DISP_E_EXCEPTION) {
        FillException(value.exception, exception);
    }
    RETURN_IF_FAILED_EXPECTED(value.putResult);
    KeepPut(value, put);
    return value.putResult;
}

STDMETHODIMP ScriptedObject::IsUnspecified(VARIANT key, VARIANT_BOOL* unspecified) {
    return AnswerIsUnspecified(script, Known(key.lVal), KeyText(key), unspecified);
}

STDMETHODIMP ScriptedObject::SetUnspecified(VARIANT key, VARIANT_BOOL unspecified) {
    return AnswerSetUnspecified(script, Known(key.lVal), KeyText(key), unspecified);
}

STDMETHODIMP ScriptedObject::IsUnspecifiedAllowed(VARIANT key, VARIANT_BOOL* allowed) {
    return AnswerIsUnspecifiedAllowed(script, Known(key.lVal), KeyText(key), allowed);
}

STDMETHODIMP ScriptedObject::GetUnspecifiedText(VARIANT key, BSTR* text) {
    return AnswerGetUnspecifiedText(script, Known(key.lVal), KeyText(key), text);
}

STDMETHODIMP ScriptedObject::IsExpressionSupported(VARIANT key, VARIANT_BOOL* supported) {
    return AnswerIsExpressionSupported(script, Known(key.lVal), KeyText(key), supported);
}

STDMETHODIMP ScriptedObject::GetExpression(VARIANT key, BSTR* expression) {
    return AnswerGetExpression(script, Known(key.lVal), KeyText(key), expression);
}

STDMETHODIMP ScriptedObject::SetExpression(VARIANT key, wchar_t* expression) {
    return AnswerSetExpression(script, Known(key.lVal), KeyText(key), expression);
}

STDMETHODIMP ScriptedObject::Editable(long dispid, BOOL* editable) {
    RETURN_IF_NULL_POINTER(editable);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"Editable", AsText(dispid)));
    const ScriptedValue& value = Known(dispid);
    if (value.editableThrows) {
        throw *value.editableThrows;
    }
    RETURN_IF_FAILED_EXPECTED(value.editableResult);
    *editable = value.editable;
    return value.editableResult;
}

STDMETHODIMP ScriptedObject::PropertyShown(long dispid, BOOL* shown) {
    RETURN_IF_NULL_POINTER(shown);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"PropertyShown", AsText(dispid)));
    *shown = Known(dispid).shown;
    return S_OK;
}

STDMETHODIMP ScriptedObject::GetObjectId(KvDbObjectId* id) {
    RETURN_IF_NULL_POINTER(id);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetObjectId"));
    RETURN_IF_FAILED_EXPECTED(objectIdResult);
    *id = objectId;
    return objectIdResult;
}

STDMETHODIMP ScriptedObject::GetClassId(CLSID* result) {
    RETURN_IF_NULL_POINTER(result);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetClassId"));
    RETURN_IF_FAILED_EXPECTED(classIdResult);
    *result = classId;
    return classIdResult;
}

STDMETHODIMP ScriptedObject::GetFullSubentPath(KvDbFullSubentPath* path) {
    RETURN_IF_NULL_POINTER(path);
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"GetFullSubentPath"));
    RETURN_IF_FAILED_EXPECTED(subentPathResult);
    *path = subentPath;
    return subentPathResult;
}

STDMETHODIMP ScriptedObject::GetPatternType(long*) {
    return E_NOTIMPL;
}

STDMETHODIMP ScriptedObject::GetPatternName(BSTR*) {
    return E_NOTIMPL;
}

STDMETHODIMP ScriptedObject::SetPattern(long, BSTR) {
    return E_NOTIMPL;
}

STDMETHODIMP ScriptedObject::Update() {
    RETURN_IF_FAILED_EXPECTED(script.Begin(L"Update"));
    return updateResult;
}

STDMETHODIMP ScriptedObject::GetDisplayString(DISPID dispid, BSTR* text) {
    return AnswerGetDisplayString(script, Known(dispid), dispid, text);
}

STDMETHODIMP ScriptedObject::MapPropertyToPage(DISPID dispid, CLSID* page) {
    return AnswerMapPropertyToPage(script, Known(dispid), dispid, page);
}

DISPID STDMETHODCALLTYPE ScriptedObject::PropertyOfDialog(REFCLSID dialog) {
    for (const auto& [dispid, value] : m_values) {
        if (value->page == dialog) {
            return dispid;
        }
    }
    return DISPID_UNKNOWN;
}

STDMETHODIMP ScriptedObject::GetPredefinedStrings(DISPID dispid, CALPOLESTR* strings, CADWORD* cookies) {
    return AnswerGetPredefinedStrings(script, Known(dispid), dispid, strings, cookies);
}

STDMETHODIMP ScriptedObject::GetPredefinedValue(DISPID dispid, DWORD cookie, VARIANT* value) {
    return AnswerGetPredefinedValue(script, Known(dispid), dispid, cookie, value);
}

// The form with the object says in the journal which one it was told.
STDMETHODIMP ScriptedObject::GetElementValue(long dispid, unsigned key, VARIANT* value) {
    return AnswerGetElement(script, Known(dispid), L"IPropertyElementAccess.GetElementValue", AsText(dispid),
                            key, value);
}

STDMETHODIMP ScriptedObject::SetElementValue(long dispid, unsigned key, VARIANT value) {
    return AnswerSetElement(script, Known(dispid), L"IPropertyElementAccess.SetElementValue", AsText(dispid),
                            key, value);
}

STDMETHODIMP ScriptedObject::GetGroupSize(long dispid, unsigned* size) {
    return AnswerGetGroupSize(script, Known(dispid), AsText(dispid), size);
}

STDMETHODIMP ScriptedObject::GetGroupCount(long dispid, long* count) {
    return AnswerGetGroupCount(script, Known(dispid), AsText(dispid), count);
}

STDMETHODIMP ScriptedObject::GetElementValue(long dispid, IDispatch* object, unsigned key, VARIANT* value) {
    return AnswerGetElement(script, Known(dispid), L"IPropertyElementAccess2.GetElementValue",
                            JoinAsText(dispid, ScriptedObject::NameOf(object)), key, value);
}

STDMETHODIMP ScriptedObject::SetElementValue(long dispid, IDispatch* object, unsigned key, VARIANT value) {
    return AnswerSetElement(script, Known(dispid), L"IPropertyElementAccess2.SetElementValue",
                            JoinAsText(dispid, ScriptedObject::NameOf(object)), key, value);
}

STDMETHODIMP ScriptedObject::GetGroupSize(long dispid, IDispatch* object, unsigned* size) {
    return AnswerGetGroupSize(script, Known(dispid), JoinAsText(dispid, ScriptedObject::NameOf(object)),
                              size);
}

STDMETHODIMP ScriptedObject::GetGroupCount(long dispid, IDispatch* object, long* count) {
    return AnswerGetGroupCount(script, Known(dispid), JoinAsText(dispid, ScriptedObject::NameOf(object)),
                               count);
}

}  // namespace kvhost
