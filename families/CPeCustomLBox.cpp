#include "families/CPeCustomLBox.h"

// Deliberate: an entry without an item stands in the middle of its tip here, in the colour of the context,
// and left in the colour of tips in plain lists.
CPeCustomLBox::CPeCustomLBox()
    : CEntryTipListBox(
          {.format = EntryTipPainter::TextFormat | DT_CENTER, .color = EntryTipPainter::TextColor::AsItIs}) {
}

CPeCustomLBox::~CPeCustomLBox() = default;

void CPeCustomLBox::OnChosen() {
    m_tip.Forget();
}
