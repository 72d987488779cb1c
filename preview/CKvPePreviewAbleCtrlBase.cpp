#include "preview/CKvPePreviewAbleCtrlBase.h"

#include "core/ModelessMarks.h"
#include "host_sdk/KvEdServices.h"
#include "preview/CKvPeComboPreviewAction.h"

CKvPePreviewAbleCtrlBase::~CKvPePreviewAbleCtrlBase() {
    CKvPeComboPreviewAction::ForgetControl(this);
}

long CKvPePreviewAbleCtrlBase::Handle_OnBeginPropertyUpdate(int& handled) {
    if (kvedIsLivePreviewRecording()) {
        kvedSendModelessOperationStart(KVPE_MARK_CHANGE_PROPERTY_PREVIEW);
        handled = 1;
    }
    return S_OK;
}

long CKvPePreviewAbleCtrlBase::Handle_OnEndPropertyUpdate(int& handled) {
    if (kvedIsLivePreviewRecording()) {
        kvedSendModelessOperationEnded(KVPE_MARK_CHANGE_PROPERTY_PREVIEW);
        handled = 1;
    }
    return S_OK;
}
