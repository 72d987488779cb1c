#include "families/ButtonBitmaps.h"

#include "core/CTemporaryResourceOverride.h"
#include "framework/base/DeviceContexts.h"
#include "framework/base/ModuleState.h"
#include "resources/Ids.h"

namespace {

// The picture's ground becomes the system's face colour.
constexpr UINT c_loadFlags = LR_LOADTRANSPARENT | LR_LOADMAP3DCOLORS;
// Halfway to double size and above, the larger drawing is the better one.
constexpr int c_doubleSizeFrom = 144;

HBITMAP Load(unsigned id) {
    return static_cast<HBITMAP>(
        ::LoadImageW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, c_loadFlags));
}

}  // namespace

fw::UniqueBitmap LoadButtonBitmap(unsigned id, int dotsPerInch) {
    const CTemporaryResourceOverride resources;
    fw::UniqueBitmap bitmap;
    if (dotsPerInch >= c_doubleSizeFrom) {
        bitmap.Reset(Load(id + IDB_DOUBLE_SIZE_OFFSET));
    }
    if (!bitmap) {
        bitmap.Reset(Load(id));
    }
    return bitmap;
}

fw::UniqueBitmap LoadButtonBitmap(unsigned id) {
    const fw::WindowDc screen(nullptr);
    return LoadButtonBitmap(id, ::GetDeviceCaps(screen, LOGPIXELSY));
}

fw::ComPtr<IPicture> MakeButtonPicture(HBITMAP bitmap) {
    fw::ComPtr<IPicture> picture;
    fw::UniqueBitmap copy(static_cast<HBITMAP>(::CopyImage(bitmap, IMAGE_BITMAP, 0, 0, 0)));
    if (!copy) {
        return picture;
    }
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = copy.Get();
    if (SUCCEEDED(::OleCreatePictureIndirect(&description, IID_IPicture, TRUE, picture.PutVoid()))) {
        static_cast<void>(copy.Release());  // the picture owns it now
    }
    return picture;
}
