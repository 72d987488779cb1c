#include "refhost/editor/EditorState.h"

#include <algorithm>
#include <numeric>

namespace kvhost {

EditorState::EditorState() = default;
EditorState::~EditorState() = default;

void EditorState::StartModeless(std::wstring_view mark) {
    ++m_marks[std::wstring(mark)];
}

void EditorState::EndModeless(std::wstring_view mark) {
    const auto found = m_marks.find(mark);
    if (found == m_marks.end()) {
        ++m_looseEnds;
    } else if (--found->second == 0) {
        m_marks.erase(found);
    }
}

int EditorState::OpenMarks(std::wstring_view mark) const {
    const auto found = m_marks.find(mark);
    return found != m_marks.end() ? found->second : 0;
}

int EditorState::OpenMarks() const {
    return std::accumulate(m_marks.begin(), m_marks.end(), 0,
                           [](int sum, const auto& mark) { return sum + mark.second; });
}

void EditorState::PushCommand(std::wstring name, unsigned classes) {
    m_commands.push_back({std::move(name), classes});
}

void EditorState::PopCommand() {
    if (!m_commands.empty()) {
        m_commands.pop_back();
    }
}

bool EditorState::IsInCommand(unsigned classes) const {
    return std::any_of(m_commands.begin(), m_commands.end(),
                       [&](const Command& command) { return (command.classes & classes) != 0; });
}

HWND EditorState::PaletteWindow(int palette) const {
    const auto found = m_palettes.find(palette);
    return found != m_palettes.end() ? found->second : nullptr;
}

void EditorState::EnableUserBreak() {
    m_userBreakDisabled = std::max(0, m_userBreakDisabled - 1);
}

}  // namespace kvhost
