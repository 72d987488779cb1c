#include "tests/control/support/UserInput.h"

#include <vector>

#include "tests/support/MessagePump.h"

namespace kvtest {
namespace {

INPUT KeyInput(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
}

INPUT CharacterInput(wchar_t character, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
    return input;
}

INPUT MouseInput(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    return input;
}

void Send(std::vector<INPUT> inputs) {
    ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    PumpWaiting();
}

}  // namespace

void PressKey(WORD key) {
    Send({KeyInput(key, 0), KeyInput(key, KEYEVENTF_KEYUP)});
}

void PressKeyWith(WORD held, WORD key) {
    Send({KeyInput(held, 0), KeyInput(key, 0), KeyInput(key, KEYEVENTF_KEYUP),
          KeyInput(held, KEYEVENTF_KEYUP)});
}

void TypeText(const wchar_t* text) {
    for (const wchar_t* character = text; *character; ++character) {
        Send({CharacterInput(*character, 0), CharacterInput(*character, KEYEVENTF_KEYUP)});
    }
}

void MovePointerTo(HWND window, POINT point) {
    ::ClientToScreen(window, &point);
    ::SetCursorPos(point.x, point.y);
    PumpWaiting();
}

void ClickAt(HWND window, POINT point, DWORD down) {
    MovePointerTo(window, point);
    // Each "up" flag is the double of its "down" flag.
    Send({MouseInput(down), MouseInput(down << 1)});
}

}  // namespace kvtest
