#include "framework/base/Hresult.h"
#include "framework/com/CComControl.h"

namespace {

HRESULT ReadColor(fw::Variant& value, OLE_COLOR& color) noexcept {
    RETURN_IF_FAILED_EXPECTED(value.ChangeType(VT_I4));
    color = static_cast<OLE_COLOR>(value.Get().lVal);
    return S_OK;
}

}  // namespace

HRESULT CComControl::GetAmbientProperty(DISPID id, VARIANT& value) {
    ::VariantClear(&value);
    const fw::ComPtr<IDispatch> ambient = m_spAmbientDispatch;
    RETURN_HR_IF(E_FAIL, !ambient);
    DISPPARAMS none{};
    return ambient->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr,
                           nullptr);
}

HRESULT CComControl::GetAmbientBackColor(OLE_COLOR& color) {
    fw::Variant value;
    if (SUCCEEDED(GetAmbientProperty(DISPID_AMBIENT_BACKCOLOR, *value.Address()))) {
        return ReadColor(value, color);
    }
    RETURN_HR_IF(E_FAIL, !m_quickAmbients.haveColors);
    color = m_quickAmbients.backColor;
    return S_OK;
}

HRESULT CComControl::GetAmbientForeColor(OLE_COLOR& color) {
    fw::Variant value;
    if (SUCCEEDED(GetAmbientProperty(DISPID_AMBIENT_FORECOLOR, *value.Address()))) {
        return ReadColor(value, color);
    }
    RETURN_HR_IF(E_FAIL, !m_quickAmbients.haveColors);
    color = m_quickAmbients.foreColor;
    return S_OK;
}

HRESULT CComControl::GetAmbientFont(fw::ComPtr<IFont>& font) {
    font.Reset();
    fw::Variant value;
    if (SUCCEEDED(GetAmbientProperty(DISPID_AMBIENT_FONT, *value.Address()))) {
        font = fw::QueryFrom<IFont>(value.Unknown());
    } else {
        font = m_quickAmbients.font;
    }
    return font ? S_OK : E_FAIL;
}
