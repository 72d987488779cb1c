// The calculator of number rows: the host's dialog, started with the row's text, gives the text back.
#include <cstddef>

#include "core/CTemporaryResourceOverride.h"
#include "families/CKvPeButtonEditBase.h"
#include "families/CalculatorLibraries.h"
#include "framework/com/Guarded.h"
#include "host_sdk/KvDbUnits.h"
#include "host_sdk/KvEdVariables.h"
#include "resources/Ids.h"

namespace {

constexpr wchar_t c_inchMark = L'"';
constexpr wchar_t c_footMark = L'\'';

bool HasFractionalUnits() {
    resbuf units{};
    return kvedGetVar(L"LUNITS", &units) == KVED_RTNORM && units.restype == KVED_RTSHORT &&
           units.resval.rint == KVDB_FRACTIONAL_UNITS;
}

// The calculator reads no fractions behind whole numbers.
void TakeFractionsOut(CString& text) {
    double number = 0;
    if (HasFractionalUnits() && kvdbDisToF(text, KVDB_FRACTIONAL_UNITS, &number) == KVED_RTNORM) {
        text.Format(L"%.15g", number);
    }
}

// The calculator reads no inches without feet before them.
void PutFeetBeforeInches(CString& text) {
    if (text.Find(c_inchMark) < 0 || text.Find(c_footMark) >= 0) {
        return;
    }
    const bool isNegative = text.Left(1) == L"-";
    text = isNegative ? L"-0' " + text.Mid(1) : L"0' " + text;
}

CString CalculatorCaption() {
    const CTemporaryResourceOverride resources;
    CString caption;
    caption.LoadString(IDS_CALCULATOR_CAPTION);
    return caption;
}

/// Place for a record whose unit is constructed by the host's library.
class CalculatorRecord {
public:
    /// False when the library is missing: there is no record then.
    [[nodiscard]] bool Construct() {
        Get().kind = KVCALC_NEITHER;
        return ConstructCalculatorUnit(&Get().unit);
    }
    [[nodiscard]] KvCalculatorResult& Get() { return *reinterpret_cast<KvCalculatorResult*>(m_place); }

private:
    alignas(KvCalculatorResult) std::byte m_place[sizeof(KvCalculatorResult)] = {};
};

}  // namespace

int CKvPeButtonEditBase::GetCalculatorInput(CString& text) {
    text = m_text;
    TakeFractionsOut(text);
    return 1;
}

HRESULT CKvPeButtonEditBase::SetCalculatorPoint(const KvGePoint3d&) {
    return S_OK;
}

int CKvPeButtonEditBase::SetCalculatorResult(const KvCalculatorResult* result) {
    if (result == nullptr) {
        return 0;
    }
    CString text;
    if (result->kind == KVCALC_POINT) {
        fw::Ignore(SetCalculatorPoint({result->x, result->y, result->z}));  // the text tells what was taken
    } else if (result->kind == KVCALC_NUMBER || result->kind == KVCALC_NUMBER_WITH_UNIT) {
        text.Format(L"%.16g", result->value);
    }
    if (HasEditWindow()) {
        m_edit->SetWindowText(text);
    }
    return 1;
}

HRESULT CKvPeButtonEditBase::LaunchCalculator() {
    const KvInvokeDialog invokeDialog = FindCalculatorDialog(KVBRIDGE_LIBRARY);
    RETURN_HR_IF(S_OK, invokeDialog == nullptr);
    const CString caption = CalculatorCaption();
    CString text;
    GetCalculatorInput(text);
    PutFeetBeforeInches(text);
    const bool writable = !IsReadOnlyRow();
    CalculatorRecord record;
    RETURN_HR_IF(S_OK, !record.Construct());

    m_keepEditOnHide = TRUE;
    const HRESULT confirmed =
        fw::Guarded([&] { return invokeDialog(&record.Get(), &caption, &text, writable) ? S_OK : S_FALSE; });
    bool boxIsReadOnly = true;
    if (confirmed == S_OK && SUCCEEDED(EditBoxReadOnly(boxIsReadOnly)) && !boxIsReadOnly) {
        SetCalculatorResult(&record.Get());
    }
    m_keepEditOnHide = FALSE;
    fw::Ignore(EndEdit());  // there may be no edit to end
    return S_OK;
}
