#include "families/ListPictures.h"

#include <map>

#include "core/CTemporaryResourceOverride.h"
#include "framework/base/Handles.h"
#include "framework/base/ModuleState.h"

HBITMAP ListPicture(UINT id) {
    static std::map<UINT, fw::UniqueBitmap> s_pictures;
    fw::UniqueBitmap& picture = s_pictures[id];
    if (!picture) {
        const CTemporaryResourceOverride resources;
        picture.Reset(::LoadBitmapW(AfxGetResourceHandle(), MAKEINTRESOURCEW(id)));
    }
    return picture.Get();
}
