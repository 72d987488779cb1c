#include "refhost/db/PreviewRecord.h"

#include <gtest/gtest.h>

#include <random>

#include "refhost/db/Database.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/ObjectReactor.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Database;
using kvhost::ScopedOpen;
using kvtest::AppendNew;

void Describe(KvDbObjectId id, const wchar_t* text) {
    EXPECT_EQ(ScopedOpen<kvhost::Entity>(id, KvDb::kForWrite)->SetDescription(text), Tolm::eOk);
}

std::wstring DescriptionOf(KvDbObjectId id) {
    return Database::PeekAs<kvhost::Entity>(id)->Description();
}

class PreviewRecord : public testing::Test {
protected:
    /// A change that is only shown.
    void Show(const wchar_t* text) {
        m_preview.BeginRecording();
        Describe(m_line, text);
        m_preview.EndRecording();
    }

    Database m_database;
    kvhost::UndoController& m_undo = m_database.Undo();
    kvhost::PreviewRecord& m_preview = m_undo.Preview();
    KvDbObjectId m_line = AppendNew<kvhost::Line>(m_database);
    std::string m_before = kvhost::QdfContent(m_database);
};

TEST_F(PreviewRecord, ShownChange_IsNoStepOfUndoAndIsTakenBack) {
    const int steps = m_undo.UndoCount();
    const auto stamp = m_undo.StateStamp();
    Show(L"shown");
    EXPECT_EQ(DescriptionOf(m_line), L"shown");
    EXPECT_TRUE(m_preview.IsShown());
    EXPECT_EQ(m_undo.UndoCount(), steps);
    EXPECT_EQ(m_undo.StateStamp(), stamp) << "the drawing does not count as changed";
    m_preview.TakeBack();
    EXPECT_FALSE(m_preview.IsShown());
    EXPECT_EQ(kvhost::QdfContent(m_database), m_before);
    m_preview.TakeBack();
    EXPECT_EQ(kvhost::QdfContent(m_database), m_before);
}

TEST_F(PreviewRecord, SecondRecording_AddsToTheFirst) {
    const KvDbObjectId other = AppendNew<kvhost::Line>(m_database);
    m_before = kvhost::QdfContent(m_database);
    Show(L"first");
    Show(L"second");
    m_preview.BeginRecording();
    Describe(other, L"third");
    m_preview.EndRecording();
    m_preview.TakeBack();
    EXPECT_EQ(kvhost::QdfContent(m_database), m_before);
}

TEST_F(PreviewRecord, TakeBackAmidRecording_Waits) {
    m_preview.BeginRecording();
    Describe(m_line, L"shown");
    m_preview.TakeBack();
    EXPECT_EQ(DescriptionOf(m_line), L"shown");
    m_preview.EndRecording();
    m_preview.TakeBack();
    EXPECT_EQ(DescriptionOf(m_line), L"");
}

TEST_F(PreviewRecord, ObjectMadeAndErased_AreTakenBack) {
    m_preview.BeginRecording();
    const KvDbObjectId made = AppendNew<kvhost::Line>(m_database);
    ScopedOpen<kvhost::Line>(m_line, KvDb::kForWrite)->Erase();
    m_preview.EndRecording();
    EXPECT_EQ(m_database.ModelSpaceEntities(), std::vector<KvDbObjectId>{made});
    m_preview.TakeBack();
    EXPECT_EQ(kvhost::QdfContent(m_database), m_before);
    EXPECT_TRUE(Database::Peek(made)->IsErased());
}

TEST_F(PreviewRecord, WriteFromElsewhere_BeginsWithTheTrueState) {
    Show(L"shown");
    {
        const ScopedOpen<kvhost::Line> line(m_line, KvDb::kForWrite);
        EXPECT_EQ(line->Description(), L"");
        EXPECT_EQ(line->SetDescription(L"shown"), Tolm::eOk);
    }
    EXPECT_FALSE(m_preview.IsShown());
    EXPECT_EQ(DescriptionOf(m_line), L"shown") << "the write stays although it equals what was shown";
    EXPECT_EQ(m_undo.UndoByUser(1), Tolm::eOk);
    EXPECT_EQ(kvhost::QdfContent(m_database), m_before);
}

