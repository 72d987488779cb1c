#include "refhost/automation/DynamicAttribute.h"

#include <algorithm>
#include <array>
#include <map>

#include "framework/base/Hresult.h"
#include "framework/com/CComObject.h"
#include "framework/com/Variant.h"
#include "host_sdk/IDatabaseObjectIdentity.h"
#include "refhost/automation/AutomationError.h"
#include "refhost/automation/IAutomationIdentity.h"
#include "refhost/automation/PropertyState.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

using Properties = std::map<std::wstring, DynamicAttribute*>;

Properties& LiveProperties() {
    static Properties properties;
    return properties;
}

// The sets of interfaces that attributes offer. The first entry is the identity.
class DynamicAttributeByObject : public DynamicAttribute {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{
            fw::Implements<DynamicAttributeByObject, IDynamicPropertyByObject>(),
            fw::Implements<DynamicAttributeByObject, IDynamicProperty>(),
            fw::Implements<DynamicAttributeByObject, IPropertyUnspecifiedSupport>(),
            fw::Implements<DynamicAttributeByObject, IPropertyExpressionSupport>(),
        };
        return interfaces;
    }
};

class DynamicAttributeWithDialog : public DynamicAttribute {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{
            fw::Implements<DynamicAttributeWithDialog, IDynamicPropertyByObject>(),
            fw::Implements<DynamicAttributeWithDialog, IDynamicProperty>(),
            fw::Implements<DynamicAttributeWithDialog, IDynamicPropertyDialog>(),
            fw::Implements<DynamicAttributeWithDialog, IPropertyUnspecifiedSupport>(),
            fw::Implements<DynamicAttributeWithDialog, IPropertyExpressionSupport>(),
        };
        return interfaces;
    }
};

class DynamicAttributeOfChoice : public DynamicAttribute {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{
            fw::Implements<DynamicAttributeOfChoice, IDynamicPropertyByObject>(),
            fw::Implements<DynamicAttributeOfChoice, IDynamicProperty>(),
            fw::Implements<DynamicAttributeOfChoice, IDynamicPropertyEnum>(),
            fw::Implements<DynamicAttributeOfChoice, IPropertyUnspecifiedSupport>(),
            fw::Implements<DynamicAttributeOfChoice, IPropertyExpressionSupport>(),
        };
        return interfaces;
    }
};

class DynamicAttributeById : public DynamicAttribute {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{
            fw::Implements<DynamicAttributeById, IDynamicProperty>(),
            fw::Implements<DynamicAttributeById, IPropertyUnspecifiedSupport>(),
            fw::Implements<DynamicAttributeById, IPropertyExpressionSupport>(),
        };
        return interfaces;
    }
};

template <class Class>
HRESULT Make(DynamicAttribute** result) {
    CComObject<Class>* made = nullptr;
    RETURN_IF_FAILED(CComObject<Class>::CreateInstance(nullptr, &made));
    *result = made;
    return S_OK;
}

HRESULT MakeOfKind(const DynamicAttributeKind& kind, DynamicAttribute** result) {
    if (kind.byIdOnly) {
        return Make<DynamicAttributeById>(result);
    }
    if (kind.HasChoice()) {
        return Make<DynamicAttributeOfChoice>(result);
    }
    return kind.HasDialog() ? Make<DynamicAttributeWithDialog>(result)
                            : Make<DynamicAttributeByObject>(result);
}

// Null when the object is no database object.
KvDbObjectId IdOf(IUnknown* object) {
    KvDbObjectId id;
    // The host's own objects are known without a call that would show in the journal.
    if (const auto own = fw::QueryFrom<IAutomationIdentity>(object)) {
        return own->DatabaseObject();
    }
    if (const auto identity = fw::QueryFrom<IDatabaseObjectIdentity>(object)) {
        // A failure leaves the null id, which the callers refuse.
        fw::Ignore(identity->GetObjectId(&id));
    }
    return id;
}

KvDbObjectId IdOf(const VARIANT& key) {
    return IdOf(key.vt == VT_UNKNOWN ? key.punkVal : nullptr);
}

}  // namespace

HRESULT DynamicAttribute::Get(const std::wstring& name, fw::ComPtr<IUnknown>& property) {
    const auto known = LiveProperties().find(name);
    if (known != LiveProperties().end()) {
        property = known->second->GetUnknown();
        return S_OK;
    }
    DynamicAttribute* made = nullptr;
    RETURN_IF_FAILED(MakeOfKind(KindOfAttribute(name), &made));
    made->Attach(name);
    property.Attach(made->GetUnknown());
    return S_OK;
}

void DynamicAttribute::Attach(const std::wstring& name) {
    m_name = name;
    m_kind = &KindOfAttribute(name);
    LiveProperties()[name] = this;
}

DynamicAttribute::~DynamicAttribute() {
    LiveProperties().erase(m_name);
}

