#pragma once

#include "framework/base/Handles.h"
#include "framework/base/WindowsApi.h"

namespace kvpalette {

/// The program's colours and measures, in one place so that all of its windows agree.
namespace theme {

inline constexpr COLORREF c_accent = RGB(0x1F, 0x6F, 0xC4);
inline constexpr COLORREF c_accentLight = RGB(0xDD, 0xEA, 0xF8);
inline constexpr COLORREF c_frame = RGB(0xEE, 0xF1, 0xF5);
inline constexpr COLORREF c_line = RGB(0xD5, 0xDA, 0xE1);
inline constexpr COLORREF c_softLine = RGB(0xE9, 0xEC, 0xF0);
inline constexpr COLORREF c_heading = RGB(0xF2, 0xF5, 0xF9);
inline constexpr COLORREF c_text = RGB(0x1E, 0x24, 0x2C);
inline constexpr COLORREF c_softText = RGB(0x6B, 0x75, 0x82);
inline constexpr COLORREF c_row = RGB(0xFF, 0xFF, 0xFF);
inline constexpr COLORREF c_readOnlyRow = RGB(0xF7, 0xF8, 0xFA);
inline constexpr COLORREF c_readOnlyText = RGB(0x6B, 0x75, 0x82);

inline constexpr COLORREF c_paper = RGB(0x1B, 0x23, 0x2D);
inline constexpr COLORREF c_paperGrid = RGB(0x25, 0x2F, 0x3B);
inline constexpr COLORREF c_paperAxis = RGB(0x31, 0x3E, 0x4D);
inline constexpr COLORREF c_paperText = RGB(0xE6, 0xEA, 0xEF);
inline constexpr COLORREF c_highlight = RGB(0xFF, 0xA6, 0x2B);
inline constexpr COLORREF c_grip = RGB(0x3D, 0x9B, 0xFF);
inline constexpr COLORREF c_windowPick = RGB(0x5A, 0xA9, 0xFF);
inline constexpr COLORREF c_crossingPick = RGB(0x62, 0xC9, 0x6F);

inline constexpr wchar_t c_fontFace[] = L"Tahoma";
inline constexpr int c_fontHeight = 11;

}  // namespace theme

/// The fonts of the program's own windows.
struct Fonts {
    Fonts();

    fw::UniqueFont plain;
    fw::UniqueFont bold;
    fw::UniqueFont title;
};

/// A font of the program's face. The height is that of the characters in pixels, the angle in tenths of a
/// degree.
[[nodiscard]] fw::UniqueFont MakeFont(int height, bool bold, int angle = 0);

/// Fills without leaving a trace in the context.
void FillColor(HDC dc, const RECT& bounds, COLORREF color);
/// Draws one line of text, shortened with an ellipsis.
void DrawLineOfText(HDC dc, const RECT& bounds, const wchar_t* text, HFONT font, COLORREF color,
                    UINT format = DT_LEFT | DT_VCENTER);

}  // namespace kvpalette
