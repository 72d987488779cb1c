#include "refhost/calculator/CalculatorDialog.h"

#include "refhost/calculator/ResourceIds.h"

namespace kvhost {

namespace {

constexpr int c_shownDigits = 12;

const wchar_t* AngleMark(AngularFormat format) {
    switch (format) {
        case AngularFormat::Grads:
            return L" g";
        case AngularFormat::Radians:
            return L" r";
        default:
            return L"\u00B0";
    }
}

CString PowerText(const wchar_t* name, int power) {
    CString text;
    if (power == 1) {
        text = name;
    } else if (power != 0) {
        text.Format(L"%s^%d", name, power);
    }
    return text;
}

CString QuantityText(const Quantity& quantity, AngularFormat format) {
    CString text;
    text.Format(L"%.*g", c_shownDigits, quantity.number);
    if (quantity.lengthPower == 0 && quantity.anglePower == 1) {
        return text + AngleMark(format);
    }
    if (quantity.lengthPower != 0) {
        text += L" " + PowerText(L"units", quantity.lengthPower);
    }
    return quantity.anglePower != 0 ? text + L" " + PowerText(L"angle", quantity.anglePower) : text;
}

}  // namespace

CString ResultText(const std::optional<FormulaResult>& result, AngularFormat format) {
    if (!result) {
        return L"";
    }
    if (!result->isPoint) {
        return L"= " + QuantityText(result->value, format);
    }
    CString text;
    text.Format(L"= [%.*g, %.*g, %.*g]", c_shownDigits, result->point[0], c_shownDigits, result->point[1],
                c_shownDigits, result->point[2]);
    return text;
}

CalculatorDialog::CalculatorDialog(const CString& caption, const CString& text, AngularFormat format,
                                   bool writable)
    : CDialog(KVBRIDGE_DIALOG_CALCULATOR),
      m_caption(caption),
      m_text(text),
      m_format(format),
      m_writable(writable) {
}

CalculatorDialog::~CalculatorDialog() {
    DestroyWindow();
}

BOOL CalculatorDialog::OnInitDialog() {
    SetWindowText(m_caption);
    const BOOL setsFocus = CDialog::OnInitDialog();
    ShowResult();
    return setsFocus;
}

bool CalculatorDialog::ExchangeData(bool toMembers) {
    if (!toMembers) {
        SetDlgItemText(KVBRIDGE_FORMULA, m_text);
        return true;
    }
    m_result = Formula::Evaluate(GetDlgItemText(KVBRIDGE_FORMULA).View(), m_format);
    return m_writable && m_result.has_value();
}

LRESULT CalculatorDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        const int id = LOWORD(wParam);
        if (id == KVBRIDGE_FORMULA && HIWORD(wParam) == EN_CHANGE) {
            ShowResult();
        } else if (id >= KVBRIDGE_FIRST_KEY && id <= KVBRIDGE_LAST_KEY && HIWORD(wParam) == BN_CLICKED) {
            TypeKey(id);
        }
    }
    return CDialog::WindowProc(message, wParam, lParam);
}

void CalculatorDialog::TypeKey(int id) {
    const CString key = GetDlgItemText(id);
    const HWND formula = GetDlgItem(KVBRIDGE_FORMULA);
    ::SendMessageW(formula, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(key.GetString()));
    ::SetFocus(formula);
    const int end = ::GetWindowTextLengthW(formula);
    ::SendMessageW(formula, EM_SETSEL, static_cast<WPARAM>(end), end);
}

// A formula that comes to nothing can't be confirmed.
void CalculatorDialog::ShowResult() {
    const auto result = Formula::Evaluate(GetDlgItemText(KVBRIDGE_FORMULA).View(), m_format);
    SetDlgItemText(KVBRIDGE_RESULT, ResultText(result, m_format));
    EnableDlgItem(IDOK, m_writable && result.has_value());
}

}  // namespace kvhost
