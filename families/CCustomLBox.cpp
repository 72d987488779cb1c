#include "families/CCustomLBox.h"

CCustomLBox::CCustomLBox()
    : CEntryTipListBox({.format = EntryTipPainter::TextFormat, .color = EntryTipPainter::TextColor::OfTips}) {
}

CCustomLBox::~CCustomLBox() = default;

void CCustomLBox::OnChosen() {
    if (m_tip.HasWindow()) {
        m_tip.Forget();
    }
}
