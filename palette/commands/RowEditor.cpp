#include "palette/commands/RowEditor.h"

#include <cstddef>
#include <iterator>
#include <vector>

#include "framework/base/Hresult.h"
#include "host_sdk/IDatabaseObjectIdentity.h"
#include "palette/commands/MessageLoop.h"
#include "palette/commands/Typist.h"
#include "refhost/testing/Answers.h"

namespace kvpalette {

namespace {

// The control's mark on its tip window.
constexpr LONG_PTR c_tipMark = 1042;
constexpr DWORD c_longestWaitForTip = 3000;
constexpr int c_mostAttempts = 3;

BOOL CALLBACK FindVisibleTip(HWND window, LPARAM result) {
    if (::IsWindowVisible(window) && ::GetWindowLongPtrW(window, GWLP_USERDATA) == c_tipMark) {
        *reinterpret_cast<HWND*>(result) = window;
        return FALSE;
    }
    return TRUE;
}

HWND VisibleTip() {
    HWND tip = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), FindVisibleTip, reinterpret_cast<LPARAM>(&tip));
    return tip;
}

struct HintSearch {
    RECT row;
    HWND found;
};

// The offer of the unspecified value lies directly below the row, as wide as it.
BOOL CALLBACK FindHint(HWND window, LPARAM argument) {
    auto* const search = reinterpret_cast<HintSearch*>(argument);
    RECT bounds{};
    ::GetWindowRect(window, &bounds);
    if (::IsWindowVisible(window) && bounds.top == search->row.bottom && bounds.left == search->row.left &&
        bounds.right == search->row.right) {
        search->found = window;
        return FALSE;
    }
    return TRUE;
}

