#pragma once

#include "framework/base/CString.h"
#include "framework/window/CWnd.h"
#include "host_sdk/Export.h"

/// The host's tip: shows a text while the mouse rests on one window, its tool.
class KVHOST_API LzToolTip {
public:
    LzToolTip() = default;
    LzToolTip(const LzToolTip&) = delete;
    LzToolTip& operator=(const LzToolTip&) = delete;

    /// Makes the tip's window, hidden and without a text. False when it is there already or the system
    /// refuses.
    [[nodiscard]] bool Create(HWND tool);
    /// An empty text shows no tip. Nothing without a window.
    void SetTipText(const CString& text);
    [[nodiscard]] const CString& GetTipText() const { return m_text; }
    /// To be told each message of the tool, before the tool gets it.
    void RelayEvent(const MSG& message);

    [[nodiscard]] HWND GetSafeHwnd() const { return m_window.GetSafeHwnd(); }

private:
    CWnd m_window;
    HWND m_tool = nullptr;  // not owned
    CString m_text;
};
