#include "refhost/testing/Answers.h"

#include <algorithm>
#include <array>
#include <deque>
#include <utility>

#include "framework/base/WindowsApi.h"

namespace kvhost {

namespace {

struct State {
    std::deque<Answer> queue;
    std::vector<std::wstring> shown;
    bool interactive = false;
};

State& GetState() {
    static State state;
    return state;
}

struct ButtonName {
    const wchar_t* name;
    int button;
};

constexpr std::array c_buttonNames{
    ButtonName{L"OK", IDOK},         ButtonName{L"Cancel", IDCANCEL}, ButtonName{L"Yes", IDYES},
    ButtonName{L"No", IDNO},         ButtonName{L"Retry", IDRETRY},   ButtonName{L"Abort", IDABORT},
    ButtonName{L"Ignore", IDIGNORE}, ButtonName{L"Close", IDCLOSE},
};

}  // namespace

void Answers::Queue(Answer answer) {
    GetState().queue.push_back(std::move(answer));
}

void Answers::QueueButton(int button) {
    Queue({button, {}});
}

void Answers::QueueText(std::wstring text) {
    Queue({IDOK, std::move(text)});
}

void Answers::QueueFromCommandLine(const std::wstring& text) {
    const auto found = std::find_if(c_buttonNames.begin(), c_buttonNames.end(), [&](const ButtonName& entry) {
        return ::CompareStringOrdinal(entry.name, -1, text.c_str(), -1, TRUE) == CSTR_EQUAL;
    });
    if (found != c_buttonNames.end()) {
        QueueButton(found->button);
    } else {
        QueueText(text);
    }
}

std::size_t Answers::Waiting() {
    return GetState().queue.size();
}

void Answers::SetInteractive(bool interactive) {
    GetState().interactive = interactive;
}

bool Answers::IsInteractive() {
    return GetState().interactive;
}

std::optional<Answer> Answers::Take(const Answer& byDefault) {
    State& state = GetState();
    if (state.queue.empty()) {
        return state.interactive ? std::nullopt : std::optional(byDefault);
    }
    Answer answer = std::move(state.queue.front());
    state.queue.pop_front();
    return answer;
}

void Answers::NoteShown(std::wstring text) {
    GetState().shown.push_back(std::move(text));
}

std::vector<std::wstring> Answers::TakeShown() {
    return std::exchange(GetState().shown, {});
}

void Answers::Reset() {
    GetState() = State{};
}

}  // namespace kvhost
