#pragma once

#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvpalette {

/// A drop-down window of a row, worked by the messages that a user's keys and mouse make.
class DropDown {
public:
    /// Null for none; no owner.
    explicit DropDown(HWND comboBox = nullptr) : m_window(comboBox) {}
    /// The drop-down that the window is, or is the edit box of; none for any other window.
    [[nodiscard]] static DropDown Around(HWND window);

    explicit operator bool() const { return m_window != nullptr; }
    [[nodiscard]] bool IsOpen() const;
    /// Opens it by its key; false when it stays shut.
    [[nodiscard]] bool Open() const;
    /// Closes it by Escape, which takes the choice under the mouse back.
    void Cancel() const;

    [[nodiscard]] std::vector<std::wstring> Entries() const;
    /// -1 for none.
    [[nodiscard]] int Chosen() const;
    /// The entry of that text, letter case apart where no entry is written so; -1 when there is none.
    [[nodiscard]] int Find(const std::wstring& text) const;

    /// Moves the mouse over the entry of the open list, which is scrolled to it.
    void RestOn(int entry) const;
    /// The same, and presses it.
    void Click(int entry) const;

private:
    [[nodiscard]] HWND List() const;
    void ScrollTo(int entry) const;

    HWND m_window;
};

}  // namespace kvpalette
