#include "families/CKvPeEnumBase.h"

#include <algorithm>
#include <iterator>

#include "core/ModuleTexts.h"
#include "families/KvPeEnumTypeInfo.h"
#include "host_sdk/KvEdServices.h"

CKvPeEnumBase::CKvPeEnumBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeComboBase(events, shell) {
}

CKvPeEnumBase::~CKvPeEnumBase() = default;

HRESULT CKvPeEnumBase::FillList() {
    RETURN_HR_IF(E_FAIL, !HasList());
    m_pList->ResetContent();
    int index = 0;
    for (const KvPeEnumEntry& entry : m_entries) {
        m_pList->AddString(entry.name.Text());
        // Deliberate: the number alone counts, whatever the type, so that a host may list the two itself.
        const long number = entry.value.Get().lVal;
        if (number == KVPE_ENUM_VARIES) {
            m_nVariesItem = index;
        } else if (number == KVPE_ENUM_UNSPECIFIED) {
            m_nUnspecifiedItem = index;
        }
        ++index;
    }
    m_pList->SetCurSel(m_nCurItem);
    m_pList->Invalidate();
    m_pList->UpdateWindow();
    return S_OK;
}

HRESULT CKvPeEnumBase::SetSelectedItem(int index) {
    const KvPeEnumEntry* const entry = EntryAt(index);
    RETURN_HR_IF(E_FAIL, !entry);
    // A copy: the palette may refresh the row in the middle of the write, which gathers the entries anew.
    fw::Variant value;
    RETURN_IF_FAILED_EXPECTED(value.CopyFrom(entry->value.Get()));
    const ValueType type =
        value.LongOr(0) == KVPE_ENUM_UNSPECIFIED ? ValueType_Unspecified : ValueType_Specific;
    const HRESULT written = SetPropertyValue(value.Address(), type);
    // The open list keeps its rows under the mouse of a user who looks at previews.
    if (SUCCEEDED(written) && !kvedIsLivePreviewRecording()) {
        fw::Ignore(BuildEntryList(type));  // the value is written, whatever can be listed now
        fw::Ignore(FillList());            // likewise
    }
    return written;
}

CString CKvPeEnumBase::GetItemText(int index) {
    if (HasList()) {
        return CKvPeComboBase::GetItemText(index);
    }
    const KvPeEnumEntry* const entry = EntryAt(index);
    return entry ? CString(entry->name.View()) : CString();
}

int CKvPeEnumBase::GetCurrentItem() {
    fw::Variant value;
    ValueType type = ValueType_Specific;
    if (FAILED(GetPropertyValue(value.Address(), type))) {
        return -1;
    }
    const HRESULT prepared = PrepareEntries(type);
    if (FAILED(prepared)) {
        // Deliberate: a refusal counts as an index below -1, so that the row shows no text at all.
        return E_FAIL;
    }
    if (prepared == S_OK) {
        fw::Ignore(FillList());  // only where there is a window
    }
    switch (type) {
        case ValueType_Specific:
            return EntryOfValue(value.Get());
        case ValueType_Unspecified:
            return m_nUnspecifiedItem;
        case ValueType_Varies:
            return m_nVariesItem;
        default:
            return -1;
    }
}

// S_FALSE when the entries are those of before.
HRESULT CKvPeEnumBase::PrepareEntries(ValueType valueType) {
    if (m_entries.empty() || !m_pTypeEnum) {
        return BuildEntryList(valueType);
    }
    return SyncUnspecifiedItem() || SyncVariesItem(valueType) ? S_OK : S_FALSE;
}

bool CKvPeEnumBase::SyncUnspecifiedItem() {
    return SyncPseudoItem(m_allowUnspecified, KVPE_ENUM_UNSPECIFIED, GetUnspecifiedString(),
                          m_nUnspecifiedItem, m_nVariesItem);
}

bool CKvPeEnumBase::SyncVariesItem(ValueType valueType) {
    return SyncPseudoItem(valueType == ValueType_Varies, KVPE_ENUM_VARIES, VariesText(), m_nVariesItem,
                          m_nUnspecifiedItem);
}

bool CKvPeEnumBase::SyncPseudoItem(bool wanted, long sentinel, const CString& text, int& index, int& other) {
    if (wanted && index < 0) {
        Append(m_entries, fw::Variant::FromLong(sentinel).Get(), text.View());
        index = static_cast<int>(m_entries.size()) - 1;
        return true;
    }
    // Deliberate: at index 0 the entry stands alone and stays, so that the list does not become empty.
    if (wanted || index <= 0 || index >= static_cast<int>(m_entries.size())) {
        return false;
    }
    m_entries.erase(std::next(m_entries.begin(), index));
    if (other > index) {
        --other;
    }
    index = -1;
    return true;
}

const KvPeEnumEntry* CKvPeEnumBase::EntryAt(int index) const {
    const bool isEntry = index >= 0 && index < static_cast<int>(m_entries.size());
    return isEntry ? &*std::next(m_entries.begin(), index) : nullptr;
}

int CKvPeEnumBase::EntryOfValue(const VARIANT& value) const {
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const KvPeEnumEntry& entry) {
        return IsValueOfEntry(entry.value.Get(), value);
    });
    return found == m_entries.end() ? -1 : static_cast<int>(std::distance(m_entries.begin(), found));
}
