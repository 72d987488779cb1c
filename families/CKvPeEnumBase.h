#pragma once

#include <list>
#include <memory>

#include "families/CKvPeComboBase.h"
#include "families/KvPeEnumEntry.h"
#include "host_sdk/IDynamicPropertyEnum.h"

class KvPeEnumTypeInfo;

/// A list row over a closed set of values, which the property's object, its type library or its dynamic
/// property names.
class KVPEX_API CKvPeEnumBase : public CKvPeComboBase {
public:
    CKvPeEnumBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);
    ~CKvPeEnumBase() override;

    // CKvPeComboBase
    /// E_FAIL without the window.
    HRESULT FillList() override;
    HRESULT SetSelectedItem(int index) override;
    CString GetItemText(int index) override;
    /// E_FAIL, an index below -1, when the entries could not be gathered.
    int GetCurrentItem() override;

    /// Gathers the entries anew. `valueType` is that of the value just read or written: the varies entry is
    /// there for ValueType_Varies alone. E_FAIL when nobody can be asked or the answer is a refusal; an
    /// object that names no values is none.
    [[nodiscard]] virtual HRESULT BuildEntryList(ValueType valueType);

protected:
    // The slots end here.

    /// The first entry's dynamic property, else its object; null without either.
    [[nodiscard]] IUnknown* FirstAsked() const;
    [[nodiscard]] IUnknown* FirstDynamicProperty() const;
    [[nodiscard]] IDispatch* FirstObject() const;

    fw::ComPtr<IPerPropertyBrowsing> m_pBrowsing;
    fw::ComPtr<IDynamicPropertyEnum> m_pEnumProperty;
    std::unique_ptr<KvPeEnumTypeInfo> m_pTypeEnum;
    std::list<KvPeEnumEntry> m_entries;
    int m_nUnspecifiedItem = -1;
    int m_nVariesItem = -1;

private:
    using Entries = std::list<KvPeEnumEntry>;

    // Where entries come from
    [[nodiscard]] HRESULT GatherFromProperty(IUnknown* property, Entries& entries);
    [[nodiscard]] HRESULT GatherFromObject(Entries& entries);
    [[nodiscard]] HRESULT GatherFromBrowsing(IDispatch* object, DISPID dispid, Entries& entries);
    void GatherFromTypeLibrary(IDispatch* object, DISPID dispid, Entries& entries);
    const KvPeEnumTypeInfo& TypeEnum(IDispatch* object, DISPID dispid);
    static void Append(Entries& entries, const VARIANT& value, std::wstring_view name);

    // Both are true when the list has changed.
    bool SyncUnspecifiedItem();
    bool SyncVariesItem(ValueType valueType);
    bool SyncPseudoItem(bool wanted, long sentinel, const CString& text, int& index, int& other);

    [[nodiscard]] HRESULT PrepareEntries(ValueType valueType);
    [[nodiscard]] const KvPeEnumEntry* EntryAt(int index) const;
    [[nodiscard]] int EntryOfValue(const VARIANT& value) const;
};
