#pragma once

#include "families/CPeListBox.h"
#include "families/EntryTip.h"
#include "families/EntryTipPainter.h"

/// A list part that shows a tip over entries that are too narrow for what they show.
class KVPEX_API CEntryTipListBox : public CPeListBox {
public:
    ~CEntryTipListBox() override;

    // CWnd
    BOOL PreTranslateMessage(MSG* message) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// How a tip shows an entry that is a text only.
    struct TextStyle {
        UINT format;
        EntryTipPainter::TextColor color;
    };
    explicit CEntryTipListBox(const TextStyle& textStyle);

    /// A mouse button was let go over the list.
    virtual void OnChosen() = 0;

    EntryTip m_tip;

private:
    LRESULT OnDrawTip(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled);

    TextStyle m_textStyle;
};