HWND HintBelow(HWND row) {
    HintSearch search{{}, nullptr};
    ::GetWindowRect(row, &search.row);
    ::EnumThreadWindows(::GetCurrentThreadId(), FindHint, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool TakesText(HWND child) {
    wchar_t name[32]{};
    ::GetClassNameW(child, name, static_cast<int>(std::size(name)));
    return ::lstrcmpiW(name, WC_EDITW) == 0 && (::GetWindowLongPtrW(child, GWL_STYLE) & ES_READONLY) == 0;
}

std::wstring TextOf(const RowReading& reading) {
    return reading.state == RowState::Unspecified ? reading.unspecifiedText : ValueText(reading.value.Get());
}

bool SameText(const std::wstring& left, const std::wstring& right, bool ignoreCase) {
    return ::CompareStringOrdinal(left.c_str(), -1, right.c_str(), -1, ignoreCase) == CSTR_EQUAL;
}

std::wstring Joined(const std::vector<std::wstring>& texts) {
    std::wstring all;
    for (const std::wstring& text : texts) {
        all += (all.empty() ? L"" : L"; ") + text;
    }
    return all;
}

}  // namespace

CommandResult RowEditor::Find(const std::wstring& name, std::size_t& row) {
    row = m_window.Palette().FindRow(name);
    return row == RowLayout::c_none ? CommandResult::Refused(L"there is no such row") : CommandResult::Done();
}

CommandResult RowEditor::Begin(const std::wstring& name, std::size_t& row, HWND& edit) {
    if (CommandResult found = Find(name, row); !found) {
        return found;
    }
    const RowReading reading = ReadRow(Row(row).property);
    if (reading.readOnly) {
        return CommandResult::Refused(L"the row is read-only");
    }
    if (Row(row).kind == RowKind::Painted) {
        return CommandResult::Refused(L"the row's control " + Row(row).property.control +
                                      L" is not available");
    }
    m_window.Palette().Pane().ShowRow(row);
    PumpMessages();  // some controls make their box when they are first painted
    const HRESULT activated = Activate(row, edit);
    return FAILED(activated) || !edit ? CommandResult::Refused(L"the row does not go into edit")
                                      : CommandResult::Done();
}

// Other programs may take the foreground in the middle, which ends an edit: it is begun anew then.
HRESULT RowEditor::Activate(std::size_t row, HWND& edit) {
    HRESULT activated = E_FAIL;
    for (int attempt = 0; attempt < c_mostAttempts; ++attempt) {
        BringToFront(m_window.m_hWnd);
        activated = m_window.Palette().Pane().ActivateRow(row);
        PumpMessages();
        edit = EditInFocus();
        if (FAILED(activated) || edit) {
            break;
        }
    }
    return activated;
}

HWND RowEditor::EditInFocus() const {
    HostedControl* const active = m_window.Palette().Pane().Active();
    const HWND focus = ::GetFocus();
    const HWND window = active ? active->Window() : nullptr;
    return window && ::IsChild(window, focus) ? focus : nullptr;
}

CommandResult RowEditor::Set(const std::wstring& name, const std::wstring& text) {
    std::size_t row = 0;
    HWND edit = nullptr;
    if (CommandResult begun = Begin(name, row, edit); !begun) {
        return begun;
    }
    if (DropDown::Around(edit)) {
        return Choose(name, text);
    }
    if (!TakesText(edit)) {
        m_window.Palette().Pane().LeaveRow();
        return CommandResult::Refused(L"the row changes through its button only");
    }
    const RowReading before = ReadRow(Row(row).property);
    fw::Ignore(kvhost::Answers::TakeShown());  // what came up before has nothing to do with this edit
    const Typist typist(edit);
    typist.TypeText(text);
    typist.PressKey(VK_RETURN);
    CommandResult result = JudgeEdit(row, before, text);
    m_window.Palette().Pane().LeaveRow();
    PumpMessages();
    return result;
}

std::wstring RowEditor::TakeShownTexts() {
    return Joined(kvhost::Answers::TakeShown());
}

CommandResult RowEditor::JudgeEdit(std::size_t row, const RowReading& before, const std::wstring& typed) {
    if (const std::wstring shown = TakeShownTexts(); !shown.empty()) {
        return CommandResult::Refused(shown);
    }
    if (row >= m_window.Palette().Pane().Rows().size()) {
        return CommandResult::Done();
    }
    const RowReading after = ReadRow(Row(row).property);
    const bool unchanged = after.state == before.state && SameText(TextOf(after), TextOf(before), false);
    const bool asTyped = SameText(TextOf(after), typed, after.state == RowState::Unspecified);
    if (after.state == RowState::Varies || (unchanged && !asTyped)) {
        return CommandResult::Refused(LockedReason(row));
    }
    return CommandResult::Done();
}

// Controls pass over objects on locked layers without a word.
std::wstring RowEditor::LockedReason(std::size_t row) {
    std::size_t locked = 0;
    for (const kvhost::PropertyRowEntry& entry : Row(row).property.entries) {
        const auto identity = entry.object.As<IDatabaseObjectIdentity>();
        KvDbObjectId id;
        if (identity && SUCCEEDED(identity->GetObjectId(&id)) &&
            kvhost::Database::CanWrite(id) == Tolm::eOnLockedLayer) {
            ++locked;
        }
    }
    if (locked == 0) {
        return L"the objects keep their value";
    }
    return std::to_wstring(locked) + L" of " + std::to_wstring(Row(row).property.entries.size()) +
           L" objects lie on a locked layer and keep their value";
}

CommandResult RowEditor::Unspecify(const std::wstring& name) {
    std::size_t row = 0;
    HWND edit = nullptr;
    if (CommandResult begun = Begin(name, row, edit); !begun) {
        return begun;
    }
    if (DropDown::Around(edit)) {
        return UnspecifyByList(name, row);
    }
    const HWND hint = HintBelow(m_window.Palette().Pane().Active()->Window());
    if (!hint) {
        m_window.Palette().Pane().LeaveRow();
        return CommandResult::Refused(L"the row has no unspecified value");
    }
    const RowReading before = ReadRow(Row(row).property);
    fw::Ignore(kvhost::Answers::TakeShown());  // as in Set
    ::PostMessageW(hint, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    ::PostMessageW(hint, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
    PumpMessages();
    CommandResult result = JudgeEdit(row, before, before.unspecifiedText);
    m_window.Palette().Pane().LeaveRow();
    PumpMessages();
    return result;
}

CommandResult RowEditor::Edit(const std::wstring& name) {
    std::size_t row = 0;
    HWND edit = nullptr;
    return Begin(name, row, edit);
}

CommandResult RowEditor::Type(const std::wstring& text) {
    const HWND edit = EditInFocus();
    if (!edit) {
        return CommandResult::Refused(L"no row is in edit");
    }
    Typist(edit).TypeText(text);
    return CommandResult::Done();
}

CommandResult RowEditor::Escape() {
    if (const HWND edit = EditInFocus()) {
        Typist(edit).PressKey(VK_ESCAPE);
    }
    m_window.Palette().Pane().LeaveRow();
    PumpMessages();
    return CommandResult::Done();
}

CommandResult RowEditor::ShowTip(const std::wstring& name) {
    std::size_t row = 0;
    if (CommandResult found = Find(name, row); !found) {
        return found;
    }
    HostedControl* const control = m_window.Palette().Pane().ShowRow(row);
    m_window.Palette().Pane().MakeCurrent(row);
    PumpMessages();
    const HWND window = control ? control->Window() : nullptr;
    if (!window) {
        return CommandResult::Refused(L"the row has no control that shows tips");
    }
    RECT bounds{};
    ::GetWindowRect(window, &bounds);
    const POINT inside{12, (bounds.bottom - bounds.top) / 2};
    ::SetCursorPos(static_cast<int>(bounds.left + inside.x), static_cast<int>(bounds.top + inside.y));
    ::PostMessageW(window, WM_MOUSEMOVE, 0, MAKELPARAM(inside.x, inside.y));
    if (!PumpUntil([] { return VisibleTip() != nullptr; }, c_longestWaitForTip)) {
        return CommandResult::Refused(L"the row shows no tip");
    }
    PumpMessages();
    return CommandResult::Done();
}

}  // namespace kvpalette
