#include <algorithm>

#include "benchmarks/BareList.h"
#include "benchmarks/HostedRow.h"
#include "benchmarks/Workloads.h"
#include "core/ChildIds.h"
#include "core/ClassIds.h"
#include "core/PrivateMessages.h"
#include "families/CKvPeComboTempl.h"
#include "host_sdk/KvEdServices.h"
#include "lists/CPropertyEditorLayer.h"
#include "refhost/automation/AutomationObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/Database.h"
#include "refhost/db/Text.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "tests/support/RowFont.h"
#include "tests/support/SelectionArrays.h"

namespace kvbench {
namespace {

constexpr RECT c_row = {0, 0, 180, 20};
constexpr int c_hoveredEntries = 1000;

class LayerRow : public CPropertyEditorLayer {
public:
    using CPropertyEditorLayer::CPropertyEditorLayer;
    using CPropertyEditorLayer::m_pComboList;
};

class LayerShell : public CKvPeComboTempl<LayerRow> {
public:
    LayerRow& Row() { return *Logic(); }
};

}  // namespace
}  // namespace kvbench

template <>
struct KvPeClassIdOf<kvbench::LayerRow> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorLayer; }
};

namespace kvbench {
namespace {

/// A layer row over one text, in a drawing with that many layers.
class LayerRowInHost {
public:
    explicit LayerRowInHost(int layers) : m_document(m_host->Documents().New()) {
        kvhost::Database& drawing = m_document.GetDatabase();
        for (int layer = 1; layer < layers; ++layer) {  // beside the one that each drawing has
            KvDbObjectId id;
            const std::wstring name = L"Layer " + std::to_wstring(layer);
            Require(drawing.AddLayer(name.c_str(), id) == Tolm::eOk, "the drawing takes a layer");
        }
        KvDbObjectId id;
        Require(drawing.AppendEntity(std::make_unique<kvhost::Text>(), id) == Tolm::eOk,
                "the drawing takes a text");
        drawing.Undo().Clear();
        m_hosted = std::make_unique<HostedRow<LayerShell>>();
        ::SetCursorPos(0, 0);  // a list under the pointer chooses what it is over
        m_hosted->Activate();
        m_host->Editor().SetPaletteWindow(KVED_FIRST_PALETTE, ::GetParent(m_hosted->GetShell().m_hWnd));
        m_font = kvtest::MakeRowFont();
        Require(Row().Handle_put_Font(m_font.Get()) == S_OK, "a row takes its font");
        Select(id);
    }

    [[nodiscard]] LayerRow& Row() { return m_hosted->GetShell().Row(); }
    [[nodiscard]] CComboBox& List() { return *Row().m_pComboList; }
    void Open() {
        Require(Row().BeginEdit(c_row) == S_OK, "a row begins its edit");
        DropAndPaint(List().m_hWnd);
    }
    void Close() {
        List().ShowDropDown(FALSE);
        Require(Row().Handle_UIDeactivate() == S_OK, "a row is left");
    }
    void Hover(int entry) {
        BOOL handled = TRUE;
        Row().Handle_OnListHover(WM_KVPE_LIST_HOVER, KVPE_ID_LIST, entry, handled);
        kvtest::PumpWaiting();
    }
    [[nodiscard]] std::vector<std::wstring> Entries() {
        std::vector<std::wstring> entries;
        for (int entry = 0; entry < List().GetCount(); ++entry) {
            entries.push_back(List().GetLBText(entry).Std());
        }
        return entries;
    }

private:
    void Select(KvDbObjectId id) {
        fw::ComPtr<IDispatch> object;
        Require(kvhost::GetAutomationObject(id, object.Put()) == S_OK, "a text has an automation object");
        constexpr LONG c_layer = 102;
        Require(kvtest::SelectionArrays({object.Get()}, c_layer).Init(m_hosted->GetShell()) == S_OK,
                "a row takes the selection");
    }

    kvhost::HostSession m_host;
    kvhost::Document& m_document;
    std::unique_ptr<HostedRow<LayerShell>> m_hosted;
    fw::ComPtr<IFont> m_font;
};

void MeasureOpening(int layers, std::vector<Figure>& figures) {
    LayerRowInHost row(layers);
    row.Open();
    const std::vector<std::wstring> texts = row.Entries();
    Require(static_cast<int>(texts.size()) == layers, "each layer has an entry");
    row.Close();
    BareList bare(BareList::Entries::Sorted, row.Row().FontHandle(), HostedRow<LayerShell>::c_place);
    const auto open = [&] { row.Open(); };
    const auto openDirectly = [&] { bare.Open(texts); };
    const auto closeBoth = [&] {
        bare.Close();
        row.Close();
        kvtest::PumpWaiting();
    };
    figures.push_back(MeasureOnce("open layer list", layers, open, openDirectly, closeBoth));
}

// What a crossed entry costs must not depend on how many were crossed before.
void MeasureHover(std::vector<Figure>& figures) {
    LayerRowInHost row(c_hoveredEntries + 1);
    row.Open();
    const int current = row.List().GetCurSel();
    std::vector<std::size_t> calls;
    kvhost::Journal journal;
    const auto start = std::chrono::steady_clock::now();
    for (int entry = 0; entry <= c_hoveredEntries; ++entry) {
        if (entry != current) {
            journal.Clear();
            row.Hover(entry);
            calls.push_back(journal.Entries().size());
        }
    }
    const std::chrono::duration<double, std::micro> elapsed = std::chrono::steady_clock::now() - start;
    row.Hover(-1);
    row.Close();
    Require(calls.size() > 2 && calls[1] > 0 &&
                std::all_of(calls.begin() + 1, calls.end(), [&](auto count) { return count == calls[1]; }),
            "each crossed entry costs the same host calls");
    figures.push_back({.workload = "hover, per entry",
                       .objects = c_hoveredEntries,
                       .product = elapsed.count() / c_hoveredEntries,
                       .hostCalls = static_cast<int>(calls[1])});
}

}  // namespace

void MeasureLayers(std::span<const int> sizes, std::vector<Figure>& figures) {
    for (const int size : sizes) {
        MeasureOpening(size, figures);
    }
    MeasureHover(figures);
}

}  // namespace kvbench
