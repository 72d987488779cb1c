#pragma once

#include "families/CKvPeButtonEditBase.h"

struct SelectionEntry;

/// A row with one number, edited as text in the drawing's units. The host formats and parses; two objects are
/// alike when they print alike.
class CKvPeNumericBase : public CKvPeButtonEditBase {
public:
    using CKvPeButtonEditBase::CKvPeButtonEditBase;

    // CKvPeCtrlBase
    HRESULT GetPropertyValue(VARIANT* value, ValueType& type) override;
    HRESULT SetPropertyValue(VARIANT* value, ValueType type) override;
    HRESULT ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) override;

protected:
    /// The number as text; false, with an empty text, while it has none.
    virtual bool FormatNumber(const VARIANT& value, CString& text) const = 0;
    /// False for a text that is no number.
    virtual bool ParseNumber(const CString& text, VARIANT& value) const = 0;

    /// Learns from the first object the type in which the property stores its number. False when it can't be
    /// told; it then counts as VT_R8.
    bool ProbePropertyValueType();

    /// The property's automation type; 0 in rows that do not ask for it.
    unsigned short m_propertyVarType = VT_EMPTY;

private:
    [[nodiscard]] HRESULT SetPropertyText(const VARIANT& value, ValueType type);
    [[nodiscard]] HRESULT SetCopy(const VARIANT& value, ValueType type);
    [[nodiscard]] bool ProbeObject(const SelectionEntry& entry);
    [[nodiscard]] bool ProbeDynamicProperty(const SelectionEntry& entry);
    void TakeTypeOf(const VARIANT& value);
};
