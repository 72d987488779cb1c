#include "families/CComboBmp.h"

#include "families/COwnerDrawItemBmp.h"
#include "families/ListPictures.h"
#include "resources/Ids.h"

CComboBmp::CComboBmp() = default;

CComboBmp::~CComboBmp() = default;

void CComboBmp::SetOwnerControl(CKvPeCtrlBase* owner) {
    m_ownerControl = owner;
    SetOwner(owner);
}

int CComboBmp::AddBitmapItem(const CString& name, UINT bitmapId, Picture picture) {
    auto item = std::make_unique<COwnerDrawItemBmp>();
    item->bNoBitmap = picture == Picture::None;
    item->picture.Reset(ListPicture(item->bNoBitmap ? IDB_LIST_NO_PICTURE : bitmapId));
    item->name = name;
    item->data = 0;
    return AddItem(std::move(item));
}
