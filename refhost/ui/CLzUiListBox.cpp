#include "host_sdk/CLzUiListBox.h"

CLzUiListBox::CLzUiListBox() = default;

CLzUiListBox::~CLzUiListBox() = default;
