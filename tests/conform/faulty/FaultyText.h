#pragma once

#include "families/CKvPeEditBase.h"

/// The text row of the wrong server; what is wrong lies in its shell.
class FaultyText final : public CKvPeEditBase {
public:
    using CKvPeEditBase::CKvPeEditBase;
};
