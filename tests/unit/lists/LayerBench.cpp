#include "tests/unit/lists/LayerBench.h"

#include "core/Satellite.h"
#include "host_sdk/KvEdServices.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/Text.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/ListWarmUp.h"
#include "tests/support/RowFont.h"
#include "tests/support/RowWarmUp.h"
#include "tests/support/SelectionArrays.h"
#include "tests/support/WarmUp.h"

namespace kvtest {
namespace {

constexpr DISPID c_layerProperty = 102;

const LeakCounter s_sites("sites of layer rows", FakeSite::LiveCount);
const LeakCounter s_sinks("sinks of layer rows", RecordingSink::LiveCount);

// Loaded once, as the module does at its attach.
const WarmUpStep s_satellite([] { EXPECT_TRUE(LoadKvPeSatellite(::GetModuleHandleW(nullptr))); });
const WarmUpStep s_rows(&WarmUpRows);
const WarmUpStep s_lists(&WarmUpLists);

}  // namespace

LayerBench::LayerBench() {
    for (const wchar_t* const name : {L"Walls", L"Doors", L"Trees"}) {
        KvDbObjectId id;
        EXPECT_EQ(Drawing().AddLayer(name, id), Tolm::eOk);
    }
    frame.SetFocus();
    host->Editor().SetPaletteWindow(KVED_FIRST_PALETTE, frame);
    Activate();
    font = MakeRowFont();
    EXPECT_TRUE(font);
    EXPECT_EQ(shell->put_Font(font.Get()), S_OK);
    Clear();
}

LayerBench::~LayerBench() {
    Discard();
    EXPECT_EQ(kvhost::LiveObject::Count(), 0);
    for (kvhost::Document* const open : host->Documents().Documents()) {
        EXPECT_EQ(open->GetDatabase().OpenCount(), 0);
    }
}

KvDbObjectId LayerBench::AddEntity(const wchar_t* layer) {
    auto text = std::make_unique<kvhost::Text>();
    EXPECT_EQ(text->SetLayerId(Drawing().LayerNamed(layer)), Tolm::eOk);
    KvDbObjectId id;
    EXPECT_EQ(Drawing().AppendEntity(std::move(text), id), Tolm::eOk);
    return id;
}

HRESULT LayerBench::Select(const std::vector<KvDbObjectId>& entities) {
    std::vector<fw::ComPtr<IDispatch>> objects(entities.size());
    std::vector<IDispatch*> pointers;
    for (std::size_t i = 0; i < entities.size(); ++i) {
        EXPECT_EQ(kvhost::GetAutomationObject(entities[i], objects[i].Put()), S_OK);
        pointers.push_back(objects[i].Get());
    }
    return SelectObjects(pointers, c_layerProperty);
}

HRESULT LayerBench::SelectObjects(const std::vector<IDispatch*>& selection, DISPID property) {
    fw::Ignore(Row().Cleanup());  // a second selection releases no former one
    const HRESULT result = SelectionArrays(selection, property).Init(*shell);
    Clear();
    return result;
}

std::vector<std::wstring> LayerBench::Entries() {
    std::vector<std::wstring> entries;
    for (int i = 0; i < List().GetCount(); ++i) {
        entries.push_back(List().GetLBText(i).Std());
    }
    return entries;
}

COwnerDrawItemLayer& LayerBench::Item(const wchar_t* name) {
    return *static_cast<COwnerDrawItemLayer*>(
        COwnerDrawItem::FromRowData(List().GetItemObject(IndexOf(name))));
}

std::wstring LayerBench::LayerOf(KvDbObjectId entity) const {
    return kvhost::Database::PeekAs<kvhost::Entity>(entity)->LayerName();
}

LRESULT LayerBench::Notify(int code) {
    return ::SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(1002, code),
                          reinterpret_cast<LPARAM>(List().m_hWnd));
}

void LayerBench::Choose(const wchar_t* name) {
    List().SetCurSel(IndexOf(name));
    Notify(CBN_SELENDOK);
    PumpWaiting();
}

void LayerBench::Cancel() {
    Notify(CBN_SELENDCANCEL);
    PumpWaiting();
}

void LayerBench::Hover(int entry) {
    BOOL handled = TRUE;
    Row().Handle_OnListHover(1824, 1002, entry, handled);
    PumpWaiting();
}

}  // namespace kvtest
