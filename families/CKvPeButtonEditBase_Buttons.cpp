// The records of the small buttons: their pictures, their windows and their tips.
#include "core/CTemporaryResourceOverride.h"
#include "core/ChildIds.h"
#include "core/ExpressionState.h"
#include "core/OleColors.h"
#include "families/ButtonBitmaps.h"
#include "families/CKvPeButtonEditBase.h"
#include "resources/Ids.h"

namespace {

void LoadPictures(CustomButton& record, UINT bitmapId, UINT disabledBitmapId) {
    if (bitmapId != 0) {
        record.m_hBitmap = LoadButtonBitmap(bitmapId);
    }
    if (disabledBitmapId != 0) {
        record.m_hDisabledBitmap = LoadButtonBitmap(disabledBitmapId);
    }
    if (record.m_hBitmap) {
        record.m_pPicture = MakeButtonPicture(record.m_hBitmap.Get());
    }
    if (record.m_pPicture && record.m_hDisabledBitmap) {
        record.m_pDisabledPicture = MakeButtonPicture(record.m_hDisabledBitmap.Get());
    }
}

// 0 for a mode without a picture.
UINT BitmapOfPickMode(int mode) {
    switch (mode) {
        case ExpressionState_NoExpression:
            return IDB_NO_EXPRESSION;
        case ExpressionState_Mixed:
            return IDB_MIXED_EXPRESSIONS;
        case ExpressionState_Shared:
            return IDB_EXPRESSION;
        default:
            return 0;
    }
}

}  // namespace

void CKvPeButtonEditBase::AddButton(UINT bitmapId, UINT disabledBitmapId, WORD id, bool showWhenReadOnly) {
    auto record = std::make_unique<CustomButton>();
    record->m_nId = id;
    record->m_bShowWhenReadOnly = showWhenReadOnly;
    LoadPictures(*record, bitmapId, disabledBitmapId);
    m_buttons.Add(record.get());
    static_cast<void>(record.release());  // the array's, until DropButtons
}

void CKvPeButtonEditBase::DropButtons() {
    // Out of the row first: a button that loses the focus as it ends finds a row without buttons.
    const auto buttons = m_buttons;
    m_buttons.RemoveAll();
    for (int index = 0; index < buttons.GetSize(); ++index) {
        const std::unique_ptr<CustomButton> record(buttons[index]);
    }
}

void CKvPeButtonEditBase::SetButtonBitmaps(CustomButton& record, UINT bitmapId, UINT disabledBitmapId) {
    record.m_hBitmap.Reset();
    record.m_hDisabledBitmap.Reset();
    record.m_pPicture = nullptr;
    record.m_pDisabledPicture = nullptr;
    LoadPictures(record, bitmapId, disabledBitmapId);
    if (record.m_pButton) {
        record.m_pButton->SetPictures(record.m_pPicture.Get(), record.m_pDisabledPicture.Get());
    }
}

void CKvPeButtonEditBase::SetPickMode(int mode) {
    const UINT bitmapId = BitmapOfPickMode(mode);
    if (bitmapId == 0) {
        return;
    }
    if (CustomButton* const record = FindButton(KVPE_ID_PICK_BUTTON)) {
        SetButtonBitmaps(*record, bitmapId, bitmapId);
    } else {
        AddButton(bitmapId, bitmapId, KVPE_ID_PICK_BUTTON, true);
    }
}

void CKvPeButtonEditBase::SetButtonTip(const CString& text, WORD id) {
    if (text.IsEmpty()) {
        return;
    }
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        const CustomButton* const record = m_buttons[index];
        if (record && record->m_nId == id && record->HasWindow()) {
            record->m_pButton->SetTipText(text);
            return;
        }
    }
}

void CKvPeButtonEditBase::SetButtonTipId(UINT textId) {
    CString text;
    {
        const CTemporaryResourceOverride resources;
        text.LoadString(textId);
    }
    SetButtonTip(text, KVPE_ID_FIRST_SMALL_BUTTON);
}

void CKvPeButtonEditBase::EnableButtons(bool enable) {
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        if (const CustomButton* const record = m_buttons[index]; record && record->HasWindow()) {
            record->m_pButton->Enable(enable);
        }
    }
}

HRESULT CKvPeButtonEditBase::SetNumericDataType(KvPeNumericType type) {
    switch (type) {
        case PE_TOLM_DISTANCE:
        case PE_TOLM_ANGLE:
        case PE_TOLM_NOUNITS:
        case PE_TOLM_RAW_ANGLE:
            m_numericType = type;
            return S_OK;
        default:
            return E_FAIL;
    }
}

