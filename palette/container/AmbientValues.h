#pragma once

#include "framework/base/WindowsApi.h"
#include "framework/com/ComPtr.h"

namespace kvpalette {

/// The look that the palette offers its controls as ambient properties.
struct AmbientValues {
    OLE_COLOR foreColor = 0;
    OLE_COLOR backColor = 0;
    OLE_COLOR readOnlyForeColor = 0;
    OLE_COLOR readOnlyBackColor = 0;
    fw::ComPtr<IFont> font;
};

/// The ambient properties of the palette's controls that the platform has no names for.
inline constexpr DISPID c_ambientReadOnlyBackColor = -2000;
inline constexpr DISPID c_ambientReadOnlyForeColor = -2001;

/// Answers a control's question for an ambient property; DISP_E_MEMBERNOTFOUND for one that the palette has
/// not.
[[nodiscard]] HRESULT ReadAmbient(const AmbientValues& values, DISPID id, VARIANT& result);

}  // namespace kvpalette
