#include "palette/commands/Typist.h"

#include "palette/commands/MessageLoop.h"

namespace kvpalette {

namespace {

constexpr LPARAM c_pressed = 1;
constexpr LPARAM c_released = static_cast<LPARAM>(0xC0000001);

}  // namespace

void Typist::TypeText(const std::wstring& text) const {
    if (text.empty()) {
        PressKey(VK_DELETE);
        return;
    }
    // A key goes down before the first character: that is how a box learns that its user has begun.
    PressKey(VK_SHIFT);
    // Sent, not posted: another program that takes the focus cannot come between two characters.
    for (const wchar_t character : text) {
        ::SendMessageW(m_window, WM_CHAR, character, c_pressed);
    }
    PumpMessages();
}

void Typist::PressKey(WORD key) const {
    ::PostMessageW(m_window, WM_KEYDOWN, key, c_pressed);
    PumpMessages();
    if (::IsWindow(m_window)) {
        ::PostMessageW(m_window, WM_KEYUP, key, c_released);
        PumpMessages();
    }
}

}  // namespace kvpalette
