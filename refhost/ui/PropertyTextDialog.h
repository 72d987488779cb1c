#pragma once

#include <string>

#include "framework/window/CDialog.h"

namespace kvhost {

/// Edits the text of a property for a number of objects.
class PropertyTextDialog final : public CDialog {
public:
    PropertyTextDialog(std::wstring text, std::size_t objectCount, HWND owner);
    ~PropertyTextDialog() override;

    /// The text as it was confirmed last.
    [[nodiscard]] const std::wstring& Text() const { return m_text; }

protected:
    bool ExchangeData(bool toMembers) override;

private:
    std::wstring m_text;
    std::size_t m_objectCount;
};

/// Shows the dialog over the thread's main window, or takes the prepared answer. True when it was confirmed,
/// with the result in `text`.
[[nodiscard]] bool EditPropertyText(std::wstring& text, std::size_t objectCount);

}  // namespace kvhost
