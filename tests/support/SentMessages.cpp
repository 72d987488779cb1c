#include "tests/support/SentMessages.h"

#include <algorithm>

namespace kvtest {
namespace {

std::vector<CWPSTRUCT> s_sent;

LRESULT CALLBACK OnSent(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION) {
        s_sent.push_back(*reinterpret_cast<const CWPSTRUCT*>(lParam));
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

SentMessages::SentMessages()
    : m_hook(::SetWindowsHookExW(WH_CALLWNDPROC, &OnSent, nullptr, ::GetCurrentThreadId())) {
    s_sent.clear();
}

SentMessages::~SentMessages() {
    ::UnhookWindowsHookEx(m_hook);
    s_sent.clear();
}

std::vector<SentMessage> SentMessages::To(HWND window, std::initializer_list<UINT> kinds) {
    std::vector<SentMessage> messages;
    for (const CWPSTRUCT& sent : s_sent) {
        if (sent.hwnd == window && std::ranges::find(kinds, sent.message) != kinds.end()) {
            messages.push_back({sent.message, sent.wParam, sent.lParam});
        }
    }
    return messages;
}

}  // namespace kvtest
