#pragma once

#include "families/CKvPeContainerBase.h"
#include "host_sdk/KvDbObjectId.h"

class KvDbSymbolTableRecord;

/// A list row over a symbol table of the drawing, in the order of the records' names. Derived rows name the
/// table and make an entry of a record.
class KVPEX_API CKvPeSymbolTableBase : public CKvPeContainerBase {
public:
    CKvPeSymbolTableBase(CIPropEditUIEvents* events, CKvPeBasePrivate* shell);
    ~CKvPeSymbolTableBase() override;

    // CKvPeComboBase
    /// Keeps the list while it is marked as filled. E_FAIL when the table can't be read; a record that can't
    /// be read is left out.
    HRESULT FillList() override;

    /// Adds the entry of an open record, or none: which records to show is decided here.
    [[nodiscard]] virtual HRESULT AddRecordItem(KvDbSymbolTableRecord* record);
    /// Computes what AddRecordItem needs; a failure leaves the list as it is.
    [[nodiscard]] virtual HRESULT PrepareFill();

    // The slots end here.

protected:
    KvDbObjectId m_tableId;
};
