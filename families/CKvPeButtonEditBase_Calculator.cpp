// The row's way to the host's calculator.
#include "families/CKvPeButtonEditBase.h"
#include "host_sdk/KvDbUnits.h"
#include "host_sdk/KvEdVariables.h"

namespace {

bool DrawingShowsFractions() {
    resbuf units{};
    return kvedGetVar(L"LUNITS", &units) == KVED_RTNORM && units.resval.rint == KVDB_FRACTIONAL_UNITS;
}

}  // namespace

int CKvPeButtonEditBase::GetCalculatorInput(CString& text) {
    text = m_text;
    double number = 0.0;
    // The calculator reads no fractions of the drawing's kind.
    if (DrawingShowsFractions() && kvdbDisToF(text, KVDB_FRACTIONAL_UNITS, &number) == KVED_RTNORM) {
        text.Format(L"%.15g", number);
    }
    return 1;
}

HRESULT CKvPeButtonEditBase::SetCalculatorPoint(const KvGePoint3d&) {
    return S_OK;
}

int CKvPeButtonEditBase::SetCalculatorResult(const KvCalculatorResult* result) {
    return result ? 1 : 0;
}

HRESULT CKvPeButtonEditBase::LaunchCalculator() {
    return S_OK;
}
