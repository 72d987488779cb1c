#include "families/CPropertyEditorEnum.h"

#include "core/ClassCreators.h"
#include "families/CKvPeComboTempl.h"

KVPE_DEFINE_CREATOR(CPropertyEditorEnum, CKvPeComboTempl<CPropertyEditorEnum>)
