#pragma once

#include "framework/base/CString.h"
#include "framework/com/ComPtr.h"
#include "host_sdk/IKvPiPropertyIdentifier.h"

class CIPropEditUIEvents;

/// Brackets a modal dialog that a control opens on behalf of the palette. Without an identifier nobody is
/// told.
class KvPeDialogScope {
public:
    /// Tells the palette's record the text before the dialog, and the palette that it begins.
    KvPeDialogScope(CIPropEditUIEvents* events, IKvPiPropertyIdentifier* identifier, const CString& text,
                    int code);
    KvPeDialogScope(const KvPeDialogScope&) = delete;
    KvPeDialogScope& operator=(const KvPeDialogScope&) = delete;
    /// Tells the record the text as it stands then, and the palette that the dialog has ended.
    ~KvPeDialogScope();

    void SetText(const CString& text) { m_text = text; }

private:
    void HandTextToPalette() noexcept;

    CIPropEditUIEvents* m_events;  // the shell, which outlives the scope
    fw::ComPtr<IKvPiPropertyIdentifier> m_identifier;
    CString m_text;
    UINT m_code;
};
