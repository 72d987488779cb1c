#pragma once

#include "families/CEntryTipListBox.h"

/// The list part of an owner-drawn drop-down.
class KVPEX_API CPeCustomLBox : public CEntryTipListBox {
public:
    CPeCustomLBox();
    ~CPeCustomLBox() override;

protected:
    void OnChosen() override;
};
