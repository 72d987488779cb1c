#pragma once

#include <string>
#include <vector>

#include "palette/commands/CommandResult.h"
#include "palette/commands/DropDown.h"
#include "palette/window/MainWindow.h"

namespace kvpalette {

/// One entry of a row's list.
struct ListEntry {
    std::wstring text;
    bool current = false;  ///< the one that the list shows as chosen
};

/// Works in the palette's rows as a user does: by activating rows, typing and clicking.
class RowEditor {
public:
    explicit RowEditor(MainWindow& window) : m_window(window) {}

    /// Types the text into the row and commits it, or chooses the entry of its list. Refused, with the
    /// reason, when an object did not take it.
    [[nodiscard]] CommandResult Set(const std::wstring& row, const std::wstring& text);
    /// Picks the unspecified value that the row offers below its box or in its list.
    [[nodiscard]] CommandResult Unspecify(const std::wstring& row);
    /// Puts the row in edit.
    [[nodiscard]] CommandResult Edit(const std::wstring& row);
    /// Types into the row in edit.
    [[nodiscard]] CommandResult Type(const std::wstring& text);
    /// Takes back what was typed and leaves the row.
    [[nodiscard]] CommandResult Escape();
    /// Opens the row's list, which stays open.
    [[nodiscard]] CommandResult List(const std::wstring& row, std::vector<ListEntry>& entries);
    /// Opens the row's list, unless it is open, and rests the pointer on the entry.
    [[nodiscard]] CommandResult Hover(const std::wstring& row, const std::wstring& entry);
    /// Closes an open list as Escape does.
    void CancelOpenList();
    /// Rests the pointer over the row until its tip shows.
    [[nodiscard]] CommandResult ShowTip(const std::wstring& row);
    /// Presses a button of the row: "dialog", "calculator" or "pick". What opens takes the prepared answer.
    [[nodiscard]] CommandResult Click(const std::wstring& row, const std::wstring& button);

private:
    CommandResult Find(const std::wstring& name, std::size_t& row);
    CommandResult Begin(const std::wstring& name, std::size_t& row, HWND& edit);
    CommandResult OpenList(const std::wstring& name, std::size_t& row, DropDown& list);
    DropDown ListInFocus() const;
    CommandResult Choose(const std::wstring& name, const std::wstring& entry);
    CommandResult UnspecifyByList(const std::wstring& name, std::size_t row);
    CommandResult JudgeChoice(std::size_t row, const std::wstring& chosen);
    static std::wstring TakeShownTexts();
    CommandResult JudgeEdit(std::size_t row, const RowReading& before, const std::wstring& typed);
    std::wstring LockedReason(std::size_t row);
    HWND EditInFocus() const;
    HRESULT Activate(std::size_t row, HWND& edit);
    PaletteRow& Row(std::size_t row) { return m_window.Palette().Pane().Rows()[row]; }

    MainWindow& m_window;
};

}  // namespace kvpalette
