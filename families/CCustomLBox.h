#pragma once

#include "families/CPeListBox.h"
#include "families/EntryTip.h"

/// The list part of a plain drop-down: shows a tip over entries that are too narrow for their text.
class KVPEX_API CCustomLBox : public CPeListBox {
public:
    CCustomLBox();
    ~CCustomLBox() override;

    // CWnd
    BOOL PreTranslateMessage(MSG* message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    EntryTip m_tip;

private:
    LRESULT OnDrawTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
};
