#include "palette/view/DrawingView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "framework/base/DeviceContexts.h"
#include "palette/theme/Scale.h"
#include "palette/theme/Theme.h"
#include "palette/view/DrawingPainter.h"
#include "palette/view/HitTest.h"
#include "refhost/db/Database.h"

namespace kvpalette {

namespace {

constexpr int c_pickReach = 5;
constexpr int c_leastBox = 4;
constexpr double c_wheelStep = 1.25;
constexpr double c_surroundings = 0.75;
constexpr std::size_t c_mostGrippedObjects = 100;
constexpr fw::WindowClass c_viewClass{L"KvPaletteDrawingView", CS_DBLCLKS, fw::ArrowCursor};

}  // namespace

DrawingView::DrawingView(PickHandler onPick, PointerHandler onPointer)
    : m_onPick(std::move(onPick)), m_onPointer(std::move(onPointer)) {
}

DrawingView::~DrawingView() {
    DestroyWindow();
}

bool DrawingView::Create(HWND parent) {
    return CWnd::Create(c_viewClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, {}, parent) != FALSE;
}

void DrawingView::SetDatabase(kvhost::Database* database) {
    m_list.SetDatabase(database);
    m_highlighted.clear();
    m_highlightedHandles.clear();
    ZoomExtents();
}

void DrawingView::SetHighlighted(const std::vector<KvDbObjectId>& ids) {
    m_highlighted = ids;
    m_highlightedHandles.clear();
    for (const KvDbObjectId id : ids) {
        m_highlightedHandles.insert(id.handle());
    }
    Invalidate(FALSE);
}

void DrawingView::ZoomExtents() {
    m_transform.Fit(m_list.Extents());
    m_fitWhenSized = true;
    Invalidate(FALSE);
}

void DrawingView::ZoomHighlighted() {
    kvhost::Bounds bounds;
    for (const KvDbObjectId id : m_highlighted) {
        const Shape* const shape = m_list.Find(id);
        if (shape && !shape->bounds.IsEmpty()) {
            bounds.Add({shape->bounds.left, shape->bounds.bottom, 0});
            bounds.Add({shape->bounds.right, shape->bounds.top, 0});
        }
    }
    if (bounds.IsEmpty()) {
        return;
    }
    m_transform.Fit(bounds);
    // Some of the surroundings tell where the objects lie.
    m_transform.ZoomAt({m_transform.Width() / 2, m_transform.Height() / 2}, c_surroundings);
    m_fitWhenSized = false;
    Invalidate(FALSE);
}

void DrawingView::ZoomBy(double factor) {
    m_transform.ZoomAt({m_transform.Width() / 2, m_transform.Height() / 2}, factor);
    m_fitWhenSized = false;
    Invalidate(FALSE);
}

KvDbObjectId DrawingView::ObjectAt(POINT pixel) {
    const kvhost::Point3 point{m_transform.FromX(pixel.x), m_transform.FromY(pixel.y), 0};
    const double reach = Scaled(c_pickReach) / m_transform.Scale();
    const auto& shapes = m_list.Shapes();
    const auto found = std::find_if(shapes.rbegin(), shapes.rend(),
                                    [&](const Shape& shape) { return IsNear(shape, point, reach); });
    return found == shapes.rend() ? KvDbObjectId() : found->id;
}

std::vector<KvDbObjectId> DrawingView::ObjectsInBox(POINT from, POINT to) {
    kvhost::Bounds box;
    box.Add({m_transform.FromX(from.x), m_transform.FromY(from.y), 0});
    box.Add({m_transform.FromX(to.x), m_transform.FromY(to.y), 0});
    std::vector<KvDbObjectId> ids;
    for (const Shape& shape : m_list.Shapes()) {
        if (IsInBox(shape, box, to.x < from.x)) {
            ids.push_back(shape.id);
        }
    }
    return ids;
}

LRESULT DrawingView::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return fw::DispatchMessage(s_messages, *this, message, wParam, lParam, result)
               ? result
               : CWnd::WindowProc(message, wParam, lParam);
}

LRESULT DrawingView::OnPaint(UINT, WPARAM, LPARAM, BOOL&) {
    const fw::PaintDc target(m_hWnd);
    const CRect client = GetClientRect();
    const fw::MemoryDc memory(target);
    const fw::UniqueBitmap bitmap(::CreateCompatibleBitmap(target, client.Width(), client.Height()));
    if (!bitmap) {
        return 0;
    }
    const fw::ScopedSelect selected(memory, bitmap.Get());
    Paint(memory);
    const RECT& dirty = target.DirtyRect();
    ::BitBlt(target, dirty.left, dirty.top, dirty.right - dirty.left, dirty.bottom - dirty.top, memory,
             dirty.left, dirty.top, SRCCOPY);
    return 0;
}

void DrawingView::PaintAnew() {
    if (IsWindow()) {
        Invalidate(FALSE);
    }
}

void DrawingView::Paint(HDC dc) {
    DrawingPainter painter(dc, m_transform);
    painter.PaintGround();
    painter.PaintShapes(m_list.Shapes(), m_highlightedHandles);
    if (m_highlighted.size() <= c_mostGrippedObjects) {
        for (const KvDbObjectId id : m_highlighted) {
            if (const Shape* const shape = m_list.Find(id)) {
                painter.PaintGrips(*shape);
            }
        }
    }
    if (m_drag == Drag::Box) {
        PaintBox(dc);
    }
}

