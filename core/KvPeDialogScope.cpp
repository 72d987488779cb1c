#include "core/KvPeDialogScope.h"

#include "core/CIPropEditUIEvents.h"
#include "core/ModelessMarks.h"
#include "framework/base/Hresult.h"
#include "framework/com/Guarded.h"
#include "framework/com/Variant.h"
#include "host_sdk/KvEdServices.h"

KvPeDialogScope::KvPeDialogScope(CIPropEditUIEvents* events, IKvPiPropertyIdentifier* identifier,
                                 const CString& text, int code)
    : m_events(events),
      m_identifier(events != nullptr ? identifier : nullptr),
      m_text(text),
      m_code(static_cast<UINT>(code)) {
    if (!m_identifier) {
        return;
    }
    kvedSendModelessOperationStart(KVPE_MARK_CHANGE_PROPERTY);
    HandTextToPalette();
    // The dialog opens whether or not a sink listens.
    fw::Ignore(m_events->FireBeginModalEvent(m_code));
}

KvPeDialogScope::~KvPeDialogScope() {
    if (!m_identifier) {
        return;
    }
    HandTextToPalette();
    // The dialog is closed already; a sink that fails cannot change that.
    fw::Ignore(m_events->FireEndModalEvent(m_code));
    kvedSendModelessOperationEnded(KVPE_MARK_CHANGE_PROPERTY);
}

void KvPeDialogScope::HandTextToPalette() noexcept {
    // The record is a copy for the palette; the dialog does not depend on it.
    fw::Ignore(fw::Guarded([&] {
        const fw::Variant value = fw::Variant::FromString(m_text.View());
        return m_identifier->PutCurrentValue(value.Get());
    }));
}
