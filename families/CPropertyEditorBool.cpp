#include "families/CPropertyEditorBool.h"

#include <algorithm>
#include <array>

#include "core/CTemporaryResourceOverride.h"
#include "core/ClassCreators.h"
#include "core/ModelessMarks.h"
#include "core/ModuleTexts.h"
#include "core/ObjectIdentity.h"
#include "families/CKvPeComboTempl.h"
#include "families/PredefinedStrings.h"
#include "framework/com/Variant.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/KvEdServices.h"
#include "resources/Ids.h"

namespace {

constexpr int c_trueItem = 0;
constexpr int c_falseItem = 1;
constexpr int c_firstPseudoItem = 2;

// The property that turns the form of a constraint.
constexpr DISPID c_constraintForm = 85;

// The host's classes of constraints whose form it turns.
constexpr std::array<CLSID, 6> c_constraintClasses{{
    {0x0D3897F5, 0xB1C6, 0x44A1, {0xA0, 0xD8, 0x7F, 0x64, 0x5F, 0x6B, 0xB9, 0x80}},
    {0x20A717D1, 0x9D4B, 0x45E2, {0xA3, 0x82, 0xBF, 0xF2, 0x76, 0x04, 0xCB, 0x33}},
    {0xE532BF49, 0xCC98, 0x4FF7, {0xB3, 0x9A, 0x63, 0x0E, 0x14, 0xC4, 0xE5, 0x9B}},
    {0x53D14ED5, 0xFF5E, 0x40BF, {0x90, 0x0C, 0x76, 0xBF, 0x10, 0x47, 0x33, 0x66}},
    {0x9FFB97D4, 0x55B4, 0x42DA, {0x8C, 0x11, 0x9A, 0x61, 0x96, 0xD1, 0x92, 0x06}},
    {0x93C1A226, 0xACA2, 0x4670, {0xB9, 0x2E, 0xF2, 0xE3, 0x35, 0xD7, 0x58, 0x46}},
}};

bool IsConstraint(IUnknown* object) {
    CLSID classId{};
    return object && GetHostClassId(object, classId) &&
           std::any_of(c_constraintClasses.begin(), c_constraintClasses.end(),
                       [&](const CLSID& known) { return ::IsEqualCLSID(known, classId); });
}

// The mark of a change of form, for its scope.
class FormChangeMark {
public:
    explicit FormChangeMark(bool isNeeded) : m_isNeeded(isNeeded) {
        if (m_isNeeded) {
            kvedSendModelessOperationStart(KVPE_MARK_CHANGE_CONSTRAINT_FORM);
        }
    }
    FormChangeMark(const FormChangeMark&) = delete;
    FormChangeMark& operator=(const FormChangeMark&) = delete;
    ~FormChangeMark() {
        if (m_isNeeded) {
            kvedSendModelessOperationEnded(KVPE_MARK_CHANGE_CONSTRAINT_FORM);
        }
    }

private:
    bool m_isNeeded;
};

// A value that is no truth has no entry.
int EntryOfTruth(fw::Variant& value) {
    if (!value.Is(VT_BOOL) && FAILED(value.ChangeType(VT_BOOL))) {
        return -1;
    }
    return value.Get().boolVal != VARIANT_FALSE ? c_trueItem : c_falseItem;
}

}  // namespace

HRESULT CPropertyEditorBool::FillList() {
    RETURN_HR_IF(E_FAIL, !HasList());
    LoadTexts();
    m_pList->ResetContent();
    m_pList->AddString(m_strTrue);
    m_pList->AddString(m_strFalse);
    if (m_allowUnspecified) {
        m_nUnspecifiedItem = m_pList->AddString(GetUnspecifiedString());
    }
    if (m_nVariesItem > 0) {
        m_nVariesItem = m_pList->AddString(VariesText());
    }
    m_pList->SetCurSel(m_nCurItem);
    return S_OK;
}

CString CPropertyEditorBool::GetItemText(int index) {
    LoadTexts();
    if (index > c_falseItem && index == m_nUnspecifiedItem) {
        return GetUnspecifiedString();
    }
    if (index > c_falseItem && index == m_nVariesItem) {
        return VariesText();
    }
    return index == c_trueItem ? m_strTrue : m_strFalse;
}

