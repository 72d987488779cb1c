#pragma once

#include "families/CPeListBox.h"
#include "families/EntryTip.h"

/// The list part of an owner-drawn drop-down: shows a tip over entries that are too narrow for what they
/// draw.
class KVPEX_API CPeCustomLBox : public CPeListBox {
public:
    CPeCustomLBox();
    ~CPeCustomLBox() override;

    // CWnd
    BOOL PreTranslateMessage(MSG* message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    EntryTip m_tip;

private:
    LRESULT OnDrawTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);
};
