#pragma once

#include "core/Export.h"
#include "host_sdk/CLzUiListBox.h"

class CKvPeCtrlBase;
class CPeBaseComboBox;

/// The list part of a row's drop-down: tells the row which entry the mouse is over.
class KVPEX_API CPeListBox : public CLzUiListBox {
public:
    CPeListBox();
    ~CPeListBox() override;

    /// The drop-down that this is the list of; it owns or outlives the list. Null for none.
    void SetComboBox(CPeBaseComboBox* comboBox) { m_comboBox = comboBox; }
    [[nodiscard]] CPeBaseComboBox* GetComboBox() const { return m_comboBox; }

    // CWnd
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    /// The row, null while there is none.
    [[nodiscard]] CKvPeCtrlBase* Owner() const;
    /// The entry that a mouse message is about, -1 for none.
    [[nodiscard]] int EntryUnder(const MSG& message) const;

private:
    void TellHover(int entry);

    CPeBaseComboBox* m_comboBox = nullptr;
};