HRESULT CKvPeButtonEditBase::SetCalculatorMode(VARIANT_BOOL mode) {
    if (mode == VARIANT_TRUE && m_expressionState == ExpressionState_Unsupported) {
        AddButton(IDB_CALCULATOR, IDB_CALCULATOR_DISABLED, KVPE_ID_CALCULATOR_BUTTON, true);
    }
    if (m_nButtonSide == ButtonSide_None) {
        m_nButtonSide = ButtonSide_Right;
    }
    return S_OK;
}

CustomButton* CKvPeButtonEditBase::FindButton(WORD id) const {
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        if (CustomButton* const record = m_buttons[index]; record && record->m_nId == id) {
            return record;
        }
    }
    return nullptr;
}

CustomButton* CKvPeButtonEditBase::FindVisibleButton(WORD id) const {
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        CustomButton* const record = m_buttons[index];
        if (record && record->m_nId == id && record->HasWindow() && record->m_pButton->IsWindowVisible()) {
            return record;
        }
    }
    return nullptr;
}

CustomButton* CKvPeButtonEditBase::FirstLiveButton() const {
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        if (CustomButton* const record = m_buttons[index]; record && record->HasWindow()) {
            return record;
        }
    }
    return nullptr;
}

// Windows

HRESULT CKvPeButtonEditBase::BringButtonsInLine(int side, bool readOnly) {
    for (int index = 0; index < m_buttons.GetSize(); ++index) {
        CustomButton* const record = m_buttons[index];
        RETURN_HR_IF(E_FAIL, !record);
        const bool belongs = !readOnly || record->m_bShowWhenReadOnly;
        if (!belongs) {
            DropButtonWindow(*record);
        } else if (!record->HasWindow()) {
            RETURN_IF_FAILED_EXPECTED(CreateButton(*record, side));
        }
    }
    return S_OK;
}

void CKvPeButtonEditBase::DropButtonWindow(CustomButton& record) {
    if (m_edit) {
        m_edit->ForgetNextFocusWindow(record.m_pButton.get());
    }
    // Out of the record first: the window may lose the focus as it ends.
    const std::unique_ptr<CPropertyEditorButton> button = std::move(record.m_pButton);
}

HRESULT CKvPeButtonEditBase::CreateButton(CustomButton& record, int side) {
    DropButtonWindow(record);  // what is left of one whose window went with the row's
    auto button =
        std::make_unique<CPropertyEditorButton>(record.m_pPicture.Get(), record.m_pDisabledPicture.Get());
    button->SetOwner(this);
    button->SetButtonSize(side, side);
    button->SetFrameColor(::GetSysColor(COLOR_BTNSHADOW));
    button->SetFaceColor(ToColorRef(m_readOnlyBackColor));
    RETURN_HR_IF(E_FAIL, !button->Create(L"", CPropertyEditorButton::Style, {0, 0, side, side},
                                         ControlWindow(), record.m_nId));
    record.m_pButton = std::move(button);
    return S_OK;
}

// IKvPeButtonEditCtrl

HRESULT CKvPeButtonEditBase::GetDefaultPicture(IPicture** picture) {
    RETURN_IF_NULL_POINTER(picture);
    *picture = nullptr;
    const CustomButton* const first = m_buttons.IsEmpty() ? nullptr : m_buttons[0];
    return first ? first->m_pPicture.CopyTo(picture) : S_OK;
}

HRESULT CKvPeButtonEditBase::SetDefaultPicture(IPicture* picture) {
    if (CustomButton* const first = m_buttons.IsEmpty() ? nullptr : m_buttons[0]) {
        first->m_pPicture = picture;
    }
    return S_OK;
}

HRESULT CKvPeButtonEditBase::GetDisabledPicture(IPicture** picture) {
    RETURN_IF_NULL_POINTER(picture);
    *picture = nullptr;
    const CustomButton* const first = m_buttons.IsEmpty() ? nullptr : m_buttons[0];
    return first ? first->m_pDisabledPicture.CopyTo(picture) : S_OK;
}

HRESULT CKvPeButtonEditBase::SetDisabledPicture(IPicture* picture) {
    if (CustomButton* const first = m_buttons.IsEmpty() ? nullptr : m_buttons[0]) {
        first->m_pDisabledPicture = picture;
    }
    return S_OK;
}
