#pragma once

#include "framework/base/CString.h"

/// What the core needs of the family that a control belongs to. Families with an edit box or a list implement
/// it and register it with CKvPeCtrlBase::SetFamilyRole in their constructor.
class CKvPeFamilyRole {
public:
    /// Stores the value in the family's child window, made hidden if there is none, where a running command
    /// reads it.
    virtual void PresetText(const CString& text) = 0;
    virtual void PresetNumber(int number) = 0;
    /// False for a family without entries and while none is chosen.
    [[nodiscard]] virtual bool GetChosenEntryText(CString& text) = 0;

protected:
    ~CKvPeFamilyRole() = default;
};
