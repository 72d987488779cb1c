#pragma once

#include "host_sdk/CLzUiComboBox.h"

/// An owner-drawn list whose entries the host measures and draws: their text, in the list's font.
class KVHOST_API CKvUiComboBox : public CLzUiComboBox {
public:
    CKvUiComboBox();
    ~CKvUiComboBox() override;

    /// Height of an entry in the font that the list has, in pixels.
    [[nodiscard]] int GetRowHeight() const;

    // CWnd
    void DrawItem(DRAWITEMSTRUCT* item) override;
    void MeasureItem(MEASUREITEMSTRUCT* item) override;
};
