#include "core/OleColors.h"

COLORREF ToColorRef(OLE_COLOR color) {
    COLORREF translated = 0;
    return SUCCEEDED(::OleTranslateColor(color, nullptr, &translated)) ? translated : RGB(0, 0, 0);
}

fw::UniqueBrush SolidBrush(OLE_COLOR color) {
    return fw::UniqueBrush(::CreateSolidBrush(ToColorRef(color)));
}
