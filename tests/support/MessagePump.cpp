#include "tests/support/MessagePump.h"

#include "framework/base/WindowsApi.h"

namespace kvtest {

void PumpWaiting() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool PumpUntil(const std::function<bool()>& condition, unsigned timeoutMs) {
    const ULONGLONG end = GetTickCount64() + timeoutMs;
    for (;;) {
        PumpWaiting();
        if (condition()) {
            return true;
        }
        const ULONGLONG now = GetTickCount64();
        if (now >= end) {
            return false;
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now < 20 ? end - now : 20),
                                  QS_ALLINPUT);
    }
}

}  // namespace kvtest
