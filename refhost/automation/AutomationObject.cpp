#include "refhost/automation/AutomationObject.h"

#include "framework/base/Hresult.h"
#include "refhost/automation/AutomationCache.h"
#include "refhost/automation/AutomationError.h"
#include "refhost/automation/PropertyState.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/automation/Redraw.h"
#include "refhost/db/Database.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

std::span<const fw::InterfaceEntry> AutomationObject::Interfaces() {
    static constexpr auto interfaces = InterfacesOfObjects<AutomationObject>();
    return interfaces;
}

AutomationObject::~AutomationObject() {
    if (!m_id.isNull()) {
        AutomationCache::Instance().Remove(m_id);
    }
}

void AutomationObject::Attach(KvDbObjectId id, const PropertyTable& table) {
    m_id = id;
    m_table = &table;
    AutomationCache::Instance().Add(id, this);
}

std::wstring AutomationObject::JournalName() const {
    return AsText(m_id);
}

Tolm::ErrorStatus AutomationObject::Read(const PropertyDescription& property, fw::Variant& value) {
    const ScopedOpen<Object> object(m_id);
    return object ? property.get(*object, value) : object.Status();
}

Tolm::ErrorStatus AutomationObject::Write(const PropertyDescription& property, const fw::Variant& value) {
    return WritePlainValue(m_id, property.name, [&](Object& object) { return property.set(object, value); });
}

const PropertyDescription* AutomationObject::PropertyAt(DISPID dispid) const {
    return m_table->Find(dispid);
}

const PropertyDescription* AutomationObject::PropertyOf(const VARIANT& key) const {
    return key.vt == VT_I4 ? m_table->Find(key.lVal) : nullptr;
}

STDMETHODIMP AutomationObject::GetObjectId(KvDbObjectId* id) {
    RETURN_IF_NULL_POINTER(id);
    *id = {};
    ServiceCall call(L"GetObjectId", Id());
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails() || m_id.isNull());
    *id = m_id;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP AutomationObject::GetClassId(CLSID* classId) {
    RETURN_IF_NULL_POINTER(classId);
    *classId = {};
    ServiceCall call(L"GetClassId", Id());
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *classId = m_table->ClassId();
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP AutomationObject::Editable(long dispid, BOOL* editable) {
    RETURN_IF_NULL_POINTER(editable);
    ServiceCall call(L"Editable", Id(), dispid);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyDescription* const property = m_table->Find(dispid);
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr);
    const Tolm::ErrorStatus status = Database::CanWrite(m_id);
    // An object that can't be asked at all is the database's own complaint, which it makes by an exception.
    if (status != Tolm::eOk && status != Tolm::eOnLockedLayer && status != Tolm::eNotAllowed) {
        throw Tolm::ErrorStatus(status);
    }
    *editable = status == Tolm::eOk && !property->Has(PropertyReadOnly) ? TRUE : FALSE;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP AutomationObject::PropertyShown(long dispid, BOOL* shown) {
    RETURN_IF_NULL_POINTER(shown);
    ServiceCall call(L"PropertyShown", Id(), dispid);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *shown = m_table->Find(dispid) != nullptr ? TRUE : FALSE;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP AutomationObject::IsUnspecified(VARIANT key, VARIANT_BOOL* unspecified) {
    RETURN_IF_NULL_POINTER(unspecified);
    *unspecified = VARIANT_FALSE;
    ServiceCall call(L"IsUnspecified", Id(), key.lVal);
    const PropertyDescription* const property = PropertyOf(key);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr);
    return call.ReturnsCode(ReadUnspecified(m_id, property->name, unspecified));
}

STDMETHODIMP AutomationObject::SetUnspecified(VARIANT key, VARIANT_BOOL unspecified) {
    ServiceCall call(L"SetUnspecified", Id(), key.lVal, unspecified);
    const PropertyDescription* const property = PropertyOf(key);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr || !property->Has(PropertyUnspecified));
    return call.ReturnsCode(AsErrorText(WriteUnspecified(m_id, property->name, unspecified),
                                        __uuidof(IPropertyUnspecifiedSupport)));
}

STDMETHODIMP AutomationObject::IsUnspecifiedAllowed(VARIANT key, VARIANT_BOOL* allowed) {
    RETURN_IF_NULL_POINTER(allowed);
    *allowed = VARIANT_FALSE;
    ServiceCall call(L"IsUnspecifiedAllowed", Id(), key.lVal);
    const PropertyDescription* const property = PropertyOf(key);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr);
    *allowed = property->Has(PropertyUnspecified) ? VARIANT_TRUE : VARIANT_FALSE;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP AutomationObject::GetUnspecifiedText(VARIANT key, BSTR* text) {
    RETURN_IF_NULL_POINTER(text);
    *text = nullptr;
    ServiceCall call(L"GetUnspecifiedText", Id(), key.lVal);
    const PropertyDescription* const property = PropertyOf(key);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr);
    RETURN_HR_IF(call.ReturnsCode(E_NOTIMPL), property->unspecifiedText == nullptr);
    return call.ReturnsCode(fw::MakeBstr(property->unspecifiedText, text));
}

STDMETHODIMP AutomationObject::IsExpressionSupported(VARIANT key, VARIANT_BOOL* supported) {
    RETURN_IF_NULL_POINTER(supported);
    *supported = VARIANT_FALSE;
    ServiceCall call(L"IsExpressionSupported", Id(), key.lVal);
    const PropertyDescription* const property = PropertyOf(key);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr);
    *supported = property->Has(PropertyExpression) ? VARIANT_TRUE : VARIANT_FALSE;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP AutomationObject::GetExpression(VARIANT key, BSTR* expression) {
    RETURN_IF_NULL_POINTER(expression);
    *expression = nullptr;
    ServiceCall call(L"GetExpression", Id(), key.lVal);
    const PropertyDescription* const property = PropertyOf(key);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr || !property->Has(PropertyExpression));
    return call.ReturnsCode(ReadExpression(m_id, property->name, expression));
}

STDMETHODIMP AutomationObject::SetExpression(VARIANT key, wchar_t* expression) {
    RETURN_IF_NULL_POINTER(expression);
    ServiceCall call(L"SetExpression", Id(), key.lVal, expression);
    const PropertyDescription* const property = PropertyOf(key);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr || !property->Has(PropertyExpression));
    const Tolm::ErrorStatus status =
        WriteExpression(m_id, property->name, expression, [&](Object& object, const ExpressionValue& value) {
            return SetFromExpression(object, *property, value);
        });
    return call.ReturnsCode(AsErrorText(status, __uuidof(IPropertyExpressionSupport)));
}

std::span<const fw::InterfaceEntry> GraphicalAutomationObject::Interfaces() {
    static constexpr auto interfaces = InterfacesOfGraphics<GraphicalAutomationObject>();
    return interfaces;
}

STDMETHODIMP GraphicalAutomationObject::GetPatternType(long*) {
    return E_NOTIMPL;
}

STDMETHODIMP GraphicalAutomationObject::GetPatternName(BSTR*) {
    return E_NOTIMPL;
}

STDMETHODIMP GraphicalAutomationObject::SetPattern(long, BSTR) {
    return E_NOTIMPL;
}

STDMETHODIMP GraphicalAutomationObject::Update() {
    ServiceCall call(L"Update", Id());
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    NotifyRedrawn(Id());
    return call.ReturnsCode(S_OK);
}

}  // namespace kvhost
