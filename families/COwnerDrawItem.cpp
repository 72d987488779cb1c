#include "families/COwnerDrawItem.h"

#include "core/ChildIds.h"
#include "framework/base/DeviceContexts.h"
#include "framework/window/CDC.h"

namespace {

constexpr UINT c_plainFormat = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP;

enum class Ground { Fill, Keep };

void DrawName(const COwnerDrawItem& item, HDC dc, const RECT& bounds, Ground ground) {
    const fw::ScopedSaveDc saved(dc);
    CDC target(dc);
    target.SetBkColor(item.colour);
    if (ground == Ground::Fill) {
        target.ExtTextOut(bounds.left, bounds.top, ETO_OPAQUE, &bounds, CString());
    }
    target.SetTextColor(RGB(0, 0, 0));
    CRect place = bounds;
    target.DrawText(item.name, &place, c_plainFormat);
}

}  // namespace

COwnerDrawItem::COwnerDrawItem() = default;

COwnerDrawItem::~COwnerDrawItem() = default;

void COwnerDrawItem::Draw(HDC dc, const RECT& bounds, UINT, UINT, UINT id) {
    DrawName(*this, dc, bounds, id == KVPE_TEXT_TIP_MARK ? Ground::Keep : Ground::Fill);
}

void COwnerDrawItem::DrawPlain(HDC dc, const RECT& bounds) {
    DrawName(*this, dc, bounds, Ground::Fill);
}
