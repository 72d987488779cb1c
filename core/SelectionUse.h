#pragma once

#include "core/CKvPeCtrlBase.h"

/// Keeps the objects of a control's selection while they are read or written: a host call may end the
/// selection. A reference to each object would cost as much as a sixth of its read.
class CKvPeCtrlBase::SelectionUse {
public:
    explicit SelectionUse(CKvPeCtrlBase& control) : m_control(control), m_objects(control.m_objects.get()) {
        ++m_control.m_selectionUses;
    }
    ~SelectionUse() {
        if (--m_control.m_selectionUses == 0) {
            // To let an object go can bring its host to call the control.
            const std::vector<EndedSelection> ended = std::move(m_control.m_endedSelections);
        }
    }
    SelectionUse(const SelectionUse&) = delete;
    SelectionUse& operator=(const SelectionUse&) = delete;

    /// False when the control's selection has ended or is another one: what was begun for the one does not go
    /// on to the other.
    [[nodiscard]] bool IsCurrent() const { return m_control.m_objects.get() == m_objects; }

private:
    CKvPeCtrlBase& m_control;
    IDispatch* const* m_objects;
};
