#pragma once

#include <optional>

#include "framework/window/CDialog.h"
#include "refhost/calculator/Formula.h"

namespace kvhost {

/// The calculator: a formula, what it comes to while it is typed, and keys that type for the mouse.
class CalculatorDialog final : public CDialog {
public:
    /// Without `writable` the result can't be confirmed.
    CalculatorDialog(const CString& caption, const CString& text, AngularFormat format, bool writable);
    ~CalculatorDialog() override;

    /// What the confirmed formula came to.
    [[nodiscard]] const std::optional<FormulaResult>& Result() const { return m_result; }

    // CDialog
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    BOOL OnInitDialog() override;
    bool ExchangeData(bool toMembers) override;

private:
    void TypeKey(int id);
    void ShowResult();

    CString m_caption;
    CString m_text;
    AngularFormat m_format;
    bool m_writable;
    std::optional<FormulaResult> m_result;
};

/// The result as the dialog shows it.
[[nodiscard]] CString ResultText(const std::optional<FormulaResult>& result, AngularFormat format);

}  // namespace kvhost
