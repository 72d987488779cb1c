#pragma once

#include <memory>
#include <vector>

#include "framework/base/Handles.h"
#include "framework/window/CButton.h"
#include "framework/window/CDialog.h"
#include "refhost/ui/TaskDialogDescription.h"

namespace kvhost {

/// Window of a task dialog: icon, bold instruction, content, and a row of buttons, as high as its texts need.
class TaskDialogWindow final : public CDialog {
public:
    /// The description must outlive the window.
    TaskDialogWindow(const TaskDialogDescription& description, HWND owner);
    ~TaskDialogWindow() override;

    // CDialog
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    BOOL OnInitDialog() override;

private:
    void ShowIcon();
    /// Fits the text's window to its text at `top` and returns the bottom.
    int PlaceText(int id, const std::wstring& text, int top);
    void PlaceButtons(int top);
    [[nodiscard]] bool IsButton(int id) const;

    const TaskDialogDescription& m_description;
    fw::UniqueFont m_instructionFont;
    std::vector<std::unique_ptr<CButton>> m_buttons;
};

}  // namespace kvhost
