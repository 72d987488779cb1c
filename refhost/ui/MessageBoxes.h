#pragma once

#include "framework/base/MessageBox.h"
#include "host_sdk/Export.h"

namespace kvhost {

/// For its scope, every message box of the process is the host's: journalled as "MessageBox text", answered
/// by Answers, and shown only with a person at the screen.
class KVHOST_API MessageBoxes {
public:
    MessageBoxes();
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;
    ~MessageBoxes();

private:
    fw::MessageBoxHook m_previous;
};

/// The button that a message box with these flags has as its default.
[[nodiscard]] KVHOST_API int DefaultButtonOf(unsigned flags);

}  // namespace kvhost
