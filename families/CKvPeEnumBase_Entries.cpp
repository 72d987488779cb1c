// Where the entries of an enumeration come from.
#include "families/CKvPeEnumBase.h"
#include "families/KvPeEnumTypeInfo.h"
#include "families/PredefinedStrings.h"

HRESULT CKvPeEnumBase::BuildEntryList(ValueType valueType) {
    // Gathered beside: what is asked may lead to a refresh of the row, which gathers them as well.
    Entries entries;
    IUnknown* const property = FirstDynamicProperty();
    const HRESULT gathered = property ? GatherFromProperty(property, entries) : GatherFromObject(entries);
    m_entries.clear();
    m_nUnspecifiedItem = -1;
    m_nVariesItem = -1;
    RETURN_IF_FAILED_EXPECTED(gathered);  // a part of the entries would pass for all
    m_entries = std::move(entries);
    SyncUnspecifiedItem();
    SyncVariesItem(valueType);
    return S_OK;
}

HRESULT CKvPeEnumBase::GatherFromProperty(IUnknown* property, Entries& entries) {
    if (!fw::IsSameObject(m_pEnumProperty.Get(), property)) {
        m_pEnumProperty = fw::QueryFrom<IDynamicPropertyEnum>(property);
    }
    RETURN_HR_IF(E_FAIL, !m_pEnumProperty);
    // Held by itself: the answers may lead to a refresh of the row.
    const fw::ComPtr<IDynamicPropertyEnum> values = m_pEnumProperty;
    long count = 0;
    RETURN_HR_IF(E_FAIL, FAILED(values->GetValueCount(&count)));
    for (long index = 0; index < count; ++index) {
        fw::Bstr name;
        fw::Variant data;
        if (SUCCEEDED(values->GetValueName(index, name.Put())) &&
            SUCCEEDED(values->GetValueData(index, data.Put()))) {
            Append(entries, data.Get(), name.View());
        }
    }
    return S_OK;
}

HRESULT CKvPeEnumBase::GatherFromObject(Entries& entries) {
    const fw::ComPtr<IDispatch> object = FirstObject();
    RETURN_HR_IF(E_FAIL, !object);
    const DISPID dispid = m_dispids[0];
    if (!fw::IsSameObject(m_pBrowsing.Get(), object.Get())) {
        m_pBrowsing = object.As<IPerPropertyBrowsing>();
    }
    if (m_pBrowsing) {
        return GatherFromBrowsing(object.Get(), dispid, entries);
    }
    GatherFromTypeLibrary(object.Get(), dispid, entries);
    return S_OK;
}

HRESULT CKvPeEnumBase::GatherFromBrowsing(IDispatch* object, DISPID dispid, Entries& entries) {
    const fw::ComPtr<IPerPropertyBrowsing> browsing = m_pBrowsing;
    PredefinedStrings strings;
    RETURN_HR_IF(E_FAIL, FAILED(strings.Read(*browsing.Get(), dispid)));
    for (ULONG index = 0; index < strings.Count(); ++index) {
        fw::Variant value;
        const HRESULT told = browsing->GetPredefinedValue(dispid, strings.Cookie(index), value.Put());
        if (told == E_NOTIMPL) {
            const KvPeEnumTypeInfo& type = TypeEnum(object, dispid);
            value = index < static_cast<ULONG>(type.count) ? type.values[index] : fw::Variant();
        } else {
            RETURN_IF_FAILED_EXPECTED(told);
        }
        Append(entries, value.Get(), strings.Text(index));
    }
    return S_OK;
}

void CKvPeEnumBase::GatherFromTypeLibrary(IDispatch* object, DISPID dispid, Entries& entries) {
    const KvPeEnumTypeInfo& type = TypeEnum(object, dispid);
    for (std::size_t index = 0; index < type.values.size(); ++index) {
        Append(entries, type.values[index].Get(), type.names[index].View());
    }
}

const KvPeEnumTypeInfo& CKvPeEnumBase::TypeEnum(IDispatch* object, DISPID dispid) {
    if (!m_pTypeEnum) {
        m_pTypeEnum = std::make_unique<KvPeEnumTypeInfo>(object, dispid);
    }
    return *m_pTypeEnum;
}

void CKvPeEnumBase::Append(Entries& entries, const VARIANT& value, std::wstring_view name) {
    KvPeEnumEntry entry;
    fw::Ignore(entry.value.CopyFrom(value));  // a value that can't be copied matches none
    entry.name = fw::Bstr(name);
    entries.push_back(std::move(entry));
}

IUnknown* CKvPeEnumBase::FirstDynamicProperty() const {
    return EntryCount() > 0 ? m_dynamicProperties[0] : nullptr;
}

IDispatch* CKvPeEnumBase::FirstObject() const {
    return EntryCount() > 0 ? m_objects[0] : nullptr;
}

IUnknown* CKvPeEnumBase::FirstAsked() const {
    IUnknown* const property = FirstDynamicProperty();
    return property ? property : FirstObject();
}
