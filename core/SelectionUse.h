#pragma once

#include "core/CKvPeCtrlBase.h"

/// Keeps the objects of a control's selection while they are read or written: a host call may end the
/// selection. A reference to each object would cost as much as a sixth of its read.
class CKvPeCtrlBase::SelectionUse {
public:
    explicit SelectionUse(CKvPeCtrlBase& control) : m_control(control) { ++m_control.m_selectionUses; }
    ~SelectionUse() {
        if (--m_control.m_selectionUses == 0) {
            // To let an object go can bring its host to call the control.
            const std::vector<EndedSelection> ended = std::move(m_control.m_endedSelections);
        }
    }
    SelectionUse(const SelectionUse&) = delete;
    SelectionUse& operator=(const SelectionUse&) = delete;

private:
    CKvPeCtrlBase& m_control;
};
