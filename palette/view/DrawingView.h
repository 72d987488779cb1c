#pragma once

#include <array>
#include <functional>
#include <unordered_set>
#include <vector>

#include "framework/window/CWnd.h"
#include "framework/window/MessageTable.h"
#include "palette/view/DisplayList.h"
#include "palette/view/ViewTransform.h"

namespace kvpalette {

/// Shows a drawing, lets the user move about in it and pick objects.
class DrawingView final : public CWnd {
public:
    /// What a pick does with the objects that are picked already.
    enum class PickMode { Replace, Add, Toggle };
    using PickHandler = std::function<void(const std::vector<KvDbObjectId>& ids, PickMode mode)>;
    /// Tells the point under the pointer.
    using PointerHandler = std::function<void(double x, double y)>;

    DrawingView(PickHandler onPick, PointerHandler onPointer);
    ~DrawingView() override;

    [[nodiscard]] bool Create(HWND parent);
    /// Not owned; null for none. Zooms to its extents.
    void SetDatabase(kvhost::Database* database);
    void SetHighlighted(const std::vector<KvDbObjectId>& ids);

    void ZoomExtents();
    void ZoomHighlighted();
    void ZoomBy(double factor);

    /// What a click at a point of the window picks; null ids are none. The topmost object wins.
    KvDbObjectId ObjectAt(POINT pixel);
    /// What a box pulled from one corner to the other picks: from left to right what lies within, from right
    /// to left also what it touches.
    std::vector<KvDbObjectId> ObjectsInBox(POINT from, POINT to);

    const ViewTransform& Transform() const { return m_transform; }

    // CWnd
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    enum class Drag { None, Box, Pan };

    LRESULT OnPaint(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnEraseBackground(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnSize(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnLeftUp(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMiddleDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMiddleUp(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMiddleDoubleClick(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseMove(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnMouseWheel(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnCaptureChanged(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
    LRESULT OnKeyDown(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    /// What changes in the drawing is seen, whoever changed it: previews tell nobody else.
    void PaintAnew();
    void Paint(HDC dc);
    void PaintBox(HDC dc) const;
    void FinishBox(WPARAM keys);
    RECT BoxRect() const;

    static constexpr std::array s_messages{
        fw::OnMessage(WM_PAINT, &DrawingView::OnPaint),
        fw::OnMessage(WM_ERASEBKGND, &DrawingView::OnEraseBackground),
        fw::OnMessage(WM_SIZE, &DrawingView::OnSize),
        fw::OnMessage(WM_LBUTTONDOWN, &DrawingView::OnLeftDown),
        fw::OnMessage(WM_LBUTTONUP, &DrawingView::OnLeftUp),
        fw::OnMessage(WM_MBUTTONDOWN, &DrawingView::OnMiddleDown),
        fw::OnMessage(WM_MBUTTONUP, &DrawingView::OnMiddleUp),
        fw::OnMessage(WM_MBUTTONDBLCLK, &DrawingView::OnMiddleDoubleClick),
        fw::OnMessage(WM_MOUSEMOVE, &DrawingView::OnMouseMove),
        fw::OnMessage(WM_MOUSEWHEEL, &DrawingView::OnMouseWheel),
        fw::OnMessage(WM_CAPTURECHANGED, &DrawingView::OnCaptureChanged),
        fw::OnMessage(WM_KEYDOWN, &DrawingView::OnKeyDown),
    };

    PickHandler m_onPick;
    PointerHandler m_onPointer;
    DisplayList m_list{[this] { PaintAnew(); }};
    ViewTransform m_transform;
    std::vector<KvDbObjectId> m_highlighted;
    std::unordered_set<std::uint64_t> m_highlightedHandles;
    Drag m_drag = Drag::None;
    POINT m_dragStart{};
    POINT m_dragNow{};
    bool m_fitWhenSized = true;
};

}  // namespace kvpalette
