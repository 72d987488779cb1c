#include "families/CPropertyEditorSpinnerEnum.h"

#include "core/CIPropEditUIEvents.h"
#include "core/CTemporaryResourceOverride.h"
#include "core/ClassCreators.h"
#include "core/EditState.h"
#include "core/ObjectWritability.h"
#include "families/CKvPeComboTempl.h"
#include "families/KvPeVariantCtrlTempl.h"
#include "framework/base/MessageBox.h"
#include "framework/com/ErrorInfo.h"
#include "framework/com/SafeArray.h"
#include "framework/window/CWnd.h"
#include "framework/window/MainWindow.h"
#include "host_sdk/IPropertyElementAccess.h"
#include "host_sdk/IPropertyElementAccess2.h"
#include "resources/Ids.h"

namespace {

// More would be a bound gone astray: the elements below the lower one are made as well.
constexpr LONG c_highestIndex = 0xFFFFFF;

void ShowRefusal() {
    fw::ErrorInfo error;
    if (!fw::TakeErrorInfo(error)) {
        return;
    }
    CString title;
    {
        const CTemporaryResourceOverride resources;
        title.LoadString(IDS_ELEMENT_NOT_WRITTEN);
    }
    const CWnd* const mainWindow = AfxGetMainWnd();
    fw::ShowMessageBox(mainWindow ? mainWindow->m_hWnd : nullptr, error.description.c_str(), title,
                       MB_ICONEXCLAMATION);
}

}  // namespace

HRESULT CPropertyEditorSpinnerEnum::Cleanup() {
    m_pCookies.clear();
    return CKvPeEnumBase::Cleanup();
}

HRESULT CPropertyEditorSpinnerEnum::SetDwCookies(const VARIANT& cookies) {
    RETURN_HR_IF(E_FAIL, cookies.vt != (VT_ARRAY | VT_I4) || !cookies.parray);
    LONG lower = 0;
    LONG upper = -1;
    RETURN_HR_IF(E_FAIL, ::SafeArrayGetDim(cookies.parray) != 1 ||
                             FAILED(::SafeArrayGetLBound(cookies.parray, 1, &lower)) ||
                             FAILED(::SafeArrayGetUBound(cookies.parray, 1, &upper)));
    RETURN_HR_IF(E_FAIL, lower < 0 || upper < -1 || upper > c_highestIndex);
    std::vector<long> taken(static_cast<std::size_t>(upper) + 1);
    for (LONG index = lower; index <= upper; ++index) {
        RETURN_HR_IF(E_FAIL, FAILED(::SafeArrayGetElement(cookies.parray, &index,
                                                          &taken[static_cast<std::size_t>(index)])));
    }
    m_pCookies = std::move(taken);
    return S_OK;
}

HRESULT CPropertyEditorSpinnerEnum::SetGroupOffset(unsigned long offset) {
    m_nGroupOffset = offset;
    fw::Ignore(Handle_Refresh());  // a failed read keeps what the row shows
    if (const HWND window = ControlWindow()) {
        ::InvalidateRect(window, nullptr, TRUE);
    }
    return S_OK;
}

HRESULT CPropertyEditorSpinnerEnum::SetElementCount(unsigned long count) {
    m_nElementCount = count;
    return S_OK;
}

bool CPropertyEditorSpinnerEnum::GetKey(unsigned& key) const {
    if (m_pCookies.empty()) {
        return false;
    }
    key = static_cast<unsigned>(m_pCookies.front()) + static_cast<unsigned>(m_nGroupOffset);
    return true;
}

int CPropertyEditorSpinnerEnum::GetCurrentItem() {
    const int item = CKvPeEnumBase::GetCurrentItem();
    if (item != -1) {
        return item;
    }
    // The group as a whole has no entry; its element has the entry of its number.
    fw::Variant element;
    return SUCCEEDED(ReadElement(element)) ? element.Get().lVal : -1;
}

HRESULT CPropertyEditorSpinnerEnum::ReadElement(fw::Variant& value) const {
    const fw::ComPtr<IUnknown> asked = FirstAsked();
    unsigned key = 0;
    RETURN_HR_IF(E_FAIL, !asked || !GetKey(key));
    const DISPID dispid = m_dispids[0];
    if (const auto access = asked.As<IPropertyElementAccess2>()) {
        return access->GetElementValue(dispid, FirstObject(), key, value.Put());
    }
    const auto access = asked.As<IPropertyElementAccessOld>();
    return access ? access->GetElementValue(dispid, key, value.Put()) : E_NOINTERFACE;
}

HRESULT CPropertyEditorSpinnerEnum::WriteElement(int item, bool& isWritable) const {
    isWritable = false;
    const fw::ComPtr<IUnknown> asked = FirstAsked();
    unsigned key = 0;
    RETURN_HR_IF(S_OK, !asked || !GetKey(key));
    const auto access = asked.As<IPropertyElementAccess2>();
    const auto plainAccess = access ? nullptr : asked.As<IPropertyElementAccessOld>();
    RETURN_HR_IF(S_OK, !access && !plainAccess);
    isWritable = true;
    const fw::Variant value = fw::Variant::FromLong(item);
    const DISPID dispid = m_dispids[0];
    return access ? access->SetElementValue(dispid, FirstObject(), key, value.Get())
                  : plainAccess->SetElementValue(dispid, key, value.Get());
}

HRESULT CPropertyEditorSpinnerEnum::EndEdit() {
    // Neither a row that is out of edit nor one that is left in the middle of its write has a choice.
    RETURN_HR_IF(S_OK, m_isCommitting);
    const bool wasInEdit = m_state >= EditState_InEdit;
    const int former = m_nCurItem;
    const HRESULT ended = CKvPeEnumBase::EndEdit();
    RETURN_HR_IF(ended, !wasInEdit || !HasList());
    const int choice = m_pList->GetCurSel();
    RETURN_HR_IF(ended, choice == former);
    if (m_events) {
        fw::Ignore(m_events->FireBeginPropertyUpdateEvent());  // a sink that fails stops no write
    }
    const fw::ComPtr<IDispatch> object = FirstObject();
    if (!object || IsObjectWritable(object.Get()) != 0) {
        RETURN_IF_FAILED_EXPECTED(CommitElement(choice));
    }
    TellEndOfUpdate();
    return ended;
}

// Deliberate: the end of the update is told here and once more by EndEdit, as palettes that count them expect
// of a row that has written the property and then its element.
HRESULT CPropertyEditorSpinnerEnum::CommitElement(int choice) {
    bool isWritable = false;
    fw::ClearErrorInfo();
    const HRESULT written = WriteElement(choice, isWritable);
    if (!isWritable) {
        return S_OK;
    }
    TellEndOfUpdate();
    if (FAILED(written)) {
        ShowRefusal();
    }
    return written;
}

void CPropertyEditorSpinnerEnum::TellEndOfUpdate() {
    if (m_events) {
        fw::Ignore(m_events->FireEndPropertyUpdateEvent());  // the write is done
    }
}

KVPE_DEFINE_CREATOR(
    CPropertyEditorSpinnerEnum,
    KvPeVariantCtrlTempl<CPropertyEditorSpinnerEnum, CKvPeComboTempl<CPropertyEditorSpinnerEnum>>)
