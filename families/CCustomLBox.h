#pragma once

#include "families/CEntryTipListBox.h"

/// The list part of a plain drop-down.
class KVPEX_API CCustomLBox : public CEntryTipListBox {
public:
    CCustomLBox();
    ~CCustomLBox() override;

protected:
    void OnChosen() override;
};
