#include <vector>

#include "framework/base/Hresult.h"
#include "refhost/automation/AutomationObject.h"
#include "refhost/automation/CountedArrays.h"
#include "refhost/automation/Hyperlinks.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

bool IsValueOf(const EnumerationEntry& entry, const fw::Variant& value) {
    return value.Is(VT_BOOL) ? (entry.value != 0) == (value.Get().boolVal != VARIANT_FALSE)
                             : value.Is(VT_I4) && entry.value == value.LongOr(0);
}

}  // namespace

STDMETHODIMP AutomationObject::GetDisplayString(DISPID dispid, BSTR* text) {
    RETURN_IF_NULL_POINTER(text);
    *text = nullptr;
    ServiceCall call(L"GetDisplayString", Id(), dispid);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyDescription* const property = m_table->Find(dispid);
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), property == nullptr);
    RETURN_HR_IF(call.ReturnsCode(E_NOTIMPL), property->enumeration == nullptr);
    fw::Variant value;
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), Read(*property, value) != Tolm::eOk);
    for (const EnumerationEntry& entry : property->enumeration->entries) {
        if (IsValueOf(entry, value)) {
            return call.ReturnsCode(fw::MakeBstr(entry.displayText, text));
        }
    }
    return call.ReturnsCode(E_FAIL);
}

STDMETHODIMP AutomationObject::MapPropertyToPage(DISPID dispid, CLSID* page) {
    RETURN_IF_NULL_POINTER(page);
    *page = CLSID_NULL;
    ServiceCall call(L"MapPropertyToPage", Id(), dispid);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyDescription* const property = m_table->Find(dispid);
    RETURN_HR_IF(call.ReturnsCode(PERPROP_E_NOPAGEAVAILABLE),
                 property == nullptr || property->dialog == nullptr);
    *page = *property->dialog;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP AutomationObject::GetHyperlinks(IKvHyperlinkCollection** hyperlinks) {
    RETURN_IF_NULL_POINTER(hyperlinks);
    *hyperlinks = nullptr;
    ServiceCall call(L"GetHyperlinks", Id());
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyDescription* const property = m_table->FindByName(L"Hyperlink");
    fw::Variant text;
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), property != nullptr && Read(*property, text) != Tolm::eOk);
    return call.ReturnsCode(MakeHyperlinks(std::wstring(text.StringView()), hyperlinks));
}

DISPID STDMETHODCALLTYPE AutomationObject::PropertyOfDialog(REFCLSID dialog) {
    for (const PropertyDescription& property : m_table->Rows()) {
        if (property.dialog != nullptr && *property.dialog == dialog) {
            return property.dispid;
        }
    }
    return DISPID_UNKNOWN;
}

STDMETHODIMP AutomationObject::GetPredefinedStrings(DISPID dispid, CALPOLESTR* strings, CADWORD* cookies) {
    RETURN_IF_NULL_POINTER(strings);
    RETURN_IF_NULL_POINTER(cookies);
    *strings = {};
    *cookies = {};
    ServiceCall call(L"GetPredefinedStrings", Id(), dispid);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyDescription* const property = m_table->Find(dispid);
    RETURN_HR_IF(call.ReturnsCode(E_NOTIMPL), property == nullptr || property->enumeration == nullptr);
    std::vector<std::wstring> texts;
    for (const EnumerationEntry& entry : property->enumeration->entries) {
        texts.emplace_back(entry.displayText);
    }
    return call.ReturnsCode(MakeCountedArrays(texts, strings, cookies));
}

STDMETHODIMP AutomationObject::GetPredefinedValue(DISPID dispid, DWORD cookie, VARIANT* value) {
    RETURN_IF_NULL_POINTER(value);
    ::VariantInit(value);
    ServiceCall call(L"GetPredefinedValue", Id(), dispid, cookie);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const PropertyDescription* const property = m_table->Find(dispid);
    RETURN_HR_IF(call.ReturnsCode(E_NOTIMPL), property == nullptr || property->enumeration == nullptr ||
                                                  property->Has(PropertyValuesOfType));
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), cookie >= property->enumeration->entries.size());
    const long number = property->enumeration->entries[cookie].value;
    fw::Variant made =
        property->type == VT_BOOL ? fw::Variant::FromBool(number != 0) : fw::Variant::FromLong(number);
    made.DetachTo(*value);
    return call.ReturnsCode(S_OK);
}

}  // namespace kvhost
