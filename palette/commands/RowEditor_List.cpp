// Work in rows whose value is chosen out of a list.
#include "framework/base/Hresult.h"
#include "palette/commands/DropDown.h"
#include "palette/commands/MessageLoop.h"
#include "palette/commands/RowEditor.h"
#include "palette/rows/PaintedText.h"
#include "refhost/testing/Answers.h"

namespace kvpalette {

CommandResult RowEditor::OpenList(const std::wstring& name, std::size_t& row, DropDown& list) {
    // An open list stays open for the next command on its row.
    if (CommandResult found = Find(name, row); !found) {
        return found;
    }
    list = ListInFocus();
    if (!list || !list.IsOpen() || Row(row).control.get() != m_window.Palette().Pane().Active()) {
        CancelOpenList();
        HWND edit = nullptr;
        if (CommandResult begun = Begin(name, row, edit); !begun) {
            return begun;
        }
        list = DropDown::Around(edit);
    }
    if (!list) {
        m_window.Palette().Pane().LeaveRow();
        return CommandResult::Refused(L"the row has no list");
    }
    return list.Open() ? CommandResult::Done() : CommandResult::Refused(L"the row's list does not open");
}

DropDown RowEditor::ListInFocus() const {
    return DropDown::Around(EditInFocus());
}

void RowEditor::CancelOpenList() {
    if (const DropDown list = ListInFocus()) {
        list.Cancel();
    }
}

CommandResult RowEditor::List(const std::wstring& name, std::vector<ListEntry>& entries) {
    std::size_t row = 0;
    DropDown list;
    if (CommandResult opened = OpenList(name, row, list); !opened) {
        return opened;
    }
    const int chosen = list.Chosen();
    for (const std::wstring& text : list.Entries()) {
        entries.push_back({text, static_cast<int>(entries.size()) == chosen});
    }
    return CommandResult::Done();
}

CommandResult RowEditor::Hover(const std::wstring& name, const std::wstring& entry) {
    std::size_t row = 0;
    DropDown list;
    if (CommandResult opened = OpenList(name, row, list); !opened) {
        return opened;
    }
    const int index = list.Find(entry);
    if (index < 0) {
        return CommandResult::Refused(L"the row's list has no entry " + entry);
    }
    list.RestOn(index);
    return CommandResult::Done();
}

CommandResult RowEditor::Choose(const std::wstring& name, const std::wstring& entry) {
    std::size_t row = 0;
    DropDown list;
    if (CommandResult opened = OpenList(name, row, list); !opened) {
        return opened;
    }
    const int index = list.Find(entry);
    if (index < 0) {
        CancelOpenList();
        m_window.Palette().Pane().LeaveRow();
        return CommandResult::Refused(L"the row's list has no entry " + entry);
    }
    const std::wstring chosen = list.Entries()[static_cast<std::size_t>(index)];
    fw::Ignore(kvhost::Answers::TakeShown());  // what came up before has nothing to do with this edit
    list.Click(index);
    m_window.Palette().Pane().LeaveRow();
    PumpMessages();
    return JudgeChoice(row, chosen);
}

// The list offers the unspecified value by the text that the property has for it.
CommandResult RowEditor::UnspecifyByList(const std::wstring& name, std::size_t row) {
    const std::wstring text = ReadRow(Row(row).property).unspecifiedText;
    const bool isOffered = !text.empty() && ListInFocus().Find(text) >= 0;
    if (!isOffered) {
        m_window.Palette().Pane().LeaveRow();
        return CommandResult::Refused(L"the row has no unspecified value");
    }
    return Choose(name, text);
}

// What the row shows when it has read the objects again is what they hold.
CommandResult RowEditor::JudgeChoice(std::size_t row, const std::wstring& chosen) {
    if (const std::wstring shown = TakeShownTexts(); !shown.empty()) {
        return CommandResult::Refused(shown);
    }
    if (row >= m_window.Palette().Pane().Rows().size()) {
        return CommandResult::Done();
    }
    const RowReading after = ReadRow(Row(row).property);
    const HostedControl* const control = m_window.Palette().Pane().ShowRow(row);
    const bool isShown = !control || PaintedText(*control) == chosen;
    return after.state == RowState::Varies || !isShown ? CommandResult::Refused(LockedReason(row))
                                                       : CommandResult::Done();
}

}  // namespace kvpalette
