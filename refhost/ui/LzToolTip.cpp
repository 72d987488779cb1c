#include "host_sdk/LzToolTip.h"

#include "refhost/testing/ServiceCall.h"

namespace {

constexpr DWORD c_style = WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP;
constexpr LPARAM c_maximumWidth = 400;  // pixels, then the text breaks

// The smaller structure, which every version of the system's control knows.
TTTOOLINFOW ToolInfo(HWND tool, const CString& text) {
    TTTOOLINFOW info{};
    info.cbSize = TTTOOLINFOW_V2_SIZE;
    info.uFlags = TTF_IDISHWND;
    info.hwnd = tool;
    info.uId = reinterpret_cast<UINT_PTR>(tool);
    info.lpszText = const_cast<wchar_t*>(text.GetString());
    return info;
}

bool HaveTipClass() {
    const INITCOMMONCONTROLSEX classes{.dwSize = sizeof classes, .dwICC = ICC_BAR_CLASSES};
    static const bool have = ::InitCommonControlsEx(&classes) != FALSE;
    return have;
}

}  // namespace

bool LzToolTip::Create(HWND tool) {
    kvhost::ServiceCall call(L"LzToolTip::Create");
    if (call.Fails() || m_window.IsWindow() || !::IsWindow(tool) || !HaveTipClass()) {
        return call.Returns(false);
    }
    if (!m_window.CreateControl(WS_EX_TOPMOST, TOOLTIPS_CLASSW, L"", c_style, CRect(), tool, 0)) {
        return call.Returns(false);
    }
    m_tool = tool;
    const TTTOOLINFOW info = ToolInfo(tool, m_text);
    m_window.SendMessage(TTM_SETMAXTIPWIDTH, 0, c_maximumWidth);
    return call.Returns(m_window.SendMessage(TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&info)) != 0);
}

void LzToolTip::SetTipText(const CString& text) {
    const kvhost::ServiceCall call(L"LzToolTip::SetTipText", text.GetString());
    if (call.Fails() || !m_window.IsWindow()) {
        return;
    }
    m_text = text;
    const TTTOOLINFOW info = ToolInfo(m_tool, m_text);
    m_window.SendMessage(TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&info));
}

void LzToolTip::RelayEvent(const MSG& message) {
    if (m_window.IsWindow() && !m_text.IsEmpty()) {
        m_window.SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
    }
}
