#pragma once

#include "framework/base/WindowsApi.h"
#include "framework/window/Geometry.h"

namespace kvtest {

// What a person does: through the system's input queue, pumped until it has arrived.

void PressKey(WORD key);
/// Held while the other is pressed.
void PressKeyWith(WORD held, WORD key);
void TypeText(const wchar_t* text);
/// Moves the pointer to a client point of the window and presses a button there. down is a MOUSEEVENTF_..DOWN
/// flag.
void ClickAt(HWND window, POINT point, DWORD down = MOUSEEVENTF_LEFTDOWN);
void MovePointerTo(HWND window, POINT point);

}  // namespace kvtest
