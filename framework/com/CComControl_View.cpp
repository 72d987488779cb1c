#include <algorithm>

#include "framework/base/DeviceContexts.h"
#include "framework/base/Hresult.h"
#include "framework/com/CComControl.h"
#include "framework/com/Guarded.h"

namespace {

bool IsMetafile(HDC dc) noexcept {
    const DWORD type = ::GetObjectType(dc);
    return type == OBJ_METADC || type == OBJ_ENHMETADC;
}

/// Turns a context to device pixels, so that controls draw in one unit whatever the container has set.
RECTL UsePixels(HDC dc, const RECTL& bounds) noexcept {
    POINT corners[] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
    ::LPtoDP(dc, corners, 2);
    ::SetMapMode(dc, MM_TEXT);
    ::SetWindowOrgEx(dc, 0, 0, nullptr);
    ::SetViewportOrgEx(dc, 0, 0, nullptr);
    return RECTL{std::min(corners[0].x, corners[1].x), std::min(corners[0].y, corners[1].y),
                 std::max(corners[0].x, corners[1].x), std::max(corners[0].y, corners[1].y)};
}

}  // namespace

HRESULT CComControl::DrawAt(ATL_DRAWINFO& info) {
    const fw::ScopedSaveDc saved(info.hdcDraw);
    // A metafile has no pixels of its own, and a turned context cannot be described by a rectangle.
    if (IsMetafile(info.hdcDraw) || ::GetGraphicsMode(info.hdcDraw) == GM_ADVANCED) {
        return OnDrawAdvanced(info);
    }
    const RECTL pixels = UsePixels(info.hdcDraw, *info.prcBounds);
    info.prcBounds = &pixels;
    return OnDrawAdvanced(info);
}

void CComControl::NotifyViewSink() {
    if (!m_viewSink || !(m_viewAspects & DVASPECT_CONTENT)) {
        return;
    }
    const fw::ComPtr<IAdviseSink> sink = m_viewSink;
    if (m_viewFlags & ADVF_ONLYONCE) {
        m_viewSink.Reset();
    }
    sink->OnViewChange(DVASPECT_CONTENT, -1);
}

// IViewObject

STDMETHODIMP CComControl::Draw(DWORD aspect, LONG index, void*, DVTARGETDEVICE* device, HDC targetDc, HDC dc,
                               LPCRECTL bounds, LPCRECTL metafileBounds, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR),
                               ULONG_PTR) {
    RETURN_HR_IF(DV_E_DVASPECT, aspect != DVASPECT_CONTENT);
    RETURN_HR_IF(DV_E_LINDEX, index != -1);
    RETURN_IF_NULL_POINTER(bounds);
    RETURN_HR_IF(E_INVALIDARG, !dc);
    return fw::Guarded([&] {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        ATL_DRAWINFO info;
        info.hdcDraw = dc;
        info.prcBounds = bounds;
        info.prcWBounds = metafileBounds;
        info.hicTargetDev = targetDc;
        info.ptd = device;
        info.dwDrawAspect = aspect;
        info.lindex = index;
        return DrawAt(info);
    });
}

STDMETHODIMP CComControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** result) {
    RETURN_IF_NULL_POINTER(result);
    *result = nullptr;
    return S_FALSE;
}

STDMETHODIMP CComControl::Freeze(DWORD, LONG, void*, DWORD* cookie) {
    RETURN_IF_NULL_POINTER(cookie);
    *cookie = 0;
    return E_NOTIMPL;
}

STDMETHODIMP CComControl::Unfreeze(DWORD) {
    return OLE_E_NOCONNECTION;
}

STDMETHODIMP CComControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    RETURN_HR_IF(DV_E_DVASPECT, sink && aspects != DVASPECT_CONTENT);
    return fw::Guarded([&] {
        const fw::ComPtr<IUnknown> self(GetUnknown());
        m_viewAspects = sink ? aspects : 0;
        m_viewFlags = sink ? flags : 0;
        m_viewSink = sink;
        if (m_viewFlags & ADVF_PRIMEFIRST) {
            NotifyViewSink();
        }
        return S_OK;
    });
}

STDMETHODIMP CComControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** result) {
    // Each place is optional.
    if (aspects) {
        *aspects = m_viewAspects;
    }
    if (flags) {
        *flags = m_viewFlags;
    }
    return result ? m_viewSink.CopyTo(result) : S_OK;
}

// IViewObject2

STDMETHODIMP CComControl::GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE*, LPSIZEL extent) {
    RETURN_IF_NULL_POINTER(extent);
    *extent = SIZEL{0, 0};
    RETURN_HR_IF(DV_E_LINDEX, index != -1);
    return GetExtent(aspect, extent);
}

// IViewObjectEx

STDMETHODIMP CComControl::GetRect(DWORD aspect, LPRECTL result) {
    RETURN_IF_NULL_POINTER(result);
    *result = RECTL{0, 0, 0, 0};
    RETURN_HR_IF(DV_E_DVASPECT, aspect != DVASPECT_CONTENT);
    *result = RECTL{0, 0, m_sizeExtent.cx, m_sizeExtent.cy};
    return S_OK;
}

STDMETHODIMP CComControl::GetViewStatus(DWORD* status) {
    RETURN_IF_NULL_POINTER(status);
    *status = VIEWSTATUS_OPAQUE;
    return S_OK;
}

STDMETHODIMP CComControl::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* result) {
    RETURN_IF_NULL_POINTER(result);
    *result = HITRESULT_OUTSIDE;
    RETURN_IF_NULL_POINTER(bounds);
    RETURN_HR_IF(DV_E_DVASPECT, aspect != DVASPECT_CONTENT);
    *result = ::PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP CComControl::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT area, LONG, DWORD* result) {
    RETURN_IF_NULL_POINTER(result);
    *result = HITRESULT_OUTSIDE;
    RETURN_IF_NULL_POINTER(bounds);
    RETURN_IF_NULL_POINTER(area);
    RETURN_HR_IF(DV_E_DVASPECT, aspect != DVASPECT_CONTENT);
    RECT common{};
    *result = ::IntersectRect(&common, bounds, area) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
    return S_OK;
}

STDMETHODIMP CComControl::GetNaturalExtent(DWORD aspect, LONG index, DVTARGETDEVICE*, HDC, DVEXTENTINFO* info,
                                           LPSIZEL extent) {
    RETURN_IF_NULL_POINTER(extent);
    *extent = SIZEL{0, 0};
    RETURN_IF_NULL_POINTER(info);
    RETURN_HR_IF(DV_E_DVASPECT, aspect != DVASPECT_CONTENT);
    RETURN_HR_IF(DV_E_LINDEX, index != -1);
    RETURN_HR_IF(E_NOTIMPL, info->dwExtentMode != DVEXTENT_CONTENT);
    *extent = m_sizeNatural;
    return S_OK;
}
