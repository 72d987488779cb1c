#include "core/ModuleTexts.h"

#include "core/CTemporaryResourceOverride.h"
#include "resources/Ids.h"

namespace {

CString s_variesText;
CString s_unspecifiedText;
CString s_undoText;

}  // namespace

const CString& VariesText() {
    return s_variesText;
}

const CString& DefaultUnspecifiedText() {
    return s_unspecifiedText;
}

void LoadValueTexts() {
    if (!s_variesText.IsEmpty() && !s_unspecifiedText.IsEmpty()) {
        return;
    }
    const CTemporaryResourceOverride resources;
    s_variesText.LoadString(IDS_VARIES_TEXT);
    s_unspecifiedText.LoadString(IDS_UNSPECIFIED_TEXT);
}

const CString& UndoPropertyChangeText() {
    if (s_undoText.IsEmpty()) {
        const CTemporaryResourceOverride resources;
        s_undoText.LoadString(IDS_UNDO_PROPERTY_CHANGE);
    }
    return s_undoText;
}
