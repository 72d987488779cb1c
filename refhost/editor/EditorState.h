#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "framework/base/WindowsApi.h"
#include "host_sdk/Export.h"

namespace kvhost {

/// What the editor is doing: brackets of modeless windows, drag, running commands, live preview, user break.
class KVHOST_API EditorState {
public:
    EditorState();
    EditorState(const EditorState&) = delete;
    EditorState& operator=(const EditorState&) = delete;
    ~EditorState();

    // Brackets of modeless operations. Modules also send ends whose start was sent by another one; such an
    // end without a start counts as a notice and is not an error.
    void StartModeless(std::wstring_view mark);
    void EndModeless(std::wstring_view mark);
    [[nodiscard]] int OpenMarks(std::wstring_view mark) const;
    /// All open brackets.
    [[nodiscard]] int OpenMarks() const;
    /// Ends without start since the host's start.
    [[nodiscard]] int LooseEnds() const { return m_looseEnds; }

    [[nodiscard]] bool IsDragging() const { return m_dragging; }
    void SetDragging(bool dragging) { m_dragging = dragging; }

    // Running commands, outermost first, each with the classes that it belongs to.
    void PushCommand(std::wstring name, unsigned classes);
    void PopCommand();
    [[nodiscard]] bool IsInCommand(unsigned classes) const;

    [[nodiscard]] bool IsPreviewStarted() const { return m_previewStarted; }
    void SetPreviewStarted(bool started) { m_previewStarted = started; }
    [[nodiscard]] bool IsPreviewRecording() const { return m_previewRecording; }
    void SetPreviewRecording(bool recording) { m_previewRecording = recording; }

    // Windows of the palettes, registered by who makes them; null for none. Not owned.
    [[nodiscard]] HWND PaletteWindow(int palette) const;
    void SetPaletteWindow(int palette, HWND window) { m_palettes[palette] = window; }

    /// Background of what looks otherwise in the current viewport.
    [[nodiscard]] COLORREF ViewportOverrideColor() const { return m_viewportOverrideColor; }
    void SetViewportOverrideColor(COLORREF color) { m_viewportOverrideColor = color; }

    void DisableUserBreak() { ++m_userBreakDisabled; }
    void EnableUserBreak();
    [[nodiscard]] int UserBreakDisabled() const { return m_userBreakDisabled; }

    void PostPrompt() { ++m_promptsPosted; }
    [[nodiscard]] int PromptsPosted() const { return m_promptsPosted; }

private:
    struct Command {
        std::wstring name;
        unsigned classes;
    };

    std::map<std::wstring, int, std::less<>> m_marks;
    std::vector<Command> m_commands;
    std::map<int, HWND> m_palettes;
    COLORREF m_viewportOverrideColor = RGB(198, 226, 245);
    int m_looseEnds = 0;
    int m_userBreakDisabled = 0;
    int m_promptsPosted = 0;
    bool m_dragging = false;
    bool m_previewStarted = false;
    bool m_previewRecording = false;
};

}  // namespace kvhost
