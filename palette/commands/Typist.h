#pragma once

#include <string>

#include "framework/base/WindowsApi.h"

namespace kvpalette {

/// Types into a window by the messages that a keyboard makes, and waits until they have been taken up.
class Typist {
public:
    explicit Typist(HWND window) : m_window(window) {}

    /// Replaces what is marked. An empty text deletes it.
    void TypeText(const std::wstring& text) const;
    void PressKey(WORD key) const;

private:
    HWND m_window;
};

}  // namespace kvpalette
