#include "palette/container/AmbientValues.h"

#include "framework/base/Hresult.h"
#include "framework/com/Variant.h"

namespace kvpalette {

namespace {

// OLE colours travel as VT_I4: every control reads that.
HRESULT PutColor(OLE_COLOR color, VARIANT& result) {
    return fw::Variant::FromLong(static_cast<LONG>(color)).CopyTo(&result);
}

HRESULT PutFlag(bool flag, VARIANT& result) {
    return fw::Variant::FromBool(flag).CopyTo(&result);
}

}  // namespace

HRESULT ReadAmbient(const AmbientValues& values, DISPID id, VARIANT& result) {
    switch (id) {
        case DISPID_AMBIENT_BACKCOLOR:
        case DISPID_BACKCOLOR:
            return PutColor(values.backColor, result);
        case DISPID_AMBIENT_FORECOLOR:
        case DISPID_FORECOLOR:
            return PutColor(values.foreColor, result);
        case c_ambientReadOnlyBackColor:
            return PutColor(values.readOnlyBackColor, result);
        case c_ambientReadOnlyForeColor:
            return PutColor(values.readOnlyForeColor, result);
        case DISPID_AMBIENT_FONT:
        case DISPID_FONT: {
            const auto font = values.font.As<IDispatch>();
            RETURN_HR_IF(DISP_E_MEMBERNOTFOUND, !font);
            return fw::Variant::FromDispatch(font.Get()).CopyTo(&result);
        }
        case DISPID_AMBIENT_LOCALEID:
            return fw::Variant::FromLong(static_cast<LONG>(::GetUserDefaultLCID())).CopyTo(&result);
        case DISPID_AMBIENT_USERMODE:
        case DISPID_AMBIENT_SUPPORTSMNEMONICS:
            return PutFlag(true, result);
        case DISPID_AMBIENT_UIDEAD:
        case DISPID_AMBIENT_MESSAGEREFLECT:
        case DISPID_AMBIENT_SHOWGRABHANDLES:
        case DISPID_AMBIENT_SHOWHATCHING:
        case DISPID_AMBIENT_DISPLAYASDEFAULT:
            return PutFlag(false, result);
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
}

}  // namespace kvpalette
