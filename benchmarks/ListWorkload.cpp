#include <memory>

#include "benchmarks/BareList.h"
#include "benchmarks/HostedRow.h"
#include "benchmarks/Workloads.h"
#include "core/ClassIds.h"
#include "families/CKvPeComboBase.h"
#include "families/CKvPeComboTempl.h"
#include "families/CPeComboCustom.h"
#include "tests/support/RowFont.h"

namespace kvbench {
namespace {

using Entries = BareList::Entries;

constexpr RECT c_row = {0, 0, 180, 20};
const std::vector<std::wstring> s_noTexts;
const std::vector<std::wstring>* s_texts = &s_noTexts;  // of the list that is measured

/// A list row with the texts above, whose first entry stands for the value.
template <Entries kind>
class BenchRow : public CKvPeComboBase {
public:
    using CKvPeComboBase::CKvPeComboBase;
    using CKvPeComboBase::m_pList;

    HRESULT CreateComboWindow(const RECT& bounds) override {
        if constexpr (kind == Entries::Plain) {
            return CKvPeComboBase::CreateComboWindow(bounds);
        } else {
            RETURN_HR_IF(S_OK, m_pList != nullptr);
            auto list = std::make_unique<CPeComboCustom>();
            RETURN_HR_IF(E_FAIL, !list->Create(bounds, ControlWindow(), CPeComboCustom::Style));
            CPeComboCustom* const mixin = list.get();
            KeepList(std::move(list), mixin);
            return S_OK;
        }
    }

    HRESULT FillList() override {
        m_pList->ResetContent();
        for (const std::wstring& text : *s_texts) {
            if constexpr (kind == Entries::Plain) {
                m_pList->AddString(text.c_str());
            } else {
                auto item = std::make_unique<COwnerDrawItem>();
                item->name = text;
                static_cast<CPeComboCustom&>(*m_pList).AddItem(std::move(item));
            }
        }
        m_pList->SetCurSel(0);
        return S_OK;
    }

    int GetCurrentItem() override { return 0; }
};

template <Entries kind>
class BenchShell : public CKvPeComboTempl<BenchRow<kind>> {
public:
    BenchRow<kind>& Row() { return *this->Logic(); }
};

}  // namespace
}  // namespace kvbench

template <kvbench::BareList::Entries kind>
struct KvPeClassIdOf<kvbench::BenchRow<kind>> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorText; }
};

namespace kvbench {
namespace {

template <Entries kind>
void MeasureKind(const char* workload, std::span<const int> sizes, std::vector<Figure>& figures) {
    HostedRow<BenchShell<kind>> hosted;
    ::SetCursorPos(0, 0);  // a list under the pointer chooses what it is over
    hosted.Activate();
    hosted.Leave();
    BenchRow<kind>& row = hosted.GetShell().Row();
    fw::ComPtr<IFont> font = kvtest::MakeRowFont();
    Require(static_cast<bool>(font), "the system makes a font");
    Require(row.Handle_put_Font(font.Get()) == S_OK, "a row takes its font");
    BareList bare(kind, row.FontHandle(), HostedRow<BenchShell<kind>>::c_place);

    for (const int size : sizes) {
        std::vector<std::wstring> texts;
        for (int entry = 0; entry < size; ++entry) {
            texts.push_back(L"Layer " + std::to_wstring(entry));
        }
        s_texts = &texts;
        const auto open = [&] {
            Require(row.BeginEdit(c_row) == S_OK, "a row begins its edit");
            DropAndPaint(row.m_pList->m_hWnd);
        };
        const auto openDirectly = [&] { bare.Open(texts); };
        const auto closeBoth = [&] {
            bare.Close();
            if (row.m_pList) {
                row.m_pList->ShowDropDown(FALSE);
                Require(row.Handle_UIDeactivate() == S_OK, "a row is left");
            }
            kvtest::PumpWaiting();
        };
        const auto paintTheSame = [&] {
            open();
            const std::vector<DWORD> painted = PixelsOf(ListPartOf(row.m_pList->m_hWnd));
            closeBoth();
            openDirectly();
            const bool same = painted == PixelsOf(ListPartOf(bare.Window()));
            closeBoth();
            return same;
        };
        // Whoever takes the focus in between changes what is painted.
        Require(paintTheSame() || paintTheSame() || paintTheSame(), "row and floor open the same list");
        figures.push_back(MeasureOnce(workload, size, open, openDirectly, closeBoth));
    }
    s_texts = &s_noTexts;
}

}  // namespace

// Row and floor fill, show, drop and paint the list; it is put away again outside of the measured time.
void MeasureLists(std::span<const int> sizes, std::vector<Figure>& figures) {
    MeasureKind<Entries::Plain>("open list", sizes, figures);
    MeasureKind<Entries::OwnerDrawn>("open owner-drawn list", sizes, figures);
}

}  // namespace kvbench
