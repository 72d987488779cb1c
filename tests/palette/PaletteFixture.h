#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "palette/rows/ControlCatalogue.h"
#include "palette/window/MainWindow.h"
#include "refhost/editor/HostSession.h"

namespace kvtest {

/// The palette program's window over a drawing of a few texts, worked in by real mouse and keyboard input.
class PaletteFixture : public testing::Test {
protected:
    PaletteFixture();
    ~PaletteFixture() override;

    /// Adds a text to the drawing.
    KvDbObjectId AddText(const std::wstring& content, double x, double y);
    void Select(const std::vector<KvDbObjectId>& ids);
    std::wstring ContentOf(KvDbObjectId id);

    kvpalette::MainWindow& Window() { return *m_window; }
    kvpalette::RowsPane& Pane() { return m_window->Palette().Pane(); }
    std::size_t Row(const std::wstring& name) { return m_window->Palette().FindRow(name); }
    std::wstring CurrentName();
    HWND ControlWindow(const std::wstring& row) { return Pane().Rows()[Row(row)].control->Window(); }
    /// The middle of a row's value, and of its name, on the screen.
    POINT ValuePoint(const std::wstring& row);
    POINT NamePoint(const std::wstring& row);

    // Input as it comes from the devices.
    static void MoveTo(POINT place);
    static void Click(POINT place);
    static void DragTo(POINT from, POINT to);
    static void Press(WORD key, bool shift = false, bool control = false);
    static void TypeText(const std::wstring& text);
    static void TurnWheel(POINT place, int steps);

private:
    kvpalette::ControlCatalogue m_catalogue;
    std::unique_ptr<kvhost::HostSession> m_host;
    std::unique_ptr<kvpalette::MainWindow> m_window;
};

}  // namespace kvtest
