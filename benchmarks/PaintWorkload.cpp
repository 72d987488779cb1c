#include <memory>

#include "benchmarks/Drawing.h"
#include "benchmarks/Workloads.h"
#include "families/CPropertyEditorText.h"
#include "families/EditRowPainter.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "tests/support/RowFont.h"

namespace kvbench {
namespace {

constexpr int c_width = 180;
constexpr int c_height = 20;

fw::UniqueBitmap MakeCanvas(HDC dc, void** pixels) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = c_width;
    info.bmiHeader.biHeight = -c_height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    fw::UniqueBitmap canvas(::CreateDIBSection(dc, &info, DIB_RGB_COLORS, pixels, nullptr, 0));
    Require(canvas.Get() != nullptr, "the system makes a canvas");
    return canvas;
}

}  // namespace

// The floor has font and colours in the context already: it is the fill and the text call alone.
void MeasurePainting(Drawing& drawing, std::vector<Figure>& figures) {
    const fw::ComPtr<IFont> font = kvtest::MakeRowFont();
    Require(static_cast<bool>(font), "the system makes a font");
    CPropertyEditorText row(nullptr, nullptr);
    Require(row.Handle_put_Font(font.Get()) == S_OK, "a row takes its font");
    drawing.Select(row, 1, drawing.ContentId());

    const fw::MemoryDc dc(nullptr);
    void* pixels = nullptr;
    const fw::UniqueBitmap canvas = MakeCanvas(dc, &pixels);
    const fw::ScopedSelect selectedCanvas(dc, canvas.Get());
    const fw::ScopedSelect selectedFont(dc, row.FontHandle());
    ::SetBkMode(dc, TRANSPARENT);
    ::SetBkColor(dc, ::GetSysColor(COLOR_WINDOW));
    ::SetTextColor(dc, 0);

    constexpr RECT c_bounds{0, 0, c_width, c_height};
    constexpr RECTL c_drawnBounds{0, 0, c_width, c_height};
    fw::Variant value;
    ValueType type = ValueType_Specific;
    Require(row.GetPropertyValue(value.Address(), type) == S_OK, "a row reads its text");
    const CString text(value.StringView());
    const RECT textRect = EditRowPainter::TextRect(c_bounds, EditRowPainter::LineHeight(dc));

    const auto paint = [&] {
        ATL_DRAWINFO info;
        info.hdcDraw = dc;
        info.prcBounds = &c_drawnBounds;
        Require(row.Handle_OnDraw(info) == S_OK, "a row paints");
    };
    const auto paintDirectly = [&] {
        RECT place = textRect;
        ::ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &c_bounds, nullptr, 0, nullptr);
        ::DrawTextW(dc, text, text.GetLength(), &place, EditRowPainter::TextFormat);
    };

    const auto pixelsOf = [&](const auto& draw) {
        ::PatBlt(dc, 0, 0, c_width, c_height, BLACKNESS);
        draw();
        ::GdiFlush();
        const auto* const first = static_cast<const DWORD*>(pixels);
        return std::vector<DWORD>(first, first + static_cast<std::ptrdiff_t>(c_width) * c_height);
    };
    Require(pixelsOf(paint) == pixelsOf(paintDirectly), "row and floor paint the same");
    figures.push_back(Measure("paint", 0, paint, paintDirectly));
}

}  // namespace kvbench
