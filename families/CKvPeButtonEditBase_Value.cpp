// The row's value as text.
#include "core/ModuleTexts.h"
#include "families/CKvPeButtonEditBase.h"
#include "families/NumberText.h"
#include "framework/com/Bstr.h"
#include "framework/com/Variant.h"

namespace {

bool IsNumber(VARTYPE type) {
    return type == VT_I2 || type == VT_I4 || type == VT_INT || type == VT_R4 || type == VT_R8;
}

}  // namespace

HRESULT CKvPeButtonEditBase::GetPropertyValue(VARIANT* value, ValueType& type) {
    RETURN_IF_NULL_POINTER(value);
    fw::Variant read;
    RETURN_IF_FAILED_EXPECTED(CKvPeEditBase::GetPropertyValue(read.Put(), type));
    CString text;
    RETURN_IF_FAILED_EXPECTED(FormatValueText(text, read.Get()));
    ::VariantClear(value);
    fw::Variant::FromString(text.View()).DetachTo(*value);
    return S_OK;
}

// What the property's own object says of its value. False when it says nothing.
bool CKvPeButtonEditBase::ReadDisplayString(CString& text, bool& hasObject) const {
    hasObject = false;
    if (EntryCount() == 0) {
        return false;
    }
    IUnknown* const asked = m_dynamicProperties[0] ? m_dynamicProperties[0] : m_objects[0];
    hasObject = asked != nullptr;
    const auto browsing = fw::QueryFrom<IPerPropertyBrowsing>(asked);
    fw::Bstr display;
    if (!browsing || browsing->GetDisplayString(m_dispids[0], display.Put()) != S_OK) {
        return false;
    }
    text = display.View();
    return true;
}

HRESULT CKvPeButtonEditBase::FormatValueText(CString& text, const VARIANT& value) {
    text.Empty();
    if (value.vt == VT_BSTR) {
        text = fw::Variant::ViewString(value);
        return S_OK;
    }
    bool hasObject = false;
    if (ReadDisplayString(text, hasObject)) {
        return S_OK;
    }
    if (IsNumber(value.vt)) {
        // No text while another document's database works: the row is empty until it is read again.
        static_cast<void>(m_numericType == PE_TOLM_NOUNITS ? NumberToTextByType(value, text, m_numericType)
                                                           : VariantToHostText(value, text));
    }
    return hasObject ? S_OK : E_FAIL;
}

HRESULT CKvPeButtonEditBase::ReadRowText() {
    fw::Variant value;
    ValueType type = ValueType_Specific;
    RETURN_IF_FAILED_EXPECTED(GetPropertyValue(value.Put(), type));
    if (!value.Is(VT_BSTR)) {
        return FormatValueText(m_text, value.Get());
    }
    switch (type) {
        case ValueType_Varies:
            m_text = VariesText();
            break;
        case ValueType_Unspecified:
            m_text = m_unspecifiedText;
            break;
        default:
            m_text = value.StringView();
            break;
    }
    return S_OK;
}
