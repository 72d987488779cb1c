#include "refhost/db/UndoController.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "refhost/db/DrawingFile.h"
#include "refhost/db/Line.h"
#include "refhost/db/Text.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Database;
using kvhost::ScopedOpen;
using kvtest::AppendNew;

void SetDescription(KvDbObjectId id, const wchar_t* text) {
    EXPECT_EQ(ScopedOpen<kvhost::Entity>(id, KvDb::kForWrite)->SetDescription(text), Tolm::eOk);
}

std::wstring DescriptionOf(KvDbObjectId id) {
    return Database::PeekAs<kvhost::Entity>(id)->Description();
}

class UndoController : public testing::Test {
protected:
    Database m_database;
    kvhost::UndoController& m_undo = m_database.Undo();
    KvDbObjectId m_line = AppendNew<kvhost::Line>(m_database);
    KvDbObjectId m_text = AppendNew<kvhost::Text>(m_database);
};

TEST_F(UndoController, Group_IsOneStepWithItsText) {
    m_undo.Clear();
    EXPECT_EQ(m_undo.undoGroup(8, L"Change property"), Tolm::eOk);
    SetDescription(m_line, L"a");
    SetDescription(m_text, L"b");
    SetDescription(m_line, L"c");
    EXPECT_EQ(m_undo.OpenGroups(), 1);
    EXPECT_EQ(m_undo.undoGroup(16, nullptr), Tolm::eOk);
    EXPECT_EQ(m_undo.UndoCount(), 1);
    EXPECT_EQ(m_undo.UndoText(), L"Change property");
    EXPECT_EQ(m_undo.undo(1), Tolm::eOk);
    EXPECT_EQ(DescriptionOf(m_line), L"");
    EXPECT_EQ(DescriptionOf(m_text), L"");
    EXPECT_EQ(m_undo.RedoText(), L"Change property");
    EXPECT_EQ(m_undo.Redo(1), Tolm::eOk);
    EXPECT_EQ(DescriptionOf(m_line), L"c");
    EXPECT_EQ(DescriptionOf(m_text), L"b");
}

TEST_F(UndoController, NestedGroups_AreOneStepOfTheOutermost) {
    m_undo.Clear();
    m_undo.BeginGroup(L"outer");
    m_undo.BeginGroup(L"inner");
    SetDescription(m_line, L"a");
    m_undo.EndGroup();
    SetDescription(m_text, L"b");
    EXPECT_EQ(m_undo.UndoCount(), 0);
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.UndoCount(), 1);
    EXPECT_EQ(m_undo.UndoText(), L"outer");
}

TEST_F(UndoController, ChangeOutsideAnyGroup_IsAStepOfItsOwn) {
    m_undo.Clear();
    SetDescription(m_line, L"a");
    SetDescription(m_line, L"b");
    EXPECT_EQ(m_undo.UndoCount(), 2);
    EXPECT_EQ(m_undo.UndoText(), L"");
    EXPECT_EQ(m_undo.Undo(1), Tolm::eOk);
    EXPECT_EQ(DescriptionOf(m_line), L"a");
}

TEST_F(UndoController, NewChange_ClearsRedo) {
    SetDescription(m_line, L"a");
    m_undo.Undo(1);
    EXPECT_EQ(m_undo.RedoCount(), 1);
    SetDescription(m_text, L"b");
    EXPECT_EQ(m_undo.RedoCount(), 0);
    EXPECT_EQ(m_undo.Redo(1), Tolm::eInvalidInput);
}

TEST_F(UndoController, EmptyGroup_IsTakenBackAloneAndPassedOverByTheUser) {
    SetDescription(m_line, L"a");
    m_undo.BeginGroup(L"refused");
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.UndoText(), L"") << "the text of the step before";
    EXPECT_EQ(m_undo.Undo(1), Tolm::eOk);
    EXPECT_EQ(DescriptionOf(m_line), L"a");
    m_undo.BeginGroup(L"refused again");
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.UndoByUser(1), Tolm::eOk);
    EXPECT_EQ(DescriptionOf(m_line), L"");
    EXPECT_EQ(m_undo.RedoByUser(1), Tolm::eOk);
    EXPECT_EQ(DescriptionOf(m_line), L"a");
}

TEST_F(UndoController, EmptyGroup_LeavesRedo) {
    SetDescription(m_line, L"a");
    m_undo.Undo(1);
    m_undo.BeginGroup(L"refused");
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.RedoByUser(1), Tolm::eOk);
    EXPECT_EQ(DescriptionOf(m_line), L"a");
}

