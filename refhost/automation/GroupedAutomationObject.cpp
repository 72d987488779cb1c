#include "refhost/automation/GroupedAutomationObject.h"

#include <algorithm>

#include "framework/base/Hresult.h"
#include "refhost/automation/AutomationError.h"
#include "refhost/automation/PropertyState.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

const PropertyElements* ElementsOf(const PropertyDescription* property) {
    return property != nullptr ? property->elements : nullptr;
}

Tolm::ErrorStatus CheckKey(const PropertyElements& elements, const Object& object, unsigned key) {
    return key < elements.groupCount(object) * elements.groupSize ? Tolm::eOk : Tolm::eInvalidInput;
}

Tolm::ErrorStatus ReadElement(KvDbObjectId id, const PropertyElements& elements, unsigned key,
                              fw::Variant& value) {
    const ScopedOpen<Object> object(id);
    if (!object) {
        return object.Status();
    }
    const Tolm::ErrorStatus checked = CheckKey(elements, *object, key);
    return checked == Tolm::eOk ? elements.get(*object, key, value) : checked;
}

}  // namespace

std::span<const fw::InterfaceEntry> GroupedAutomationObject::Interfaces() {
    static constexpr auto interfaces =
        fw::JoinInterfaces(InterfacesOfGraphics<GroupedAutomationObject>(),
                           std::array{fw::Implements<GroupedAutomationObject, IPropertyElementAccess2>(),
                                      fw::Implements<GroupedAutomationObject, IPropertyElementAccess>()});
    return interfaces;
}

bool GroupedAutomationObject::IsNeededFor(const PropertyTable& table) {
    const auto rows = table.Rows();
    return std::any_of(rows.begin(), rows.end(),
                       [](const PropertyDescription& row) { return row.elements != nullptr; });
}

STDMETHODIMP GroupedAutomationObject::GetElementValue(long dispid, IDispatch*, unsigned key, VARIANT* value) {
    return GetElementValue(dispid, key, value);
}

STDMETHODIMP GroupedAutomationObject::SetElementValue(long dispid, IDispatch*, unsigned key, VARIANT value) {
    return SetElementValue(dispid, key, value);
}

STDMETHODIMP GroupedAutomationObject::GetGroupSize(long dispid, IDispatch*, unsigned* size) {
    return GetGroupSize(dispid, size);
}

STDMETHODIMP GroupedAutomationObject::GetGroupCount(long dispid, IDispatch*, long* count) {
    return GetGroupCount(dispid, count);
}

STDMETHODIMP GroupedAutomationObject::GetElementValue(long dispid, unsigned key, VARIANT* value) {
    RETURN_IF_NULL_POINTER(value);
    ::VariantInit(value);
    ServiceCall call(L"GetElementValue", Id(), dispid, key);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyElements* const elements = ElementsOf(PropertyAt(dispid));
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), elements == nullptr);
    fw::Variant read;
    const HRESULT result =
        AsErrorText(ReadElement(Id(), *elements, key, read), __uuidof(IPropertyElementAccess));
    if (SUCCEEDED(result)) {
        read.DetachTo(*value);
    }
    return call.ReturnsCode(result);
}

STDMETHODIMP GroupedAutomationObject::SetElementValue(long dispid, unsigned key, VARIANT value) {
    ServiceCall call(L"SetElementValue", Id(), dispid, key, value);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyDescription* const property = PropertyAt(dispid);
    const PropertyElements* const elements = ElementsOf(property);
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), elements == nullptr);
    fw::Variant given;
    RETURN_HR_IF(call.ReturnsCode(DISP_E_TYPEMISMATCH),
                 FAILED(given.CopyIndirectFrom(value)) || FAILED(given.ChangeType(elements->type)));
    const Tolm::ErrorStatus status = WritePlainValue(Id(), property->name, [&](Object& object) {
        const Tolm::ErrorStatus checked = CheckKey(*elements, object, key);
        return checked == Tolm::eOk ? elements->set(object, key, given) : checked;
    });
    return call.ReturnsCode(AsErrorText(status, __uuidof(IPropertyElementAccess)));
}

STDMETHODIMP GroupedAutomationObject::GetGroupSize(long dispid, unsigned* size) {
    RETURN_IF_NULL_POINTER(size);
    *size = 0;
    ServiceCall call(L"GetGroupSize", Id(), dispid);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyElements* const elements = ElementsOf(PropertyAt(dispid));
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), elements == nullptr);
    *size = elements->groupSize;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP GroupedAutomationObject::GetGroupCount(long dispid, long* count) {
    RETURN_IF_NULL_POINTER(count);
    *count = 0;
    ServiceCall call(L"GetGroupCount", Id(), dispid);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyElements* const elements = ElementsOf(PropertyAt(dispid));
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), elements == nullptr);
    const ScopedOpen<Object> object(Id());
    RETURN_HR_IF(call.ReturnsCode(AsErrorText(object.Status(), __uuidof(IPropertyElementAccess))), !object);
    *count = static_cast<long>(elements->groupCount(*object));
    return call.ReturnsCode(S_OK);
}

}  // namespace kvhost
