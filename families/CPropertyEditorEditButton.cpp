#include "families/CPropertyEditorEditButton.h"

#include "core/ChildIds.h"
#include "core/ClassCreators.h"
#include "families/CKvPeButtonEditTempl.h"
#include "families/CKvPeNumericEditorTempl.h"

HRESULT CPropertyEditorEditButton::BeginEdit(const RECT& bounds) {
    if (m_buttons.IsEmpty()) {
        AddButton(0, 0, KVPE_ID_FIRST_SMALL_BUTTON, false);
    }
    return CKvPeButtonEdit::BeginEdit(bounds);
}

KVPE_DEFINE_CREATOR(CPropertyEditorEditButton,
                    CKvPeNumericEditorTempl<CKvPeButtonEditTempl<CPropertyEditorEditButton>>)
