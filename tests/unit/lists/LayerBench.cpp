#include "tests/unit/lists/LayerBench.h"

#include "core/Satellite.h"
#include "host_sdk/KvEdServices.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/Text.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/RowFont.h"
#include "tests/support/RowWarmUp.h"
#include "tests/support/SelectionArrays.h"
#include "tests/support/WarmUp.h"

namespace kvtest {
namespace {

constexpr DISPID c_layerProperty = 102;

const fw::WindowClass s_windowClass{.name = L"KvTestLayerFrame", .style = CS_DBLCLKS};

const LeakCounter s_sites("sites of layer rows", FakeSite::LiveCount);
const LeakCounter s_sinks("sinks of layer rows", RecordingSink::LiveCount);

// Loaded once, as the module does at its attach.
const WarmUpStep s_satellite([] { EXPECT_TRUE(LoadKvPeSatellite(::GetModuleHandleW(nullptr))); });
const WarmUpStep s_rows(&WarmUpRows);

// The system keeps some objects from the first drop-down on.
void WarmUpLists() {
    CWnd frame;
    frame.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 400, 300}, nullptr);
    CComboBox list;
    list.Create(WS_CHILD | WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS, {0, 0, 120, 200},
                frame, 1);
    list.AddString(L"a");
    list.SetFocus();
    list.ShowDropDown();
    PumpWaiting();
    list.ShowDropDown(FALSE);
    list.DestroyWindow();
    frame.DestroyWindow();
    PumpWaiting();
}

const WarmUpStep s_lists(&WarmUpLists);

}  // namespace

LayerBench::LayerBench() {
    document = &host->Documents().New();
    for (const wchar_t* const name : {L"Walls", L"Doors", L"Trees"}) {
        KvDbObjectId id;
        EXPECT_EQ(Drawing().AddLayer(name, id), Tolm::eOk);
    }
    frame.Create(s_windowClass, L"bench", WS_POPUP | WS_VISIBLE, {100, 100, 400, 300}, nullptr);
    ::SetForegroundWindow(frame);
    frame.SetFocus();
    host->Editor().SetPaletteWindow(KVED_FIRST_PALETTE, frame);
    EXPECT_EQ(CComObject<LayerShell>::CreateInstance(nullptr, &shell), S_OK);
    site = FakeSite::Make(frame, c_place);
    sink = RecordingSink::Make();
    EXPECT_EQ(shell->SetClientSite(site.Get()), S_OK);
    fw::ComPtr<IConnectionPoint> point;
    EXPECT_EQ(shell->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), point.Put()), S_OK);
    EXPECT_EQ(point->Advise(sink.Get(), &cookie), S_OK);
    EXPECT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
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
    frame.DestroyWindow();
    PumpWaiting();
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

void LayerBench::Discard() {
    if (shell != nullptr) {
        fw::Ignore(shell->Close(OLECLOSE_NOSAVE));
        fw::Ignore(shell->SetClientSite(nullptr));
        shell->Release();
        shell = nullptr;
    }
}

HRESULT LayerBench::DoVerb(LONG verb) {
    return shell->DoVerb(verb, nullptr, site.Get(), 0, frame, &c_place);
}

void LayerBench::Edit() {
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    Clear();
}

void LayerBench::Clear() {
    PumpWaiting();
    journal.Clear();
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
    return ::SendMessageW(shell->m_hWnd, WM_COMMAND, MAKEWPARAM(1002, code),
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
