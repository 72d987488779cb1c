#include "core/ObjectWritability.h"

#include "refhost/db/Attribute.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Text.h"
#include "refhost/db/WorkingSet.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/core/ControlBench.h"

namespace {

using kvhost::Database;
using kvhost::ScriptedObject;

class ObjectWritability : public kvtest::ControlTest {
protected:
    ~ObjectWritability() override {
        kvhost::Faults::Reset();
        kvhost::DefaultGlobals() = {};
        EXPECT_EQ(Drawing().OpenCount(), 0);
    }

    ScriptedObject& MakeWithEntity(const wchar_t* name) {
        ScriptedObject& object = MakeObject(name);
        MakeEntity(&object);
        return object;
    }

    void ActivateWorkingSet(KvDbGlobals& globals) {
        globals.workingSetDepth = 1;
        globals.workingSetOwner = Drawing().ModelSpaceId().stub();
    }

    // An attribute of a new block reference, whose id goes to `owner`.
    ScriptedObject& MakeAttribute(const wchar_t* name, KvDbObjectId& owner) {
        KvDbObjectId block;
        EXPECT_EQ(Drawing().AddBlock(L"block", block), Tolm::eOk);
        auto reference = std::make_unique<kvhost::BlockReference>();
        EXPECT_EQ(reference->SetBlockId(block), Tolm::eOk);
        EXPECT_EQ(Drawing().AppendEntity(std::move(reference), owner), Tolm::eOk);
        auto attribute = std::make_unique<kvhost::Attribute>();
        EXPECT_EQ(attribute->SetTag(L"TAG"), Tolm::eOk);
        ScriptedObject& object = MakeObject(name, L"same", kvhost::OffersIdentity);
        EXPECT_EQ(Drawing().Append(std::move(attribute), owner, object.objectId), Tolm::eOk);
        journal.Clear();
        return object;
    }
};

TEST_F(ObjectWritability, NullObject_IsWritable) {
    EXPECT_EQ(IsObjectWritable(nullptr), 1);
}

TEST_F(ObjectWritability, ObjectWithoutId_IsWritable) {
    EXPECT_EQ(IsObjectWritable(&MakeObject(L"A")), 1);
    EXPECT_EQ(IsObjectWritable(&MakeObject(L"B", L"", kvhost::OffersIdentity)), 1);
    EXPECT_EQ(IsObjectWritable(&MakeObject(L"C", L"", kvhost::OffersTransientIdentity)), 1);
}

TEST_F(ObjectWritability, Entity_IsOpenedLookedAtAndClosed) {
    ScriptedObject& object = MakeWithEntity(L"A");
    EXPECT_EQ(IsObjectWritable(&object), 1);
    const std::string id = kvtest::ToUtf8(kvhost::AsText(object.objectId));
    EXPECT_CALLS(journal, "GetObjectId A", "kvdbOpenKvDbEntity " + id + " 0", "kvdbOpenKvDbObject 10 0",
                 "isLocked 10", "close 10", "kvdbWorkingGlobals", "getActiveTransaction", "close " + id);
}

TEST_F(ObjectWritability, ObjectThatIsNoEntity_CountsAsWritable) {
    ScriptedObject& object = MakeObject(L"A", L"", kvhost::OffersIdentity);
    object.objectId = Drawing().LayerTableId();
    EXPECT_EQ(IsObjectWritable(&object), E_FAIL);
}

TEST_F(ObjectWritability, ErasedEntity_IsNotOpenedAndCountsAsWritable) {
    ScriptedObject& object = MakeWithEntity(L"A");
    LockLayerOf(object.objectId);
    {
        const kvhost::ScopedOpen<kvhost::Text> text(object.objectId, KvDb::kForWrite);
        ASSERT_EQ(text->Erase(true), Tolm::eOk);
    }
    EXPECT_EQ(IsObjectWritable(&object), E_FAIL);
}

TEST_F(ObjectWritability, LockedLayer_IsNotWritable) {
    ScriptedObject& object = MakeWithEntity(L"A");
    LockLayerOf(object.objectId);
    EXPECT_EQ(IsObjectWritable(&object), 0);
}

TEST_F(ObjectWritability, LayerThatCannotBeOpened_CountsAsNotLocked) {
    ScriptedObject& object = MakeWithEntity(L"A");
    LockLayerOf(object.objectId);
    kvhost::Faults::FailService(L"kvdbOpenKvDbObject", 1);
    EXPECT_EQ(IsObjectWritable(&object), 1);
}

TEST_F(ObjectWritability, PartOfEntity_IsJudgedByTheFirstIdOfItsPath) {
    const KvDbObjectId outer = MakeEntity();
    const KvDbObjectId inner = MakeEntity();
    ScriptedObject& part = MakeObject(L"A", L"", kvhost::OffersTransientIdentity);
    part.subentPath = KvDbFullSubentPath(outer, 1, 1);
    part.subentPath.objectIds().append(inner);
    EXPECT_EQ(IsObjectWritable(&part), 1);
    LockLayerOf(outer);
    EXPECT_EQ(IsObjectWritable(&part), 0);
}

TEST_F(ObjectWritability, IdCannotBeHad_PathIsTaken) {
    ScriptedObject& object = MakeObject(L"A", L"", kvhost::OffersIdentity | kvhost::OffersTransientIdentity);
    const KvDbObjectId entity = MakeEntity();
    LockLayerOf(entity);
    object.objectIdResult = E_FAIL;
    object.subentPath = KvDbFullSubentPath(entity, 1, 1);
    EXPECT_EQ(IsObjectWritable(&object), 0);
    object.subentPathResult = E_FAIL;
    EXPECT_EQ(IsObjectWritable(&object), 1);
}

TEST_F(ObjectWritability, WorkingSet_LimitsToItsObjects) {
    ScriptedObject& object = MakeWithEntity(L"A");
    ActivateWorkingSet(Drawing().Globals());
    EXPECT_EQ(IsObjectWritable(&object), 0);
    Database::SetInWorkingSet(object.objectId, true);
    EXPECT_EQ(IsObjectWritable(&object), 1);
}

TEST_F(ObjectWritability, WorkingSetWithOneFieldOnly_IsNotActive) {
    ScriptedObject& object = MakeWithEntity(L"A");
    Drawing().Globals().workingSetDepth = 1;
    EXPECT_EQ(IsObjectWritable(&object), 1);
    ActivateWorkingSet(Drawing().Globals());
    Drawing().Globals().workingSetDepth = 0;
    EXPECT_EQ(IsObjectWritable(&object), 1);
}

TEST_F(ObjectWritability, AttributeOfReferenceInWorkingSet_IsWritable) {
    KvDbObjectId reference;
    ScriptedObject& attribute = MakeAttribute(L"A", reference);
    ActivateWorkingSet(Drawing().Globals());
    EXPECT_EQ(IsObjectWritable(&attribute), 0);
    Database::SetInWorkingSet(reference, true);
    EXPECT_EQ(IsObjectWritable(&attribute), 1);
}

TEST_F(ObjectWritability, EntityWhoseOwnerIsInWorkingSet_IsNotWritable) {
    ScriptedObject& object = MakeWithEntity(L"A");
    ActivateWorkingSet(Drawing().Globals());
    Database::SetInWorkingSet(Drawing().ModelSpaceId(), true);
    EXPECT_EQ(IsObjectWritable(&object), 0);
}

TEST_F(ObjectWritability, NoWorkingGlobals_DefaultOnesStandIn) {
    ScriptedObject& object = MakeWithEntity(L"A");
    ActivateWorkingSet(kvhost::DefaultGlobals());
    EXPECT_EQ(IsObjectWritable(&object), 1);
    host->Documents().SetCurrent(nullptr);
    EXPECT_EQ(IsObjectWritable(&object), 0);
}

TEST_F(ObjectWritability, ArrayEdit_LimitsToItsWorkSet) {
    ScriptedObject& inside = MakeWithEntity(L"A");
    ScriptedObject& outside = MakeWithEntity(L"B");
    KvArray<KvDbObjectId> workSet;
    workSet.append(inside.objectId);
    const kvhost::ArrayEditTransaction transaction(workSet);
    EXPECT_EQ(IsObjectWritable(&inside), 1);
    EXPECT_EQ(IsObjectWritable(&outside), 0);
}

// IsSelectionBlockedByDrag

TEST_F(ObjectWritability, Drag_BlocksWhenOneObjectIsOfTheDatabase) {
    ScriptedObject& outside = MakeObject(L"A");
    ScriptedObject& inside = MakeWithEntity(L"B");
    IDispatch* selection[] = {nullptr, &outside, &inside};
    EXPECT_FALSE(IsSelectionBlockedByDrag(selection, 3));
    host->Editor().SetDragging(true);
    EXPECT_TRUE(IsSelectionBlockedByDrag(selection, 3));
    EXPECT_FALSE(IsSelectionBlockedByDrag(selection, 2));
    EXPECT_TRUE(IsSelectionBlockedByDrag(selection, 1));
    EXPECT_FALSE(IsSelectionBlockedByDrag(selection, 0));
}

TEST_F(ObjectWritability, Drag_ObjectWithNullIdOrFailingAnswer_DoesNotBlock) {
    ScriptedObject& object = MakeObject(L"A", L"", kvhost::OffersIdentity);
    IDispatch* selection[] = {&object};
    host->Editor().SetDragging(true);
    EXPECT_FALSE(IsSelectionBlockedByDrag(selection, 1));
    object.objectId = MakeEntity();
    object.objectIdResult = E_FAIL;
    EXPECT_FALSE(IsSelectionBlockedByDrag(selection, 1));
}

TEST_F(ObjectWritability, Drag_FirstDatabaseObjectEndsTheSearch) {
    ScriptedObject& first = MakeWithEntity(L"A");
    ScriptedObject& second = MakeWithEntity(L"B");
    IDispatch* selection[] = {&first, &second};
    host->Editor().SetDragging(true);
    EXPECT_TRUE(IsSelectionBlockedByDrag(selection, 2));
    EXPECT_CALLS(journal, "kvedIsDragging", "GetObjectId A");
}

}  // namespace
