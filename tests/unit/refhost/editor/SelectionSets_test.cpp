#include "refhost/editor/SelectionSets.h"

#include <gtest/gtest.h>

#include "host_sdk/KvEdSelection.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::SelectionSets;
using Ids = std::vector<KvDbObjectId>;

class SelectionSetServices : public testing::Test {
protected:
    void TearDown() override { EXPECT_EQ(m_session->Sets().Count(), 0U); }

    kvhost::HostSession m_session;
    kvhost::Document& m_document = m_session->Documents().New();
    kvhost::Selection& m_selection = m_document.GetSelection();
    KvDbObjectId m_first = kvtest::AppendNew<kvhost::Line>(m_document.GetDatabase());
    KvDbObjectId m_second = kvtest::AppendNew<kvhost::Line>(m_document.GetDatabase());
};

TEST_F(SelectionSetServices, NoSelection_HasNoFirstSets) {
    resbuf* grips = nullptr;
    resbuf* picked = nullptr;
    EXPECT_EQ(kvedSSGetFirst(&grips, &picked), KVED_RTERROR);
    EXPECT_EQ(grips, nullptr);
    EXPECT_EQ(picked, nullptr);
}

TEST_F(SelectionSetServices, FirstSets_AreCopiesOfTheSelection) {
    m_selection.Pick({m_second, m_first});
    resbuf* grips = nullptr;
    resbuf* picked = nullptr;
    ASSERT_EQ(kvedSSGetFirst(&grips, &picked), KVED_RTNORM);
    ASSERT_NE(grips, nullptr);
    ASSERT_NE(picked, nullptr);
    EXPECT_EQ(picked->restype, KVED_RTPICKS);
    EXPECT_EQ(picked->rbnext, nullptr);
    m_selection.Clear();
    long length = 0;
    EXPECT_EQ(kvedSSLength(picked->resval.rlname, &length), KVED_RTNORM);
    EXPECT_EQ(length, 2);
    kved_name entity{};
    KvDbObjectId id;
    ASSERT_EQ(kvedSSName(picked->resval.rlname, 0, entity), KVED_RTNORM);
    EXPECT_EQ(kvdbGetObjectId(id, entity), Tolm::eOk);
    EXPECT_EQ(id, m_second);
    EXPECT_EQ(kvedSSName(picked->resval.rlname, 2, entity), KVED_RTERROR);
    EXPECT_EQ(kvedSSName(picked->resval.rlname, -1, entity), KVED_RTERROR);
    EXPECT_EQ(kvedSSFree(grips->resval.rlname), KVED_RTNORM);
    EXPECT_EQ(kvedSSFree(picked->resval.rlname), KVED_RTNORM);
    EXPECT_EQ(kvedSSFree(picked->resval.rlname), KVED_RTERROR) << "freed already";
    EXPECT_EQ(kvedSSLength(picked->resval.rlname, &length), KVED_RTERROR);
    EXPECT_EQ(kvutRelRb(grips), KVED_RTNORM);
    EXPECT_EQ(kvutRelRb(picked), KVED_RTNORM);
    EXPECT_EQ(kvutRelRb(nullptr), KVED_RTNORM);
}

TEST_F(SelectionSetServices, Sets_AreMadeAndFilled) {
    kved_name set{};
    kved_name entity{};
    ASSERT_EQ(kvedSSAdd(nullptr, nullptr, set), KVED_RTNORM);
    long length = 7;
    EXPECT_EQ(kvedSSLength(set, &length), KVED_RTNORM);
    EXPECT_EQ(length, 0);
    SelectionSets::NameOf(m_first, entity);
    EXPECT_EQ(kvedSSAdd(entity, set, set), KVED_RTNORM);
    EXPECT_EQ(kvedSSAdd(entity, set, nullptr), KVED_RTNORM) << "twice is once";
    kved_name same{};
    SelectionSets::NameOf(m_second, entity);
    EXPECT_EQ(kvedSSAdd(entity, set, same), KVED_RTNORM);
    EXPECT_EQ(same[1], set[1]);
    EXPECT_EQ(*m_session->Sets().Find(set), (Ids{m_first, m_second}));
    kved_name other{};
    EXPECT_EQ(kvedSSAdd(entity, nullptr, other), KVED_RTNORM);
    EXPECT_EQ(*m_session->Sets().Find(other), Ids{m_second});
    EXPECT_EQ(kvedSSFree(other), KVED_RTNORM);
    EXPECT_EQ(kvedSSFree(set), KVED_RTNORM);
}

