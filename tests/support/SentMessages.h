#pragma once

#include <initializer_list>
#include <vector>

#include "framework/base/WindowsApi.h"

namespace kvtest {

struct SentMessage {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;

    friend bool operator==(const SentMessage&, const SentMessage&) = default;
};

/// Notes the messages that are sent, not posted, to the thread's windows as long as it lives. One at a time.
class SentMessages {
public:
    SentMessages();
    SentMessages(const SentMessages&) = delete;
    SentMessages& operator=(const SentMessages&) = delete;
    ~SentMessages();

    /// Those of the given kinds that went to the window, in their order.
    [[nodiscard]] static std::vector<SentMessage> To(HWND window, std::initializer_list<UINT> kinds);

private:
    HHOOK m_hook = nullptr;
};

}  // namespace kvtest
