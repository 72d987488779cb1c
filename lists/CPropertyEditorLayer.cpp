// The row's list: its window and its entries.
#include "lists/CPropertyEditorLayer.h"

#include "core/ClassCreators.h"
#include "core/ModuleTexts.h"
#include "core/OleColors.h"
#include "families/CKvPeComboTempl.h"
#include "framework/window/RedrawPause.h"
#include "host_sdk/KvDbDatabase.h"
#include "host_sdk/KvDbHostApplicationServices.h"
#include "host_sdk/KvDbLayerTableRecord.h"
#include "host_sdk/KvEdServices.h"
#include "host_sdk/KvRxClass.h"
#include "lists/CComboLayer.h"
#include "lists/COwnerDrawItemLayer.h"
#include "lists/StateEntries.h"

KVPE_DEFINE_CREATOR(CPropertyEditorLayer, CKvPeComboTempl<CPropertyEditorLayer>)

namespace {

/// Null id while no database works.
KvDbObjectId WorkingLayerTable() {
    const KvDbHostApplicationServices* const services = kvdbHostApplicationServices();
    const KvDbDatabase* const database = services != nullptr ? services->workingDatabase() : nullptr;
    return database != nullptr ? database->layerTableId() : KvDbObjectId();
}

}  // namespace

CPropertyEditorLayer::CPropertyEditorLayer(CIPropEditUIEvents* events, CKvPeBasePrivate* shell)
    : CKvPeSymbolTableBase(events, shell) {
    m_tableId = WorkingLayerTable();
    m_bNeedsActiveDatabase = true;
}

CPropertyEditorLayer::~CPropertyEditorLayer() = default;

HRESULT CPropertyEditorLayer::Cleanup() {
    m_layerList = nullptr;
    return CKvPeSymbolTableBase::Cleanup();
}

HRESULT CPropertyEditorLayer::CreateComboWindow(const RECT& bounds) {
    RETURN_HR_IF(S_OK, HasContainerList());
    RETURN_HR_IF(E_FAIL, !m_tableId.isValid());
    auto list = std::make_unique<CComboLayer>(m_tableId.database());
    RETURN_HR_IF(E_FAIL, !list->Create(bounds, ControlWindow(), CPeComboCustom::SortedStyle));
    list->SetFont(FontHandle());
    m_layerList = list.get();
    KeepContainerList(std::move(list));
    return S_OK;
}

HRESULT CPropertyEditorLayer::EnsureComboWindow() {
    RETURN_HR_IF(S_OK, HasContainerList());
    CRect client;
    RETURN_HR_IF(E_FAIL, ::GetClientRect(ControlWindow(), &client) == FALSE);
    client.MoveTo(0, 0);
    return CreateComboWindow(client);
}

HRESULT CPropertyEditorLayer::BeginEdit(const RECT& bounds) {
    constexpr HRESULT c_noTable = -1;
    RETURN_HR_IF(c_noTable, FAILED(EnsureComboWindow()));
    {
        const fw::RedrawPause pause(*m_pComboList);
        m_pComboList->m_bFilled = false;
        RETURN_HR_IF(c_noTable, FAILED(FillList()));
        SyncStateItems();
        m_pComboList->SetCurSel(m_nCurItem);
    }
    return CKvPeSymbolTableBase::BeginEdit(bounds);
}

std::unique_ptr<COwnerDrawItemLayer> CPropertyEditorLayer::MakeItem() {
    auto item = std::make_unique<COwnerDrawItemLayer>();
    OLE_COLOR text = 0;
    OLE_COLOR ground = 0;
    fw::Ignore(Handle_get_ForeColor(&text));  // the colours are there always
    fw::Ignore(Handle_get_BackColor(&ground));
    item->data = ToColorRef(text);
    item->colour = ToColorRef(ground);
    return item;
}

HRESULT CPropertyEditorLayer::AddRecordItem(KvDbSymbolTableRecord* record) {
    std::unique_ptr<COwnerDrawItemLayer> item = MakeItem();
    const auto* const layer = kvrxCast<KvDbLayerTableRecord>(record);
    RETURN_HR_IF(E_FAIL, layer == nullptr);
    item->hasViewportOverride = HasOverrideInCurrentViewport(*layer);
    // The drawing's own layer setting takes no frozen layer; objects may lie on one.
    const bool editsSetting = EntryCount() == 0 || m_objects[0] == nullptr;
    item->disabled = layer->isDependent() || (editsSetting && layer->isFrozen());
    wchar_t* name = nullptr;
    const bool isNamed = layer->getName(name) == Tolm::eOk;
    const std::unique_ptr<wchar_t[]> owned(name);
    RETURN_HR_IF(E_FAIL, !isNamed);
    item->name = name;
    return m_pComboList->AddItem(std::move(item)) < 0 ? E_FAIL : S_OK;
}

bool CPropertyEditorLayer::HasOverrideInCurrentViewport(const KvDbLayerTableRecord& layer) {
    const KvDbObjectId viewport = kvedGetCurViewportObjectId();
    return !viewport.isNull() && layer.hasOverrides(viewport);
}

void CPropertyEditorLayer::SyncStateItems() {
    StateEntries entries(
        *m_pComboList, [this](const wchar_t* text) { return m_layerList->FindItem(text); },
        [this] { return MakeItem(); });
    entries.SyncVariesItem(m_valueState == ValueType_Varies, VariesText());
    entries.SyncUnspecifiedItem(m_allowUnspecified, m_unspecifiedText);
}

COwnerDrawItemLayer* CPropertyEditorLayer::ItemAt(int index) const {
    return static_cast<COwnerDrawItemLayer*>(COwnerDrawItem::FromRowData(m_pComboList->GetItemObject(index)));
}