TEST_F(UndoController, GroupThatEndsWhereItBegan_CountsAsEmpty) {
    m_undo.Clear();
    m_undo.BeginGroup(L"there and back");
    SetDescription(m_line, L"a");
    SetDescription(m_line, L"");
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.UndoCount(), 0);
}

TEST_F(UndoController, ObjectThatLeavesItsOldStateAgain_IsKept) {
    m_undo.Clear();
    m_undo.BeginGroup(L"there, back and away");
    SetDescription(m_line, L"a");
    SetDescription(m_line, L"");
    SetDescription(m_line, L"b");
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.UndoCount(), 1);
    m_undo.Undo(1);
    EXPECT_EQ(DescriptionOf(m_line), L"");
}

TEST_F(UndoController, GroupThatEndsWhileAnObjectIsOpen_KnowsWhetherItDiffers) {
    m_undo.Clear();
    const ScopedOpen<kvhost::Line> line(m_line, KvDb::kForWrite);
    m_undo.BeginGroup(L"there and back");
    line->SetDescription(L"a");
    line->SetDescription(L"");
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.UndoCount(), 0);
    m_undo.BeginGroup(L"away");
    line->SetDescription(L"a");
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.UndoCount(), 1);
}

TEST_F(UndoController, StatesOfAnySize_ComeBack) {
    m_undo.Clear();
    const std::wstring large(300000, L'x');
    m_undo.BeginGroup(L"large");
    SetDescription(m_line, large.c_str());
    SetDescription(m_text, L"a");
    m_undo.EndGroup();
    std::vector<KvDbObjectId> lines;
    m_undo.BeginGroup(L"many");
    SetDescription(m_line, L"small");
    for (int count = 0; count < 3000; ++count) {
        lines.push_back(AppendNew<kvhost::Line>(m_database));
        SetDescription(lines.back(), std::to_wstring(count).c_str());
    }
    m_undo.EndGroup();
    m_undo.Undo(1);
    EXPECT_EQ(DescriptionOf(m_line), large);
    EXPECT_TRUE(Database::Peek(lines[2999])->IsErased());
    m_undo.Undo(1);
    EXPECT_EQ(DescriptionOf(m_line), L"");
    m_undo.Redo(2);
    EXPECT_EQ(DescriptionOf(m_line), L"small");
    for (std::size_t index = 0; index < lines.size(); ++index) {
        ASSERT_EQ(DescriptionOf(lines[index]), std::to_wstring(index));
    }
}

TEST_F(UndoController, Undo_RefusesWhatItCantDoAndChangesNothing) {
    m_undo.Clear();
    SetDescription(m_line, L"a");
    SetDescription(m_text, L"b");
    EXPECT_EQ(m_undo.Undo(0), Tolm::eInvalidInput);
    EXPECT_EQ(m_undo.Undo(-1), Tolm::eInvalidInput);
    EXPECT_EQ(m_undo.Undo(3), Tolm::eInvalidInput);
    {
        const ScopedOpen<kvhost::Line> reader(m_line);
        EXPECT_EQ(m_undo.Undo(2), Tolm::eWasOpenForRead);
    }
    {
        const ScopedOpen<kvhost::Line> writer(m_line, KvDb::kForWrite);
        EXPECT_EQ(m_undo.Undo(2), Tolm::eWasOpenForWrite);
    }
    m_undo.BeginGroup(L"open");
    EXPECT_EQ(m_undo.Undo(1), Tolm::eInvalidInput);
    m_undo.EndGroup();
    EXPECT_EQ(DescriptionOf(m_line), L"a");
    EXPECT_EQ(DescriptionOf(m_text), L"b");
}

TEST_F(UndoController, UndoGroup_RefusesOtherCodesAndEndsWithoutBegin) {
    EXPECT_EQ(m_undo.undoGroup(7, L"text"), Tolm::eInvalidInput);
    EXPECT_EQ(m_undo.undoGroup(16, nullptr), Tolm::eInvalidInput);
    EXPECT_EQ(m_undo.undoGroup(8, nullptr), Tolm::eOk);
    EXPECT_EQ(m_undo.undoGroup(16, nullptr), Tolm::eOk);
}

TEST_F(UndoController, GroupBegunWhileAnObjectIsOpen_HasOnlyWhatCameAfter) {
    m_undo.Clear();
    {
        const ScopedOpen<kvhost::Line> line(m_line, KvDb::kForWrite);
        line->SetDescription(L"before");
        m_undo.BeginGroup(L"group");
        line->SetDescription(L"within");
        m_undo.EndGroup();
        line->SetDescription(L"after");
    }
    EXPECT_EQ(m_undo.UndoCount(), 3);
    m_undo.Undo(1);
    EXPECT_EQ(DescriptionOf(m_line), L"within");
    m_undo.Undo(1);
    EXPECT_EQ(DescriptionOf(m_line), L"before");
    m_undo.Undo(1);
    EXPECT_EQ(DescriptionOf(m_line), L"");
}