int CPropertyEditorBool::GetCurrentItem() {
    fw::Variant value;
    ValueType type = ValueType_Specific;
    if (FAILED(GetPropertyValue(value.Address(), type))) {
        return -1;
    }
    SyncUnspecifiedItem();
    if (type == ValueType_Unspecified && m_allowUnspecified) {
        return m_nUnspecifiedItem;
    }
    SyncVariesItem(type);
    if (type == ValueType_Varies) {
        return m_nVariesItem;
    }
    return type == ValueType_Specific ? EntryOfTruth(value) : -1;
}

void CPropertyEditorBool::SyncUnspecifiedItem() {
    if (m_allowUnspecified) {
        if (m_nUnspecifiedItem < 0 && m_nVariesItem == c_firstPseudoItem) {
            ++m_nVariesItem;  // it stands behind the unspecified row
        }
        AddRow(m_nUnspecifiedItem, c_firstPseudoItem);
    } else {
        RemoveRow(m_nUnspecifiedItem);
    }
}

void CPropertyEditorBool::SyncVariesItem(ValueType type) {
    if (type == ValueType_Varies) {
        AddRow(m_nVariesItem, m_allowUnspecified ? c_firstPseudoItem + 1 : c_firstPseudoItem);
    } else {
        RemoveRow(m_nVariesItem);
    }
}

void CPropertyEditorBool::AddRow(int& item, int index) {
    if (item < 0) {
        item = index;
        fw::Ignore(FillList());  // only where there is a window
    }
}

void CPropertyEditorBool::RemoveRow(int& item) {
    if (item < 0) {
        return;
    }
    if (HasList()) {
        m_pList->DeleteString(item);
    }
    if (m_nVariesItem > item) {
        --m_nVariesItem;
    }
    item = -1;
}

HRESULT CPropertyEditorBool::SetSelectedItem(int index) {
    RETURN_HR_IF(E_FAIL, index < 0);
    ValueType type = ValueType_Specific;
    if (index == m_nUnspecifiedItem) {
        type = ValueType_Unspecified;
    } else if (index == m_nVariesItem) {
        type = ValueType_Varies;
    }
    fw::Variant value = fw::Variant::FromBool(index == c_trueItem);
    const FormChangeMark mark(ChangesConstraintForm());
    return SetPropertyValue(value.Address(), type);
}

// Deliberate: constraints redraw themselves by this mark alone, and one of them among the objects is enough.
bool CPropertyEditorBool::ChangesConstraintForm() const {
    if (EntryCount() == 0 || m_dispids[0] != c_constraintForm || kvedIsLivePreviewRecording()) {
        return false;
    }
    for (int index = 0; index < EntryCount(); ++index) {
        const fw::ComPtr<IDispatch> object = m_objects[static_cast<std::size_t>(index)];
        if (IsConstraint(object.Get())) {
            return true;
        }
    }
    return false;
}

void CPropertyEditorBool::LoadTexts() {
    if (!m_strTrue.IsEmpty() || !m_strFalse.IsEmpty() || LoadNamesOfProperty() || LoadStringsOfObject()) {
        return;
    }
    const CTemporaryResourceOverride resources;
    m_strTrue.LoadString(IDS_BOOL_TRUE);
    m_strFalse.LoadString(IDS_BOOL_FALSE);
}

bool CPropertyEditorBool::LoadNamesOfProperty() {
    const auto names =
        fw::QueryFrom<IDynamicPropertyNames>(EntryCount() > 0 ? m_dynamicProperties[0] : nullptr);
    long count = 0;
    if (!names || FAILED(names->GetPropertyNameCount(&count)) || count != 2) {
        return false;
    }
    fw::Bstr nameOfTrue;
    fw::Bstr nameOfFalse;
    if (FAILED(names->GetPropertyName(0, nameOfTrue.Put())) ||
        FAILED(names->GetPropertyName(1, nameOfFalse.Put()))) {
        return false;
    }
    m_strTrue = CString(nameOfTrue.View());
    m_strFalse = CString(nameOfFalse.View());
    return true;
}

bool CPropertyEditorBool::LoadStringsOfObject() {
    const auto browsing = fw::QueryFrom<IPerPropertyBrowsing>(EntryCount() > 0 ? m_objects[0] : nullptr);
    PredefinedStrings strings;
    if (!browsing || FAILED(strings.Read(*browsing.Get(), m_dispids[0])) || strings.Count() < 2) {
        return false;
    }
    m_strTrue = CString(strings.Text(0));
    m_strFalse = CString(strings.Text(1));
    return true;
}

KVPE_DEFINE_CREATOR(CPropertyEditorBool, CKvPeComboTempl<CPropertyEditorBool>)
