#include "families/CPropertyEditorText.h"

#include "core/ClassCreators.h"
#include "families/CKvPeEditTempl.h"

KVPE_DEFINE_CREATOR(CPropertyEditorText, CKvPeEditTempl<CPropertyEditorText>)