STDMETHODIMP DynamicAttribute::IsPropertyReadOnly(BOOL* readOnly) {
    RETURN_IF_NULL_POINTER(readOnly);
    ServiceCall call(L"IsPropertyReadOnly", m_name);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *readOnly = m_kind->readOnly ? TRUE : FALSE;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP DynamicAttribute::GetCurrentValueType(VARTYPE* type) {
    RETURN_IF_NULL_POINTER(type);
    ServiceCall call(L"GetCurrentValueType", m_name);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *type = VT_BSTR;
    return call.ReturnsCode(S_OK);
}

HRESULT DynamicAttribute::Read(KvDbObjectId id, VARIANT* value) {
    RETURN_IF_NULL_POINTER(value);
    ::VariantInit(value);
    ServiceCall call(L"GetCurrentValueData", m_name, id);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    const ScopedOpen<Object> object(id);
    RETURN_HR_IF(call.ReturnsCode(ScodeOf(object.Status())), !object);
    const std::wstring* const text = object->CustomAttribute(m_name);
    RETURN_HR_IF(call.ReturnsCode(ScodeOf(Tolm::eKeyNotFound)), text == nullptr);
    ValueOf(*text).DetachTo(*value);
    return call.ReturnsCode(S_OK);
}

HRESULT DynamicAttribute::Write(KvDbObjectId id, const VARIANT& value) {
    ServiceCall call(L"SetCurrentValueData", m_name, id, value);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    fw::Variant given;
    RETURN_HR_IF(call.ReturnsCode(DISP_E_TYPEMISMATCH),
                 FAILED(given.CopyIndirectFrom(value)) || FAILED(given.ChangeType(m_kind->type)));
    std::wstring text;
    Tolm::ErrorStatus status = m_kind->readOnly ? Tolm::eNotAllowed : StoredText(given, text);
    if (status == Tolm::eOk) {
        status = WritePlainValue(id, StateName(), [&](Object& object) {
            return object.CustomAttribute(m_name) != nullptr ? object.SetCustomAttribute(m_name, text)
                                                             : Tolm::eKeyNotFound;
        });
    }
    return call.ReturnsCode(AsErrorText(status, __uuidof(IDynamicProperty)));
}

STDMETHODIMP DynamicAttribute::GetCurrentValueData(IUnknown* object, VARIANT* value) {
    return Read(IdOf(object), value);
}

STDMETHODIMP DynamicAttribute::SetCurrentValueData(IUnknown* object, VARIANT value) {
    return Write(IdOf(object), value);
}

STDMETHODIMP DynamicAttribute::GetCurrentValueData(KvDbObjectId object, VARIANT* value) {
    return Read(object, value);
}

STDMETHODIMP DynamicAttribute::SetCurrentValueData(KvDbObjectId object, VARIANT value) {
    return Write(object, value);
}

STDMETHODIMP DynamicAttribute::GetPropertyNameCount(long* count) {
    RETURN_IF_NULL_POINTER(count);
    *count = 0;
    ServiceCall call(L"GetPropertyNameCount", m_name);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *count = m_kind->HasTwoNames() ? 2 : 0;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP DynamicAttribute::GetPropertyName(long index, BSTR* name) {
    RETURN_IF_NULL_POINTER(name);
    *name = nullptr;
    ServiceCall call(L"GetPropertyName", m_name, index);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), !m_kind->HasTwoNames() || !HasValueAt(index));
    return call.ReturnsCode(fw::MakeBstr(m_kind->values[static_cast<std::size_t>(index)].name, name));
}

STDMETHODIMP DynamicAttribute::GetValueCount(long* count) {
    RETURN_IF_NULL_POINTER(count);
    *count = 0;
    ServiceCall call(L"GetValueCount", m_name);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *count = static_cast<long>(m_kind->values.size());
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP DynamicAttribute::GetValueName(long index, BSTR* name) {
    RETURN_IF_NULL_POINTER(name);
    *name = nullptr;
    ServiceCall call(L"GetValueName", m_name, index);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), !HasValueAt(index));
    return call.ReturnsCode(fw::MakeBstr(m_kind->values[static_cast<std::size_t>(index)].name, name));
}

STDMETHODIMP DynamicAttribute::GetValueData(long index, VARIANT* data) {
    RETURN_IF_NULL_POINTER(data);
    ::VariantInit(data);
    ServiceCall call(L"GetValueData", m_name, index);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), !HasValueAt(index));
    ValueOf(m_kind->values[static_cast<std::size_t>(index)].stored).DetachTo(*data);
    return call.ReturnsCode(S_OK);
}

bool DynamicAttribute::HasValueAt(long index) const {
    return index >= 0 && index < static_cast<long>(m_kind->values.size());
}

// Drawings from elsewhere may keep any text: what is none of the values is handed out as it stands.
fw::Variant DynamicAttribute::ValueOf(std::wstring_view stored) const {
    fw::Variant value = fw::Variant::FromString(stored);
    if (m_kind->HasTwoNames()) {
        for (const DynamicAttributeValue& known : m_kind->values) {
            if (stored == known.stored) {
                return fw::Variant::FromBool(&known == m_kind->values.data());
            }
        }
        return value;
    }
    fw::Ignore(value.ChangeType(m_kind->type));
    return value;
}

