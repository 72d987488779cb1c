#pragma once

#include "families/CKvPeEnumBase.h"

/// A list row over an enumeration.
class CPropertyEditorEnum : public CKvPeEnumBase {
public:
    using CKvPeEnumBase::CKvPeEnumBase;
};
