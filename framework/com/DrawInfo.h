#pragma once

#include "framework/base/WindowsApi.h"

/// What a control is asked to draw, and where. Nothing of it outlives the call.
struct ATL_DRAWINFO {
    HDC hdcDraw = nullptr;
    LPCRECTL prcBounds = nullptr;   // in the coordinates of hdcDraw; never null
    LPCRECTL prcWBounds = nullptr;  // only for a metafile: its window origin and extent
    HDC hicTargetDev = nullptr;     // device to format for; null: the screen
    DVTARGETDEVICE* ptd = nullptr;  // null: the screen
    DWORD dwDrawAspect = DVASPECT_CONTENT;
    LONG lindex = -1;
};
