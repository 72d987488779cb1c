#include "palette/commands/Typist.h"

#include "palette/commands/MessageLoop.h"

namespace kvpalette {

namespace {

constexpr LPARAM c_pressed = 1;
constexpr LPARAM c_released = static_cast<LPARAM>(0xC0000001);
// A thread's queue takes 10,000 messages.
constexpr std::size_t c_charactersAtOnce = 2000;

}  // namespace

void Typist::TypeText(const std::wstring& text) const {
    if (text.empty()) {
        PressKey(VK_DELETE);
        return;
    }
    // A key goes down before the first character: that is how a box learns that its user has begun.
    PressKey(VK_SHIFT);
    for (std::size_t i = 0; i < text.size(); ++i) {
        ::PostMessageW(m_window, WM_CHAR, text[i], c_pressed);
        if (i % c_charactersAtOnce == c_charactersAtOnce - 1) {
            PumpMessages();
        }
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
