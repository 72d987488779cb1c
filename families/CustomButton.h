#pragma once

#include <cstdint>
#include <memory>

#include "families/CPropertyEditorButton.h"
#include "framework/base/Handles.h"
#include "framework/com/ComPtr.h"

/// One small button of a button edit: what it shows, and its window while it has one.
struct CustomButton {
    fw::ComPtr<IPicture> m_pPicture;          // may be null
    fw::ComPtr<IPicture> m_pDisabledPicture;  // may be null
    std::unique_ptr<CPropertyEditorButton> m_pButton;
    std::uint16_t m_nId = 0;  // KVPE_ID_FIRST_SMALL_BUTTON to KVPE_ID_LAST_SMALL_BUTTON
    fw::UniqueBitmap m_hBitmap;
    fw::UniqueBitmap m_hDisabledBitmap;
    bool m_bShowWhenReadOnly = false;

    [[nodiscard]] bool HasWindow() const { return m_pButton && m_pButton->IsWindow(); }
};