Tolm::ErrorStatus DynamicAttribute::StoredText(const fw::Variant& value, std::wstring& text) const {
    if (m_kind->HasTwoNames()) {
        text = m_kind->values[value.Get().boolVal != VARIANT_FALSE ? 0 : 1].stored;
        return Tolm::eOk;
    }
    fw::Variant asText = value;
    if (FAILED(asText.ChangeType(VT_BSTR))) {
        return Tolm::eInvalidInput;
    }
    text = asText.StringView();
    const auto values = m_kind->values;
    const bool isKnown =
        values.empty() || std::any_of(values.begin(), values.end(), [&](const DynamicAttributeValue& known) {
            return text == known.stored;
        });
    return isKnown ? Tolm::eOk : Tolm::eInvalidInput;
}

STDMETHODIMP DynamicAttribute::GetDialogProcedure(KvPropertyDialogProcedure* procedure) {
    RETURN_IF_NULL_POINTER(procedure);
    *procedure = nullptr;
    ServiceCall call(L"GetDialogProcedure", m_name);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *procedure = m_kind->dialogProcedure;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP DynamicAttribute::GetDialogMacro(BSTR* macro) {
    RETURN_IF_NULL_POINTER(macro);
    *macro = nullptr;
    ServiceCall call(L"GetDialogMacro", m_name);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    return call.ReturnsCode(m_kind->dialogMacro == nullptr ? S_OK : fw::MakeBstr(m_kind->dialogMacro, macro));
}

STDMETHODIMP DynamicAttribute::IsUnspecified(VARIANT key, VARIANT_BOOL* unspecified) {
    RETURN_IF_NULL_POINTER(unspecified);
    *unspecified = VARIANT_FALSE;
    const KvDbObjectId id = IdOf(key);
    ServiceCall call(L"IsUnspecified", m_name, id);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    return call.ReturnsCode(ReadUnspecified(id, StateName(), unspecified));
}

STDMETHODIMP DynamicAttribute::SetUnspecified(VARIANT key, VARIANT_BOOL unspecified) {
    const KvDbObjectId id = IdOf(key);
    ServiceCall call(L"SetUnspecified", m_name, id, unspecified);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), !m_kind->unspecified);
    return call.ReturnsCode(
        AsErrorText(WriteUnspecified(id, StateName(), unspecified), __uuidof(IPropertyUnspecifiedSupport)));
}

STDMETHODIMP DynamicAttribute::IsUnspecifiedAllowed(VARIANT key, VARIANT_BOOL* allowed) {
    RETURN_IF_NULL_POINTER(allowed);
    *allowed = VARIANT_FALSE;
    ServiceCall call(L"IsUnspecifiedAllowed", m_name, IdOf(key));
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *allowed = m_kind->unspecified ? VARIANT_TRUE : VARIANT_FALSE;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP DynamicAttribute::GetUnspecifiedText(VARIANT key, BSTR* text) {
    RETURN_IF_NULL_POINTER(text);
    *text = nullptr;
    ServiceCall call(L"GetUnspecifiedText", m_name, IdOf(key));
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    return call.ReturnsCode(fw::MakeBstr(L"unknown", text));
}

STDMETHODIMP DynamicAttribute::IsExpressionSupported(VARIANT key, VARIANT_BOOL* supported) {
    RETURN_IF_NULL_POINTER(supported);
    *supported = VARIANT_FALSE;
    ServiceCall call(L"IsExpressionSupported", m_name, IdOf(key));
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    *supported = m_kind->expression ? VARIANT_TRUE : VARIANT_FALSE;
    return call.ReturnsCode(S_OK);
}

STDMETHODIMP DynamicAttribute::GetExpression(VARIANT key, BSTR* expression) {
    RETURN_IF_NULL_POINTER(expression);
    *expression = nullptr;
    const KvDbObjectId id = IdOf(key);
    ServiceCall call(L"GetExpression", m_name, id);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), !m_kind->expression);
    return call.ReturnsCode(ReadExpression(id, StateName(), expression));
}

STDMETHODIMP DynamicAttribute::SetExpression(VARIANT key, wchar_t* expression) {
    RETURN_IF_NULL_POINTER(expression);
    const KvDbObjectId id = IdOf(key);
    ServiceCall call(L"SetExpression", m_name, id, expression);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), !m_kind->expression);
    const Tolm::ErrorStatus status =
        WriteExpression(id, StateName(), expression, [&](Object& object, const ExpressionValue& value) {
            return object.SetCustomAttribute(m_name, ExpressionText(value));
        });
    return call.ReturnsCode(AsErrorText(status, __uuidof(IPropertyExpressionSupport)));
}

}  // namespace kvhost
