#include "refhost/ui/MessageBoxes.h"

#include <algorithm>
#include <array>

#include "refhost/testing/Answers.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

struct ButtonSet {
    UINT kind;
    std::array<int, 3> buttons;
    std::size_t count;
};

constexpr std::array c_buttonSets{
    ButtonSet{MB_OK, {IDOK}, 1},
    ButtonSet{MB_OKCANCEL, {IDOK, IDCANCEL}, 2},
    ButtonSet{MB_ABORTRETRYIGNORE, {IDABORT, IDRETRY, IDIGNORE}, 3},
    ButtonSet{MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}, 3},
    ButtonSet{MB_YESNO, {IDYES, IDNO}, 2},
    ButtonSet{MB_RETRYCANCEL, {IDRETRY, IDCANCEL}, 2},
    ButtonSet{MB_CANCELTRYCONTINUE, {IDCANCEL, IDTRYAGAIN, IDCONTINUE}, 3},
};

int Show(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags) {
    ServiceCall call(L"MessageBox", text);
    Answers::NoteShown(text != nullptr ? text : L"");
    if (const auto answer = Answers::Take({DefaultButtonOf(flags), {}})) {
        return call.Returns(answer->button);
    }
    return call.Returns(::MessageBoxW(owner, text, caption, flags));
}

}  // namespace

MessageBoxes::MessageBoxes() : m_previous(fw::SetMessageBoxHook(Show)) {
}

MessageBoxes::~MessageBoxes() {
    fw::SetMessageBoxHook(m_previous);
}

int DefaultButtonOf(unsigned flags) {
    const auto found = std::find_if(c_buttonSets.begin(), c_buttonSets.end(),
                                    [&](const ButtonSet& set) { return set.kind == (flags & MB_TYPEMASK); });
    if (found == c_buttonSets.end()) {
        return IDOK;
    }
    const std::size_t index = (flags & MB_DEFMASK) / MB_DEFBUTTON2;
    return found->buttons[index < found->count ? index : 0];
}

}  // namespace kvhost
