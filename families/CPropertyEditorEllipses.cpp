#include "families/CPropertyEditorEllipses.h"

#include "core/ChildIds.h"
#include "core/ClassCreators.h"
#include "core/DispatchIds.h"
#include "families/CKvPeButtonEditTempl.h"
#include "families/CKvPeNumericEditorTempl.h"
#include "host_sdk/IKvHyperlinkHost.h"

CPropertyEditorEllipses::CPropertyEditorEllipses(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeButtonEdit(events, shell) {
    m_editBoxReadOnly = true;
}

// The links of one object that cannot be changed can still be followed from their dialog.
bool CPropertyEditorEllipses::ShowsButtonWhenReadOnly() {
    return IsReadOnlyRow() && EntryCount() == 1 && m_dispids[0] == DISPID_DYNAMIC &&
           fw::QueryFrom<IKvHyperlinkHost>(m_objects[0]);
}

HRESULT CPropertyEditorEllipses::BeginEdit(const RECT& bounds) {
    if (m_buttons.IsEmpty()) {
        AddButton(0, 0, KVPE_ID_FIRST_SMALL_BUTTON, ShowsButtonWhenReadOnly());
    }
    return CKvPeButtonEdit::BeginEdit(bounds);
}

KVPE_DEFINE_CREATOR(CPropertyEditorEllipses,
                    CKvPeNumericEditorTempl<CKvPeButtonEditTempl<CPropertyEditorEllipses>>)
