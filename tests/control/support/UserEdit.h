#pragma once

#include "framework/base/WindowsApi.h"

namespace kvtest {

enum class EditWay {
    Type,    ///< into the box in edit
    Choose,  ///< an entry of the list that drops down
    Press,   ///< the button in focus, into the dialog behind it, which writes at once
};

/// What a user does in a row in edit to give it another value.
struct UserEdit {
    EditWay way;
    const wchar_t* text;  ///< that is typed, and that the row shows afterwards
    int entry;            ///< that is chosen

    /// Brings the value into the box or list in focus, and commits nothing yet. False when there is none.
    [[nodiscard]] bool Enter(HWND row) const;
    /// The same for an edit that Escape will take back: a dialog that writes at once is not confirmed.
    [[nodiscard]] bool EnterUnconfirmed(HWND row) const;
    /// The box or list in focus shows the value.
    [[nodiscard]] bool IsShownIn(HWND child) const;
};

constexpr UserEdit Types(const wchar_t* text) {
    return {EditWay::Type, text, -1};
}
constexpr UserEdit Chooses(int entry) {
    return {EditWay::Choose, L"", entry};
}

constexpr UserEdit PressesAndTypes(const wchar_t* text) {
    return {EditWay::Press, text, -1};
}

/// The row's child that has the focus; null when the row is not in edit.
[[nodiscard]] HWND ChildInFocus(HWND row);
/// Presses the key as the message loop brings it, in the child in focus if there is one.
void PressInRow(HWND row, WORD key);

}  // namespace kvtest
