#include "numeric/CPropertyEditorTOLMNumeric.h"

#include "core/ClassCreators.h"
#include "families/CKvPeButtonEditTempl.h"
#include "families/CKvPeCalculatorTempl.h"
#include "families/CKvPeNumericEditorTempl.h"
#include "families/NumberText.h"
#include "host_sdk/KvDbUnits.h"

namespace {

int ParseByType(const CString& text, KvPeNumericType type, double& number) {
    switch (type) {
        case PE_TOLM_DISTANCE:
            return kvdbDisToF(text, KVDB_CURRENT_SETTING, &number);
        case PE_TOLM_ANGLE:
            return kvdbAngToF(text, KVDB_CURRENT_SETTING, &number);
        case PE_TOLM_NOUNITS:
            return kvdbDisToF(text, KVDB_DECIMAL_UNITS, &number);
        case PE_TOLM_RAW_ANGLE:
            return kvdbRawAngToF(text, KVDB_CURRENT_SETTING, &number);
        default:
            return KVED_RTERROR;
    }
}

}  // namespace

CPropertyEditorTOLMNumeric::CPropertyEditorTOLMNumeric(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeNumericBase(events, shell) {
    m_numericType = PE_TOLM_NOUNITS;
}

bool CPropertyEditorTOLMNumeric::FormatNumber(const VARIANT& value, CString& text) const {
    return NumberToTextByType(value, text, m_numericType);
}

bool CPropertyEditorTOLMNumeric::ParseNumber(const CString& text, VARIANT& value) const {
    double number = 0;
    if (ParseByType(text, m_numericType, number) != KVED_RTNORM) {
        return false;
    }
    ::VariantClear(&value);
    value.vt = VT_R8;
    value.dblVal = number;
    return true;
}

KVPE_DEFINE_CREATOR(
    CPropertyEditorTOLMNumeric,
    CKvPeNumericEditorTempl<CKvPeCalculatorTempl<CKvPeButtonEditTempl<CPropertyEditorTOLMNumeric>>>)
