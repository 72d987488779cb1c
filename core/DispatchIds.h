#pragma once

#include "framework/base/WindowsApi.h"

/// Marks a selection entry that is read through its dynamic property.
inline constexpr DISPID DISPID_DYNAMIC = -23;

/// Ambient properties of the palette, and the control's own of the same meaning.
inline constexpr DISPID DISPID_READONLY_BACKCOLOR = -2000;
inline constexpr DISPID DISPID_READONLY_FORECOLOR = -2001;
