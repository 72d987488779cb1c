#include "families/CKvPeSymbolTableBase.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host_sdk/KvDbSymbolTableRecord.h"
#include "host_sdk/KvString.h"
#include "refhost/db/Layer.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"

// The walk over a table, its order and what keeps the list.

namespace {

/// Over the layers, in a window that does not sort.
class TableRow final : public CKvPeSymbolTableBase {
public:
    TableRow(KvDbObjectId table, HWND parent) : CKvPeSymbolTableBase(nullptr, nullptr) {
        m_tableId = table;
        auto list = std::make_unique<CComboOwnerDraw>();
        EXPECT_TRUE(list->Create({0, 0, 100, 100}, parent, CPeComboCustom::Style));
        KeepContainerList(std::move(list));
    }
    ~TableRow() override { fw::Ignore(Cleanup()); }
    using CKvPeSymbolTableBase::m_pComboList;
    using CKvPeSymbolTableBase::m_tableId;

    HRESULT prepared = S_OK;
    HRESULT PrepareFill() override { return prepared; }

    [[nodiscard]] std::vector<std::wstring> Entries() const {
        std::vector<std::wstring> entries;
        for (int i = 0; i < m_pComboList->GetCount(); ++i) {
            entries.push_back(m_pComboList->GetLBText(i).Std());
        }
        return entries;
    }
};

using Texts = std::vector<std::wstring>;

class SymbolTableRow : public ::testing::Test {
protected:
    SymbolTableRow() {
        frame.Create(s_class, L"", WS_POPUP, {0, 0, 200, 200}, nullptr);
        for (const wchar_t* const name : {L"b", L"a10", L"B", L"a9", L"Z"}) {
            KvDbObjectId id;
            fw::Ignore(database.AddLayer(name, id) == Tolm::eOk ? S_OK : S_FALSE);
        }
        row = std::make_unique<TableRow>(database.LayerTableId(), frame);
    }
    ~SymbolTableRow() override {
        row.reset();
        frame.DestroyWindow();
        EXPECT_EQ(database.OpenCount(), 0);
    }

    inline static const fw::WindowClass s_class{.name = L"KvTestTable"};
    kvhost::HostSession host;
    kvhost::Database& database = host->Documents().New().GetDatabase();
    CWnd frame;
    std::unique_ptr<TableRow> row;
};

TEST_F(SymbolTableRow, Rows_ComeInTheOrderOfTheHostsComparison) {
    EXPECT_EQ(row->FillList(), S_OK);
    EXPECT_EQ(row->Entries(), (Texts{L"0", L"Z", L"a10", L"a9", L"b"})) << "by code unit, capitals first";
    EXPECT_TRUE(row->m_pComboList->m_bFilled);
}

// The reference host takes no two such names into one table, so that the records come from outside.
TEST_F(SymbolTableRow, NamesThatDifferInCase_KeepTheHostsOrderAndBothRows) {
    std::vector<KvString> names{L"walls", L"Walls", L"WALLS"};
    std::stable_sort(names.begin(), names.end(),
                     [](const KvString& left, const KvString& right) { return left.compare(right) < 0; });
    for (const KvString& name : names) {
        kvhost::Layer layer;
        ASSERT_EQ(layer.SetName(name.GetString()), Tolm::eOk);
        EXPECT_EQ(row->AddRecordItem(&layer), S_OK);
    }
    EXPECT_EQ(row->Entries(), (Texts{L"WALLS", L"Walls", L"walls"}));
}

TEST_F(SymbolTableRow, SecondFill_KeepsTheListAlsoWhenTheTableHasChanged) {
    EXPECT_EQ(row->FillList(), S_OK);
    KvDbObjectId added;
    EXPECT_EQ(database.AddLayer(L"c", added), Tolm::eOk);
    EXPECT_EQ(row->FillList(), S_OK);
    EXPECT_EQ(row->Entries().size(), 5U);
    row->m_pComboList->m_bFilled = false;
    EXPECT_EQ(row->FillList(), S_OK);
    EXPECT_EQ(row->Entries().size(), 6U);
}

TEST_F(SymbolTableRow, OneRecord_IsShown) {
    kvhost::Database& other = host->Documents().New().GetDatabase();
    row->m_tableId = other.LayerTableId();
    EXPECT_EQ(row->FillList(), S_OK);
    EXPECT_EQ(row->Entries(), (Texts{L"0"}));
}

TEST_F(SymbolTableRow, NoTable_Fails) {
    row->m_tableId = {};
    EXPECT_EQ(row->FillList(), E_FAIL);
    EXPECT_FALSE(row->m_pComboList->m_bFilled);
}

TEST_F(SymbolTableRow, ObjectThatIsNoTable_FailsAndCountsAsFilled) {
    row->m_tableId = database.ModelSpaceId();
    EXPECT_EQ(row->FillList(), E_FAIL);
    EXPECT_TRUE(row->m_pComboList->m_bFilled);
    EXPECT_TRUE(row->Entries().empty());
}

TEST_F(SymbolTableRow, PrepareFails_LeavesTheListAsItIs) {
    EXPECT_EQ(row->FillList(), S_OK);
    row->m_pComboList->m_bFilled = false;
    row->prepared = E_OUTOFMEMORY;
    EXPECT_EQ(row->FillList(), E_FAIL);
    EXPECT_EQ(row->Entries().size(), 5U);
    EXPECT_FALSE(row->m_pComboList->m_bFilled);
}

TEST_F(SymbolTableRow, PlainRecordItem_HasTheRecordsName) {
    EXPECT_EQ(row->AddRecordItem(nullptr), E_FAIL);
    EXPECT_EQ(row->FillList(), S_OK);
    EXPECT_EQ(COwnerDrawItem::FromRowData(row->m_pComboList->GetItemObject(1))->name, L"Z");
    EXPECT_EQ(static_cast<CKvPeSymbolTableBase&>(*row).CKvPeSymbolTableBase::PrepareFill(), S_OK);
}

TEST_F(SymbolTableRow, ListGone_Fails) {
    fw::Ignore(row->Cleanup());
    EXPECT_EQ(row->m_pComboList, nullptr);
    EXPECT_EQ(row->FillList(), E_FAIL);
    EXPECT_EQ(row->AddRecordItem(nullptr), E_FAIL);
}

}  // namespace
