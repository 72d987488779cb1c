#include "refhost/editor/Selection.h"

#include <gtest/gtest.h>

#include <cwchar>

#include "refhost/db/Circle.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/editor/SelectionObserver.h"
#include "refhost/editor/SystemVariables.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using Ids = std::vector<KvDbObjectId>;

std::wstring Hex(KvDbObjectId id) {
    wchar_t text[32];
    std::swprintf(text, std::size(text), L"%llx", static_cast<unsigned long long>(id.handle()));
    return text;
}

class Selection : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(m_database.AddLayer(L"Walls", m_walls), Tolm::eOk);
        ASSERT_EQ(kvhost::ScopedOpen<kvhost::Entity>(m_second, KvDb::kForWrite)->SetLayerId(m_walls),
                  Tolm::eOk);
    }

    void SelectAll() { EXPECT_EQ(m_selection.Select(L"all"), L""); }

    kvhost::HostSession m_session;
    kvhost::Document& m_document = m_session->Documents().New();
    kvhost::Database& m_database = m_document.GetDatabase();
    kvhost::Selection& m_selection = m_document.GetSelection();
    KvDbObjectId m_first = kvtest::AppendNew<kvhost::Line>(m_database);
    KvDbObjectId m_second = kvtest::AppendNew<kvhost::Line>(m_database);
    KvDbObjectId m_third = kvtest::AppendNew<kvhost::Circle>(m_database);
    KvDbObjectId m_walls;
};

TEST_F(Selection, Criteria_PickWhatTheyName) {
    EXPECT_EQ(m_selection.Select(L"all"), L"");
    EXPECT_EQ(m_selection.PickFirst(), (Ids{m_first, m_second, m_third}));
    EXPECT_EQ(m_selection.Select(L"none"), L"");
    EXPECT_TRUE(m_selection.IsEmpty());
    EXPECT_EQ(m_selection.Select(L"class=LINE"), L"");
    EXPECT_EQ(m_selection.PickFirst(), (Ids{m_first, m_second}));
    EXPECT_EQ(m_selection.Select(Hex(m_third)), L"");
    EXPECT_EQ(m_selection.PickFirst(), (Ids{m_first, m_second, m_third})) << "criteria add up";
    m_selection.Clear();
    EXPECT_EQ(m_selection.Select(L"Layer=walls"), L"");
    EXPECT_EQ(m_selection.PickFirst(), Ids{m_second});
    m_selection.Clear();
    EXPECT_EQ(m_selection.Select(Hex(m_third) + L',' + Hex(m_first)), L"");
    EXPECT_EQ(m_selection.PickFirst(), (Ids{m_third, m_first})) << "in the order of the list";
}

TEST_F(Selection, CriteriaThatNameNothing_SaySoAndPickNothing) {
    for (const wchar_t* const criterion : {L"", L"class=Sphere", L"layer=Doors", L"FFFFF", L"1G",
                                           L"everything", L"1,,2", L"0", L"10", L"11111111111111111"}) {
        EXPECT_NE(m_selection.Select(criterion), L"");
        EXPECT_TRUE(m_selection.IsEmpty());
    }
    m_selection.Pick({m_first});
    EXPECT_NE(m_selection.Select(L"class=Sphere"), L"");
    EXPECT_EQ(m_selection.PickFirst(), Ids{m_first});
}

TEST_F(Selection, Pick_LeavesOutDoublesErasedAndOtherObjects) {
    kvhost::Database other;
    const KvDbObjectId foreign = kvtest::AppendNew<kvhost::Line>(other);
    kvhost::ScopedOpen<kvhost::Line>(m_second, KvDb::kForWrite)->Erase();
    m_selection.Pick({m_first, m_second, m_first, m_walls, foreign, {}});
    EXPECT_EQ(m_selection.PickFirst(), Ids{m_first});
}

TEST_F(Selection, ErasedObjects_LeaveAndComeBackWithUndo) {
    SelectAll();
    kvhost::ScopedOpen<kvhost::Line>(m_first, KvDb::kForWrite)->Erase();
    EXPECT_EQ(m_selection.PickFirst(), (Ids{m_second, m_third}));
    m_database.Undo().UndoByUser(1);
    EXPECT_EQ(m_selection.PickFirst(), (Ids{m_first, m_second, m_third}));
}

TEST_F(Selection, Grips_FollowTheirVariables) {
    SelectAll();
    EXPECT_EQ(m_selection.Gripped().size(), 3U);
    EXPECT_EQ(m_selection.GripComputations(), 3U);
    m_session->Variables().Set(L"GRIPOBJLIMIT", 2);
    SelectAll();
    EXPECT_TRUE(m_selection.Gripped().empty()) << "above the limit";
    m_session->Variables().Set(L"GRIPOBJLIMIT", 0);
    SelectAll();
    EXPECT_EQ(m_selection.Gripped().size(), 3U) << "no limit";
    m_session->Variables().Set(L"GRIPS", 0);
    SelectAll();
    EXPECT_TRUE(m_selection.Gripped().empty());
    EXPECT_EQ(m_selection.GripComputations(), 6U);
    EXPECT_EQ(m_selection.PickFirst().size(), 3U);
}

TEST_F(Selection, Set_ComputesGripsWhateverTheLimit) {
    m_session->Variables().Set(L"GRIPOBJLIMIT", 1);
    m_selection.Set({m_first, m_second}, {m_first});
    EXPECT_EQ(m_selection.Gripped(), (Ids{m_first, m_second}));
    EXPECT_EQ(m_selection.PickFirst(), Ids{m_first});
}

TEST_F(Selection, Observers_HearOfEachPick) {
    class Counter final : public kvhost::SelectionObserver {
    public:
        std::vector<std::size_t> counts;
        void SelectionChanged(const kvhost::Selection& selection) override {
            counts.push_back(selection.PickFirst().size());
        }
    };
    Counter counter;
    m_selection.AddObserver(&counter);
    m_selection.AddObserver(&counter);
    SelectAll();
    m_selection.Clear();
    m_selection.RemoveObserver(&counter);
    SelectAll();
    EXPECT_EQ(counter.counts, (std::vector<std::size_t>{3, 0}));
}

}  // namespace
