#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host_sdk/Export.h"

namespace kvhost {

/// What the next dialog is answered with: the button, and the text for dialogs that have one.
struct Answer {
    int button = 0;  ///< a dialog button's id, as IDOK
    std::optional<std::wstring> text;
};

/// Answers prepared in advance for message boxes, task dialogs and property dialogs: one queue, taken in the
/// order in which the dialogs come.
class KVHOST_API Answers {
public:
    Answers() = delete;

    static void Queue(Answer answer);
    static void QueueButton(int button);
    /// The dialog's text, confirmed.
    static void QueueText(std::wstring text);
    /// From the command line: the name of a button (OK, Cancel, Yes, No, Retry, Abort, Ignore, Close), else a
    /// text to confirm.
    static void QueueFromCommandLine(const std::wstring& text);
    [[nodiscard]] static std::size_t Waiting();

    /// With a person at the screen, dialogs without a prepared answer are shown. Off at start.
    static void SetInteractive(bool interactive);
    [[nodiscard]] static bool IsInteractive();

    /// For a dialog that is about to open: the prepared answer; without one, and without a person,
    /// `byDefault`; nothing when the dialog is to be shown.
    [[nodiscard]] static std::optional<Answer> Take(const Answer& byDefault);

    /// Every message box and dialog tells its text here when it opens, answered or shown.
    static void NoteShown(std::wstring text);
    /// The texts since the last call, in their order.
    [[nodiscard]] static std::vector<std::wstring> TakeShown();

    /// Forgets all answers and texts, and turns `interactive` off.
    static void Reset();
};

}  // namespace kvhost