TEST_F(PreviewRecord, UpgradedOpenFromElsewhere_BeginsWithTheTrueState) {
    Show(L"shown");
    const ScopedOpen<kvhost::Line> line(m_line);
    EXPECT_EQ(line->Description(), L"shown");
    EXPECT_EQ(line->UpgradeOpen(), Tolm::eOk);
    EXPECT_EQ(line->Description(), L"");
}

TEST_F(PreviewRecord, NewObjectFromElsewhere_EndsWhatIsShown) {
    Show(L"shown");
    static_cast<void>(AppendNew<kvhost::Line>(m_database));
    EXPECT_EQ(DescriptionOf(m_line), L"");
}

TEST_F(PreviewRecord, GroupAndUndo_EndWhatIsShown) {
    Show(L"shown");
    m_undo.BeginGroup(L"group");
    EXPECT_EQ(DescriptionOf(m_line), L"");
    m_undo.EndGroup();
    Show(L"again");
    EXPECT_EQ(m_undo.UndoByUser(1), Tolm::eOk);
    EXPECT_TRUE(Database::Peek(m_line)->IsErased()) << "undo took the step before the preview";
    EXPECT_EQ(m_undo.RedoByUser(1), Tolm::eOk);
    EXPECT_EQ(kvhost::QdfContent(m_database), m_before);
}

TEST_F(PreviewRecord, ObjectOfAnOpenStep_IsShownAndGoesOnInItsStep) {
    m_undo.Clear();
    m_undo.BeginGroup(L"group");
    Describe(m_line, L"first");
    Show(L"shown");
    m_preview.TakeBack();
    EXPECT_EQ(DescriptionOf(m_line), L"first");
    Describe(m_line, L"second");
    m_undo.EndGroup();
    EXPECT_EQ(DescriptionOf(m_line), L"second");
    EXPECT_EQ(m_undo.Undo(1), Tolm::eOk);
    EXPECT_EQ(kvhost::QdfContent(m_database), m_before);
    EXPECT_EQ(m_undo.Redo(1), Tolm::eOk);
    EXPECT_EQ(DescriptionOf(m_line), L"second");
}

TEST_F(PreviewRecord, WhileRecording_GroupsHaveNoEffectAndUndoIsRefused) {
    const int steps = m_undo.UndoCount();
    m_preview.BeginRecording();
    EXPECT_EQ(m_undo.undoGroup(KVDB_UNDO_GROUP_BEGIN, L"group"), Tolm::eOk);
    Describe(m_line, L"shown");
    EXPECT_EQ(m_undo.undoGroup(KVDB_UNDO_GROUP_END, nullptr), Tolm::eOk);
    EXPECT_EQ(m_undo.undo(1), Tolm::eInvalidInput);
    EXPECT_EQ(m_undo.OpenGroups(), 0);
    m_preview.EndRecording();
    m_preview.TakeBack();
    EXPECT_EQ(m_undo.UndoCount(), steps);
    EXPECT_EQ(kvhost::QdfContent(m_database), m_before);
}

TEST_F(PreviewRecord, TakeBack_TellsReactorsWhenAllIsTrueAgain) {
    class Witness final : public kvhost::ObjectReactor {
    public:
        std::wstring seen = L"not told";
        void Modified(const kvhost::Object& object) override {
            seen = dynamic_cast<const kvhost::Entity&>(object).Description();
        }
    } witness;
    ScopedOpen<kvhost::Line>(m_line)->AddReactor(&witness);
    Show(L"shown");
    EXPECT_EQ(witness.seen, L"shown");
    m_preview.TakeBack();
    EXPECT_EQ(witness.seen, L"");
    ScopedOpen<kvhost::Line>(m_line)->RemoveReactor(&witness);
}

TEST(PreviewRecordAtRandom, AnyShownChanges_AreTakenBackByteForByte) {
    const std::unique_ptr<Database> database = kvtest::MakeSampleDrawing();
    std::mt19937_64 random(11);
    for (int round = 0; round < 200; ++round) {
        for (int edit = 0; edit < 3; ++edit) {
            kvtest::EditAtRandom(*database, random);
        }
        const std::string before = kvhost::QdfContent(*database);
        kvhost::PreviewRecord& preview = database->Undo().Preview();
        preview.BeginRecording();
        for (int edit = 0; edit < 10; ++edit) {
            kvtest::EditAtRandom(*database, random);
        }
        preview.EndRecording();
        preview.TakeBack();
        ASSERT_EQ(kvhost::QdfContent(*database), before) << "round " << round;
    }
}

}  // namespace
