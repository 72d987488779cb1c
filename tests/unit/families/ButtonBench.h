#pragma once

#include "core/ChildIds.h"
#include "core/ExpressionState.h"
#include "families/CKvPeButtonEdit.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/families/RowBench.h"
#include "tests/unit/families/TestPicture.h"

namespace kvtest {

/// A button edit with its fields and operations open, which notes its clicks.
class OpenButtonRow : public CKvPeButtonEdit {
public:
    using CKvPeButtonEdit::AddButton;
    using CKvPeButtonEdit::CKvPeButtonEdit;
    using CKvPeButtonEdit::EnableButtons;
    using CKvPeButtonEdit::m_bShowButtons;
    using CKvPeButtonEdit::m_buttons;
    using CKvPeButtonEdit::m_expression;
    using CKvPeButtonEdit::m_expressionState;
    using CKvPeButtonEdit::m_nButtonSide;
    using CKvPeButtonEdit::m_numericType;
    using CKvPeButtonEdit::SetButtonBitmaps;
    using CKvPeButtonEdit::SetButtonTip;
    using CKvPeButtonEdit::SetButtonTipId;
    using CKvPeButtonEdit::SetPickMode;

    HRESULT OnCustomButton(WORD id) override {
        Note(L"custom", id);
        return S_OK;
    }
    HRESULT LaunchCalculator() override {
        Note(L"calculator");
        return S_OK;
    }
    HRESULT OnPickButton() override {
        Note(L"pick");
        return S_OK;
    }
};

class ButtonBench : public RowBench<OpenButtonRow> {
protected:
    static constexpr WORD c_first = KVPE_ID_FIRST_SMALL_BUTTON;
    static constexpr WORD c_second = KVPE_ID_FIRST_SMALL_BUTTON + 1;

    ~ButtonBench() override { kvhost::Faults::Reset(); }

    CPropertyEditorButton* Button(int index) { return row->m_buttons[index]->m_pButton.get(); }
    CRect PlaceOf(const CWnd& child) {
        CRect place = child.GetWindowRect();
        window.ScreenToClient(&place);
        return place;
    }
    void Click(WORD id, WORD code = BN_CLICKED) { window.SendMessage(WM_COMMAND, MAKEWPARAM(id, code), 0); }
};

}  // namespace kvtest
