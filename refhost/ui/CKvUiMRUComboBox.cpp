#include "host_sdk/CKvUiMRUComboBox.h"

CKvUiMRUComboBox::CKvUiMRUComboBox() = default;

CKvUiMRUComboBox::~CKvUiMRUComboBox() = default;

void CKvUiMRUComboBox::RecalcHeight() {
    const auto height = static_cast<UINT>(GetRowHeight());
    SetItemHeight(-1, height);
    SetItemHeight(0, height);
}