void DrawingView::PaintBox(HDC dc) const {
    const bool crossing = m_dragNow.x < m_dragStart.x;
    const COLORREF color = crossing ? theme::c_crossingPick : theme::c_windowPick;
    const RECT box = BoxRect();
    const fw::UniquePen pen(::CreatePen(crossing ? PS_DASH : PS_SOLID, 1, color));
    const fw::ScopedSelect selectedPen(dc, pen.Get());
    const fw::ScopedSelect noBrush(dc, ::GetStockObject(NULL_BRUSH));
    ::SetBkMode(dc, TRANSPARENT);
    ::Rectangle(dc, box.left, box.top, box.right + 1, box.bottom + 1);
}

RECT DrawingView::BoxRect() const {
    return {std::min(m_dragStart.x, m_dragNow.x), std::min(m_dragStart.y, m_dragNow.y),
            std::max(m_dragStart.x, m_dragNow.x), std::max(m_dragStart.y, m_dragNow.y)};
}

LRESULT DrawingView::OnEraseBackground(UINT, WPARAM, LPARAM, BOOL&) {
    return 1;
}

LRESULT DrawingView::OnSize(UINT, WPARAM, LPARAM lParam, BOOL&) {
    m_transform.SetWindow(LOWORD(lParam), HIWORD(lParam));
    if (m_fitWhenSized) {
        ZoomExtents();
    }
    return 0;
}

LRESULT DrawingView::OnLeftDown(UINT, WPARAM, LPARAM lParam, BOOL&) {
    SetFocus();
    m_dragStart = CPoint(lParam);
    m_dragNow = m_dragStart;
    m_drag = Drag::Box;
    SetCapture();
    return 0;
}

LRESULT DrawingView::OnLeftUp(UINT, WPARAM wParam, LPARAM lParam, BOOL&) {
    if (m_drag == Drag::Box) {
        m_dragNow = CPoint(lParam);
        m_drag = Drag::None;
        ::ReleaseCapture();
        FinishBox(wParam);
        Invalidate(FALSE);
    }
    return 0;
}

void DrawingView::FinishBox(WPARAM keys) {
    const bool clicked = std::abs(m_dragNow.x - m_dragStart.x) < Scaled(c_leastBox) &&
                         std::abs(m_dragNow.y - m_dragStart.y) < Scaled(c_leastBox);
    const bool extends = (keys & (MK_CONTROL | MK_SHIFT)) != 0;
    std::vector<KvDbObjectId> ids;
    if (!clicked) {
        ids = ObjectsInBox(m_dragStart, m_dragNow);
    } else if (const KvDbObjectId id = ObjectAt(m_dragNow); !id.isNull()) {
        ids.push_back(id);
    }
    m_onPick(ids, !extends ? PickMode::Replace : clicked ? PickMode::Toggle : PickMode::Add);
}

LRESULT DrawingView::OnMiddleDown(UINT, WPARAM, LPARAM lParam, BOOL&) {
    m_dragNow = CPoint(lParam);
    m_drag = Drag::Pan;
    SetCapture();
    return 0;
}

LRESULT DrawingView::OnMiddleUp(UINT, WPARAM, LPARAM, BOOL&) {
    if (m_drag == Drag::Pan) {
        ::ReleaseCapture();
    }
    return 0;
}

LRESULT DrawingView::OnMiddleDoubleClick(UINT, WPARAM, LPARAM, BOOL&) {
    ZoomExtents();
    return 0;
}

LRESULT DrawingView::OnMouseMove(UINT, WPARAM, LPARAM lParam, BOOL&) {
    const CPoint now(lParam);
    if (m_drag == Drag::Pan) {
        m_transform.Pan(static_cast<int>(now.x - m_dragNow.x), static_cast<int>(now.y - m_dragNow.y));
        m_fitWhenSized = false;
    }
    if (m_drag != Drag::None) {
        m_dragNow = now;
        Invalidate(FALSE);
    }
    m_onPointer(m_transform.FromX(now.x), m_transform.FromY(now.y));
    return 0;
}

LRESULT DrawingView::OnMouseWheel(UINT, WPARAM wParam, LPARAM lParam, BOOL&) {
    CPoint point(lParam);
    ScreenToClient(&point);
    const double steps = static_cast<short>(HIWORD(wParam)) / static_cast<double>(WHEEL_DELTA);
    m_transform.ZoomAt(point, std::pow(c_wheelStep, steps));
    m_fitWhenSized = false;
    Invalidate(FALSE);
    return 0;
}

LRESULT DrawingView::OnCaptureChanged(UINT, WPARAM, LPARAM, BOOL&) {
    if (m_drag != Drag::None) {
        m_drag = Drag::None;
        Invalidate(FALSE);
    }
    return 0;
}

LRESULT DrawingView::OnKeyDown(UINT, WPARAM wParam, LPARAM, BOOL& handled) {
    if (wParam == VK_ESCAPE) {
        m_onPick({}, PickMode::Replace);
        return 0;
    }
    handled = FALSE;
    return 0;
}

}  // namespace kvpalette
