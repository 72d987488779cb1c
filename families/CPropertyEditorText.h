#pragma once

#include "families/CKvPeEditBase.h"

/// A plain text row.
class CPropertyEditorText : public CKvPeEditBase {
public:
    using CKvPeEditBase::CKvPeEditBase;
};
