#include "families/CPropertyEditorEllipsesHyperlinks.h"

#include "core/ChildIds.h"
#include "core/ClassCreators.h"
#include "families/CKvPeButtonEditTempl.h"
#include "families/CKvPeNumericEditorTempl.h"
#include "framework/com/Bstr.h"
#include "host_sdk/ErrorStatus.h"
#include "host_sdk/IKvHyperlinkHost.h"
#include "host_sdk/IPropertyEditability.h"

namespace {

// False where the value has no first link.
bool ReadFirstUrl(IDispatch* value, CString& url) {
    const auto host = fw::QueryFrom<IKvHyperlinkHost>(value);
    fw::ComPtr<IKvHyperlinkCollection> hyperlinks;
    if (!host || FAILED(host->GetHyperlinks(hyperlinks.Put())) || !hyperlinks) {
        return false;
    }
    fw::ComPtr<IKvHyperlink> hyperlink;
    if (FAILED(hyperlinks->GetItem(0, hyperlink.Put())) || !hyperlink) {
        return false;
    }
    fw::Bstr text;
    if (FAILED(hyperlink->GetUrl(text.Put())) || !text.Get()) {
        return false;
    }
    url = text.View();
    return true;
}

bool IsRefusedByFlags(IKvPiPropertyFlags& flags, long dispid) {
    BOOL editable = TRUE;
    try {
        // Deliberate: the result alone counts here. The answer itself has come with the value.
        return flags.Editable(dispid, &editable) != S_OK;
    } catch (const Tolm::ErrorStatus&) {
        return true;  // an object in no state to be asked cannot be edited either
    }
}

}  // namespace

CPropertyEditorEllipsesHyperlinks::CPropertyEditorEllipsesHyperlinks(CIPropEditUIEvents* events,
                                                                     CKvPeBasePrivate* shell)
    : CKvPeButtonEditBase(events, shell) {
    m_editBoxReadOnly = true;
    m_nButtonSide = ButtonSide_Right;
}

void CPropertyEditorEllipsesHyperlinks::AskPropertyFlags() {
    if (EntryCount() == 0) {
        return;
    }
    const auto flags = fw::QueryFrom<IKvPiPropertyFlags>(m_objects[0]);
    if (flags && IsRefusedByFlags(*flags, m_dispids[0])) {
        m_readOnly = TRUE;
    }
}

HRESULT CPropertyEditorEllipsesHyperlinks::Handle_InitEditControl(VARIANT* objects,
                                                                  VARIANT* dynamicProperties,
                                                                  VARIANT* dispids, short readOnly) {
    RETURN_IF_FAILED_EXPECTED(
        CKvPeButtonEditBase::Handle_InitEditControl(objects, dynamicProperties, dispids, readOnly));
    AskPropertyFlags();
    return S_OK;
}

HRESULT CPropertyEditorEllipsesHyperlinks::BeginEdit(const RECT& bounds) {
    if (m_buttons.IsEmpty()) {
        AddButton(0, 0, KVPE_ID_FIRST_SMALL_BUTTON, false);
    }
    return CKvPeButtonEditBase::BeginEdit(bounds);
}

HRESULT CPropertyEditorEllipsesHyperlinks::Handle_Refresh() {
    RETURN_IF_FAILED_EXPECTED(ReadRowText());
    AskPropertyFlags();
    // Deliberate: whatever the object said, the links can be looked at in their dialog after a refresh.
    m_readOnly = FALSE;
    ShowText();
    return S_OK;
}

HRESULT CPropertyEditorEllipsesHyperlinks::PropertySysKeyDown(UINT key, UINT, UINT flags, bool& handled) {
    if (!IsDialogKey(key, flags)) {
        return S_OK;
    }
    handled = true;
    return OnCustomButton(KVPE_ID_FIRST_SMALL_BUTTON);
}

HRESULT CPropertyEditorEllipsesHyperlinks::OnCustomButton(WORD) {
    RunDialogAndGoOn();
    return S_OK;
}

HRESULT CPropertyEditorEllipsesHyperlinks::ComparePropertyValue(VARIANT* first, VARIANT* second,
                                                                int& result) {
    RETURN_HR_IF(E_POINTER, !first || !second);
    if (first->vt != VT_DISPATCH || second->vt != VT_DISPATCH) {
        return CKvPeButtonEditBase::ComparePropertyValue(first, second, result);
    }
    CString firstUrl;
    CString secondUrl;
    const bool hasFirst = ReadFirstUrl(first->pdispVal, firstUrl);
    const bool hasSecond = ReadFirstUrl(second->pdispVal, secondUrl);
    result = hasFirst == hasSecond && firstUrl == secondUrl ? 0 : -1;
    return S_OK;
}

KVPE_DEFINE_CREATOR(CPropertyEditorEllipsesHyperlinks,
                    CKvPeNumericEditorTempl<CKvPeButtonEditTempl<CPropertyEditorEllipsesHyperlinks>>)
