#include "families/CPeBaseComboBox.h"

CPeBaseComboBox::~CPeBaseComboBox() = default;

LONG_PTR CPeBaseComboBox::GetItemObject(int) const {
    return -1;
}
