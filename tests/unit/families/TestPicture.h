#pragma once

#include <gtest/gtest.h>

#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"
#include "framework/com/ComPtr.h"

namespace kvtest {

/// A picture of one colour, which owns its bitmap.
inline fw::ComPtr<IPicture> MakePicture(int width, int height, COLORREF color) {
    const fw::WindowDc screen(nullptr);
    fw::UniqueBitmap bitmap(::CreateCompatibleBitmap(screen, width, height));
    {
        const fw::MemoryDc dc(screen);
        const fw::ScopedSelect selected(dc, bitmap.Get());
        const fw::UniqueBrush brush(::CreateSolidBrush(color));
        const RECT all = {0, 0, width, height};
        ::FillRect(dc, &all, brush.Get());
    }
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = bitmap.Release();
    fw::ComPtr<IPicture> picture;
    EXPECT_EQ(::OleCreatePictureIndirect(&description, IID_IPicture, TRUE, picture.PutVoid()), S_OK);
    return picture;
}

inline ULONG ReferencesOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

}  // namespace kvtest
