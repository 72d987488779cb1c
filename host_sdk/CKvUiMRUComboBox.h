#pragma once

#include "host_sdk/CKvUiComboBox.h"

/// A list of the host's own entries, which fits its rows to the font itself.
class KVHOST_API CKvUiMRUComboBox : public CKvUiComboBox {
public:
    CKvUiMRUComboBox();
    ~CKvUiMRUComboBox() override;

    /// Gives the closed part and the entries the height of the font; to be called when the font has changed.
    void RecalcHeight();
};