TEST_F(UndoController, CreationAndErase_AreTakenBack) {
    const std::string before = kvhost::QxfContent(m_database);
    m_undo.BeginGroup(L"replace");
    const KvDbObjectId created = AppendNew<kvhost::Line>(m_database);
    ScopedOpen<kvhost::Line>(m_line, KvDb::kForWrite)->Erase();
    m_undo.EndGroup();
    m_undo.Undo(1);
    EXPECT_TRUE(Database::Peek(created)->IsErased());
    EXPECT_EQ(kvhost::QxfContent(m_database), before);
    m_undo.Redo(1);
    EXPECT_FALSE(Database::Peek(created)->IsErased());
    EXPECT_TRUE(Database::Peek(m_line)->IsErased());
}

TEST_F(UndoController, StateStamp_ComesBackWithTheState) {
    const std::uint64_t before = m_undo.StateStamp();
    SetDescription(m_line, L"a");
    const std::uint64_t after = m_undo.StateStamp();
    EXPECT_NE(after, before);
    m_undo.Undo(1);
    EXPECT_EQ(m_undo.StateStamp(), before);
    m_undo.BeginGroup(L"refused");
    m_undo.EndGroup();
    EXPECT_EQ(m_undo.StateStamp(), before);
    m_undo.RedoByUser(1);
    EXPECT_EQ(m_undo.StateStamp(), after);
    m_undo.Undo(2);
    SetDescription(m_line, L"a");
    EXPECT_NE(m_undo.StateStamp(), after) << "another way to the same text is another state";
    m_undo.Clear();
    EXPECT_NE(m_undo.StateStamp(), before);
}

TEST_F(UndoController, FaultSwitch_RefusesBeginAndUndoButEndsTheGroup) {
    SetDescription(m_line, L"a");
    kvhost::Faults::FailService(L"undo", 0);
    EXPECT_EQ(m_undo.undo(1), Tolm::eInvalidInput);
    EXPECT_EQ(DescriptionOf(m_line), L"a");
    kvhost::Faults::FailService(L"undoGroup", 0);
    EXPECT_EQ(m_undo.undoGroup(8, L"group"), Tolm::eInvalidInput);
    EXPECT_EQ(m_undo.OpenGroups(), 0);
    kvhost::Faults::Reset();
    m_undo.undoGroup(8, L"group");
    kvhost::Faults::FailService(L"undoGroup", 0);
    EXPECT_EQ(m_undo.undoGroup(16, nullptr), Tolm::eInvalidInput);
    EXPECT_EQ(m_undo.OpenGroups(), 0);
    kvhost::Faults::Reset();
}

TEST(UndoOverRandomEdits, EveryStateComesBackByteForByte) {
    for (unsigned seed = 1; seed <= 5; ++seed) {
        std::mt19937_64 random(seed);
        const auto database = kvtest::MakeSampleDrawing();
        kvhost::UndoController& undo = database->Undo();
        std::vector<std::string> states{kvhost::QdfContent(*database)};
        for (int step = 0; step < 60; ++step) {
            const bool grouped = random() % 2 == 0;
            const auto edits = grouped ? random() % 6 : 1;
            if (grouped) {
                undo.BeginGroup(L"edit");
            }
            for (unsigned i = 0; i < edits; ++i) {
                kvtest::EditAtRandom(*database, random);
            }
            if (grouped) {
                undo.EndGroup();
            }
            std::string state = kvhost::QdfContent(*database);
            if (state != states.back()) {
                states.push_back(std::move(state));
            }
        }
        ASSERT_GT(states.size(), 20U);
        ASSERT_EQ(static_cast<std::size_t>(undo.UndoCount()), states.size() - 1) << "seed " << seed;
        std::size_t present = states.size() - 1;
        for (int walk = 0; walk < 200; ++walk) {
            const std::size_t target = random() % states.size();
            if (target < present) {
                ASSERT_EQ(undo.UndoByUser(static_cast<int>(present - target)), Tolm::eOk);
            } else if (target > present) {
                ASSERT_EQ(undo.RedoByUser(static_cast<int>(target - present)), Tolm::eOk);
            }
            present = target;
            ASSERT_EQ(kvhost::QdfContent(*database), states[present]) << "seed " << seed << " walk " << walk;
        }
        EXPECT_EQ(database->OpenCount(), 0);
    }
}

}  // namespace
