#include "families/CKvPeSymbolTableBase.h"

#include <list>
#include <memory>

#include "host_sdk/KvDbObjectPointer.h"
#include "host_sdk/KvDbSymbolTable.h"
#include "host_sdk/KvDbSymbolTableRecord.h"
#include "host_sdk/KvString.h"

namespace {

struct NamedRecord {
    KvString name;
    KvDbObjectId id;
};

/// False, with an empty name, for a record that can't tell it.
bool ReadName(const KvDbSymbolTableRecord& record, KvString& name) {
    wchar_t* text = nullptr;
    const Tolm::ErrorStatus status = record.getName(text);
    const std::unique_ptr<wchar_t[]> owned(text);
    name = status == Tolm::eOk ? text : L"";
    return status == Tolm::eOk;
}

std::list<NamedRecord> NamesOf(const KvDbSymbolTable& table) {
    std::list<NamedRecord> records;
    KvDbSymbolTableIterator* made = nullptr;
    if (table.newIterator(made, true, true) != Tolm::eOk) {
        return records;
    }
    const std::unique_ptr<KvDbSymbolTableIterator> iterator(made);
    for (; !iterator->done(); iterator->step(true, true)) {
        NamedRecord named;
        if (iterator->getRecordId(named.id) != Tolm::eOk) {
            continue;
        }
        const KvDbObjectPointer<KvDbSymbolTableRecord> record(named.id);
        if (record && ReadName(*record.object(), named.name)) {
            records.push_back(std::move(named));
        }
    }
    return records;
}

}  // namespace

CKvPeSymbolTableBase::CKvPeSymbolTableBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeContainerBase(events, shell) {
}

CKvPeSymbolTableBase::~CKvPeSymbolTableBase() = default;

HRESULT CKvPeSymbolTableBase::FillList() {
    RETURN_HR_IF(E_FAIL, !m_tableId.isValid() || !HasContainerList());
    RETURN_HR_IF(S_OK, m_pComboList->m_bFilled);
    RETURN_HR_IF(E_FAIL, FAILED(PrepareFill()));
    m_pComboList->m_bFilled = true;
    m_pComboList->ResetContent();

    const KvDbObjectPointer<KvDbSymbolTable> table(m_tableId);
    RETURN_HR_IF(E_FAIL, !table);
    std::list<NamedRecord> records = NamesOf(*table.object());
    records.sort(
        [](const NamedRecord& left, const NamedRecord& right) { return left.name.compare(right.name) < 0; });
    // Deliberate: each record is opened a second time. The entries come in the order of the names, also to a
    // window that does not sort, and no record is held open meanwhile.
    for (const NamedRecord& named : records) {
        if (const KvDbObjectPointer<KvDbSymbolTableRecord> record(named.id); record) {
            fw::Ignore(AddRecordItem(record.object()));  // a record without entry only lacks in the list
        }
    }
    return S_OK;
}

HRESULT CKvPeSymbolTableBase::AddRecordItem(KvDbSymbolTableRecord* record) {
    RETURN_HR_IF(E_FAIL, record == nullptr || !HasContainerList());
    auto item = std::make_unique<COwnerDrawItem>();
    RETURN_HR_IF(E_FAIL, !ReadName(*record, item->name));
    return m_pComboList->AddItem(std::move(item)) < 0 ? E_FAIL : S_OK;
}

HRESULT CKvPeSymbolTableBase::PrepareFill() {
    return S_OK;
}
