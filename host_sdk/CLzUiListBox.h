#pragma once

#include "framework/window/CListBox.h"
#include "host_sdk/Export.h"

/// A list in the host's look; as a rule the list part of one of its combo boxes.
class KVHOST_API CLzUiListBox : public CListBox {
public:
    CLzUiListBox();
    ~CLzUiListBox() override;
};
