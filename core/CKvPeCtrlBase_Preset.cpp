#include "core/CKvPeCtrlBase.h"
#include "core/CKvPeFamilyRole.h"
#include "framework/com/Variant.h"
#include "host_sdk/KvEdServices.h"

void CKvPeCtrlBase::PresetControlValue(VARIANT* value) {
    if (kvedIsLivePreviewStarted() || !kvedIsInCommandStack(KVED_COMMAND_WRITES_PROPERTIES)) {
        return;
    }
    if ((value->vt & VT_ARRAY) != 0 || m_familyRole == nullptr) {
        return;
    }
    CString text;
    switch (value->vt) {
        case VT_BSTR:
            m_familyRole->PresetText(CString(fw::Variant::ViewString(*value)));
            break;
        case VT_R4:
        case VT_R8:
            // Deliberate: commands read the low half of the bits as a whole number, not the floating value.
            text.Format(L"%d", static_cast<int>(value->lVal));
            m_familyRole->PresetText(text);
            break;
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_INT:
            // Deliberate: rows that take numbers have fewer than 32,768 entries; the rest of the number is
            // dropped.
            m_familyRole->PresetNumber(value->iVal);
            break;
        default:
            break;
    }
}