TEST_F(SelectionSetServices, WrongNames_AreRefused) {
    kved_name nonsense{17, 4};
    kved_name set{};
    long length = 0;
    KvDbObjectId id = m_first;
    EXPECT_EQ(kvedSSLength(nonsense, &length), KVED_RTERROR);
    EXPECT_EQ(kvedSSLength(nullptr, &length), KVED_RTERROR);
    EXPECT_EQ(kvedSSAdd(nonsense, nullptr, set), KVED_RTERROR);
    EXPECT_EQ(kvedSSAdd(nullptr, nonsense, set), KVED_RTERROR);
    EXPECT_EQ(kvedSSAdd(nullptr, nullptr, nullptr), KVED_RTERROR);
    EXPECT_EQ(kvedSSFree(nonsense), KVED_RTERROR);
    EXPECT_EQ(kvedSSFree(nullptr), KVED_RTERROR);
    EXPECT_EQ(kvedSSSetFirst(nonsense, nullptr), KVED_RTERROR);
    EXPECT_EQ(kvedSSSetFirst(nullptr, nonsense), KVED_RTERROR);
    EXPECT_EQ(kvdbGetObjectId(id, nonsense), Tolm::eUnknownHandle);
    EXPECT_EQ(kvdbGetObjectId(id, nullptr), Tolm::eUnknownHandle);
    kved_name layer{};
    SelectionSets::NameOf(m_document.GetDatabase().LayerNamed(L"0"), layer);
    EXPECT_EQ(kvdbGetObjectId(id, layer), Tolm::eUnknownHandle) << "a layer is no entity";
    EXPECT_EQ(id, m_first);
}

TEST_F(SelectionSetServices, ErasedEntity_KeepsItsName) {
    kved_name entity{};
    SelectionSets::NameOf(m_first, entity);
    kvhost::ScopedOpen<kvhost::Line>(m_first, KvDb::kForWrite)->Erase();
    KvDbObjectId id;
    ASSERT_EQ(kvdbGetObjectId(id, entity), Tolm::eOk);
    KvDbEntity* opened = nullptr;
    EXPECT_EQ(kvdbOpenKvDbEntity(opened, id, KvDb::kForRead), Tolm::eWasErased);
}

TEST_F(SelectionSetServices, SetFirst_GripsAndPicks) {
    kved_name both{};
    kved_name one{};
    m_session->Sets().Make({m_first, m_second}, both);
    m_session->Sets().Make({m_second}, one);
    EXPECT_EQ(kvedSSSetFirst(both, nullptr), KVED_RTNORM);
    EXPECT_EQ(m_selection.Gripped(), (Ids{m_first, m_second}));
    EXPECT_EQ(m_selection.PickFirst(), (Ids{m_first, m_second}));
    EXPECT_EQ(kvedSSSetFirst(both, one), KVED_RTNORM);
    EXPECT_EQ(m_selection.PickFirst(), Ids{m_second});
    EXPECT_EQ(kvedSSSetFirst(nullptr, one), KVED_RTNORM);
    EXPECT_TRUE(m_selection.Gripped().empty());
    EXPECT_EQ(m_selection.PickFirst(), Ids{m_second});
    EXPECT_EQ(kvedSSSetFirst(nullptr, nullptr), KVED_RTNORM);
    EXPECT_TRUE(m_selection.IsEmpty());
    EXPECT_EQ(kvedSSFree(both), KVED_RTNORM);
    EXPECT_EQ(kvedSSFree(one), KVED_RTNORM);
}

}  // namespace
