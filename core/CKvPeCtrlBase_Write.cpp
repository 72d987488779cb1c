#include "core/CIPropEditUIEvents.h"
#include "core/CKvPeCtrlBase.h"
#include "core/CKvPeFamilyRole.h"
#include "core/CannotModifyDialog.h"
#include "core/HostDocument.h"
#include "core/ModelessMarks.h"
#include "core/ModuleTexts.h"
#include "core/ObjectWritability.h"
#include "core/SelectionEntry.h"
#include "core/SelectionUse.h"
#include "core/ValueWriter.h"
#include "framework/com/Guarded.h"
#include "framework/com/Variant.h"
#include "framework/window/CWnd.h"
#include "framework/window/MainWindow.h"
#include "host_sdk/IGraphicalObjectUpdate.h"
#include "host_sdk/KvApDocument.h"
#include "host_sdk/KvDbAssoc.h"
#include "host_sdk/KvDbUndoController.h"
#include "host_sdk/KvEdServices.h"

namespace {

// The host's result for a change that it refused as a whole and wants taken back.
constexpr HRESULT c_changeToBeUndone = static_cast<HRESULT>(0x80200149);

bool IsWritableType(ValueType type) {
    return type == ValueType_Specific || type == ValueType_Unspecified || type == ValueType_Expression;
}

// The palette had the activation while its row was edited.
void GiveActivationBack() {
    if (CWnd* const mainWindow = AfxGetMainWnd()) {
        mainWindow->SendMessage(WM_ACTIVATE, WA_ACTIVE, 0);
    }
}

}  // namespace

HRESULT CKvPeCtrlBase::SetPropertyValue(VARIANT* value, ValueType type) {
    RETURN_IF_NULL_POINTER(value);
    RETURN_HR_IF(E_INVALIDARG, !IsWritableType(type));
    if (IsSelectionBlockedByDrag(m_objects.get(), EntryCount())) {
        ShowEditRefusedDialog(*this);
        return E_FAIL;
    }
    PresetControlValue(value);

    m_failedObjectCount = 0;
    ValueWriter writer(*this, *value, type, DatabaseOf(CurrentHostDocument()) != nullptr);
    const SelectionUse use(*this);
    KvDbUndoController* const groupOwner = PrePropertyChangeSetup();
    if (m_events != nullptr) {
        // The objects are written whether or not a sink listens.
        fw::Ignore(m_events->FireBeginPropertyUpdateEvent());
    }
    for (int index = 0; use.IsCurrent() && index < EntryCount(); ++index) {
        writer.Write(EntryAt(index));
    }
    const HRESULT result = writer.Result();
    PostPropertyChangeRestore(result, writer.SawLockedObject(), groupOwner);
    if (SUCCEEDED(result)) {
        // The record is a copy for the palette; the write does not depend on it.
        fw::Ignore(fw::Guarded([&] { return TellPaletteNewValue(*value); }));
    }
    if (m_events != nullptr) {
        // The write is done; a sink that fails does not undo it.
        fw::Ignore(m_events->FireEndPropertyUpdateEvent());
    }
    return result;
}

KvDbUndoController* CKvPeCtrlBase::PrePropertyChangeSetup() {
    if (kvedIsLivePreviewStarted()) {
        return nullptr;
    }
    kvedSendModelessOperationStart(KVPE_MARK_CHANGE_PROPERTY);
    KvDbUndoController* const controller = UndoControllerOf(DatabaseOf(CurrentHostDocument()));
    if (controller == nullptr) {
        return nullptr;
    }
    // Without a group the change is undone object by object, but made all the same.
    const bool hasBegun = controller->undoGroup(KVDB_UNDO_GROUP_BEGIN, UndoPropertyChangeText()) == Tolm::eOk;
    return hasBegun ? controller : nullptr;
}

void CKvPeCtrlBase::PostPropertyChangeRestore(long result, bool sawLockedObject,
                                              KvDbUndoController* groupOwner) {
    if (kvedIsLivePreviewStarted()) {
        return;
    }
    KvApDocument* const document = CurrentHostDocument();
    KvDbDatabase* const database = DatabaseOf(document);
    KvDbUndoController* const current = UndoControllerOf(database);
    // A group is ended where it was begun: another drawing may have become current meanwhile.
    if (KvDbUndoController* const controller = groupOwner != nullptr ? groupOwner : current) {
        // The group is left whatever the controller says.
        fw::Ignore(controller->undoGroup(KVDB_UNDO_GROUP_END, nullptr));
        if (result == c_changeToBeUndone) {
            // The write has failed already; its result goes to the caller.
            fw::Ignore(undoSSRetain(controller, 1));
        }
    }
    kvedSendModelessOperationEnded(KVPE_MARK_CHANGE_PROPERTY);
    KvDbAssocManager::enableProgressMeter(false, KvString());
    if (document != nullptr && document->isQuiescent()) {
        kvedPostCommandPrompt();
    }
    if (database == nullptr) {
        return;
    }
    if (sawLockedObject) {
        kvedSendModelessOperationEnded(KVPE_MARK_CHANGE_SELECTION);
    } else {
        GiveActivationBack();
    }
}

HRESULT CKvPeCtrlBase::TellPaletteNewValue(const VARIANT& value) {
    // What is told can bring the palette to take its record back.
    const fw::ComPtr<IKvPiPropertyIdentifier> record = m_propertyIdentifier;
    RETURN_HR_IF(S_OK, !record || kvedIsLivePreviewStarted());
    fw::Variant copy;
    if (SUCCEEDED(copy.CopyFrom(value))) {
        fw::Ignore(record->PutCurrentValue(copy.Get()));  // the text is told all the same
    }
    CString entryText;
    RETURN_HR_IF(S_OK, m_familyRole == nullptr || !m_familyRole->GetChosenEntryText(entryText));
    const fw::Bstr text(entryText.View());
    return record->PutCurrentValueText(text.Get());
}

HRESULT CKvPeCtrlBase::PreSetPropertyValue(IDispatch*, long) {
    return S_OK;
}

HRESULT CKvPeCtrlBase::PostSetPropertyValue(IDispatch* object) {
    const auto shown = fw::QueryFrom<IGraphicalObjectUpdate>(object);
    return shown ? shown->Update() : S_OK;
}
