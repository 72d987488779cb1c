#include "refhost/db/Database.h"

#include <gtest/gtest.h>

#include "host_sdk/KvDbAttribute.h"
#include "host_sdk/KvRxClass.h"
#include "refhost/db/Attribute.h"
#include "refhost/db/Block.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Dictionary.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/Settings.h"
#include "refhost/db/Text.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Database;
using kvhost::ScopedOpen;
using kvtest::AppendNew;
using kvtest::AppendTo;

KvDbObjectId FirstOf(const Database& database, const wchar_t* className) {
    for (const KvDbObjectId id : database.ModelSpaceEntities()) {
        if (Database::Peek(id)->ClassName() == std::wstring(className)) {
            return id;
        }
    }
    return {};
}

void SetLayerLocked(KvDbObjectId layer, bool locked) {
    EXPECT_EQ(ScopedOpen<kvhost::Layer>(layer, KvDb::kForWrite)->SetLocked(locked), Tolm::eOk);
}

TEST(Database, NewDrawing_HasTablesLayerZeroAndNoEntities) {
    const Database database;
    const KvDbObjectId zero = database.LayerNamed(L"0");
    EXPECT_FALSE(zero.isNull());
    EXPECT_EQ(database.GetSettings().CurrentLayer(), zero);
    EXPECT_TRUE(database.ModelSpaceEntities().empty());
    EXPECT_EQ(database.OwnedBy(database.LayerTableId()), std::vector{zero});
    EXPECT_EQ(database.OwnedBy(database.BlockTableId()), std::vector{database.ModelSpaceId()});
    EXPECT_EQ(database.Undo().UndoCount(), 0);
}

TEST(Database, Append_GivesRisingHandlesAndTheCurrentLayer) {
    Database database;
    const KvDbObjectId first = AppendNew<kvhost::Line>(database);
    const KvDbObjectId second = AppendNew<kvhost::Line>(database);
    EXPECT_LT(first.handle(), second.handle());
    EXPECT_EQ(database.IdOf(first.handle()), first);
    EXPECT_EQ(database.ModelSpaceEntities(), (std::vector{first, second}));
    EXPECT_EQ(Database::PeekAs<kvhost::Line>(first)->LayerName(), L"0");
}

TEST(Database, Append_RefusesOwnersAndNamesThatCantBe) {
    Database database;
    KvDbObjectId id;
    EXPECT_EQ(database.Append(std::make_unique<kvhost::Line>(), database.LayerTableId(), id),
              Tolm::eInvalidInput);
    EXPECT_EQ(database.Append(nullptr, database.ModelSpaceId(), id), Tolm::eInvalidInput);
    EXPECT_EQ(database.Append(std::make_unique<kvhost::Line>(), {}, id), Tolm::eInvalidInput);
    EXPECT_EQ(database.Append(std::make_unique<kvhost::Layer>(), database.LayerTableId(), id),
              Tolm::eInvalidInput);
    EXPECT_EQ(database.AddLayer(L"Walls", id), Tolm::eOk);
    EXPECT_EQ(database.AddLayer(L"WALLS", id), Tolm::eDuplicateKey);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(database.AddLayer(L"a/b", id), Tolm::eInvalidInput);
    Database other;
    EXPECT_EQ(database.Append(std::make_unique<kvhost::Line>(), other.ModelSpaceId(), id),
              Tolm::eInvalidInput);
    auto foreign = std::make_unique<kvhost::Line>();
    EXPECT_EQ(foreign->SetLayerId(other.LayerNamed(L"0")), Tolm::eOk);
    EXPECT_EQ(database.AppendEntity(std::move(foreign), id), Tolm::eInvalidInput);
    EXPECT_TRUE(database.ModelSpaceEntities().empty());
}

TEST(Database, Open_CountsReadersAndLetsOneWriterIn) {
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    kvhost::Object* object = nullptr;
    kvhost::Object* again = nullptr;
    ASSERT_EQ(Database::Open(object, id, KvDb::kForRead), Tolm::eOk);
    ASSERT_EQ(Database::Open(again, id, KvDb::kForRead), Tolm::eOk);
    EXPECT_EQ(again, object);
    EXPECT_EQ(database.OpenCount(), 2);
    EXPECT_EQ(Database::Open(again, id, KvDb::kForWrite), Tolm::eWasOpenForRead);
    EXPECT_EQ(again, nullptr);
    EXPECT_EQ(object->UpgradeOpen(), Tolm::eWasOpenForRead);
    EXPECT_EQ(object->Close(), Tolm::eOk);
    EXPECT_EQ(object->UpgradeOpen(), Tolm::eOk);
    EXPECT_EQ(object->UpgradeOpen(), Tolm::eWasOpenForWrite);
    EXPECT_EQ(Database::Open(again, id, KvDb::kForRead), Tolm::eWasOpenForWrite);
    EXPECT_EQ(Database::Open(again, id, KvDb::kForWrite), Tolm::eWasOpenForWrite);
    ASSERT_EQ(Database::Open(again, id, KvDb::kForNotify), Tolm::eOk);
    EXPECT_EQ(object->Close(), Tolm::eOk);
    EXPECT_TRUE(object->IsOpenForWrite());
    EXPECT_EQ(object->Close(), Tolm::eOk);
    EXPECT_EQ(object->Close(), Tolm::eNotOpenForRead);
    EXPECT_EQ(object->UpgradeOpen(), Tolm::eNotOpenForRead);
    EXPECT_EQ(database.OpenCount(), 0);
}

TEST(Database, Open_TellsWhyItFails) {
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    kvhost::Object* object = nullptr;
    EXPECT_EQ(Database::Open(object, {}, KvDb::kForRead), Tolm::eNullObjectId);
    KvDbStub loose{nullptr, 5, 0};
    EXPECT_EQ(Database::Open(object, KvDbObjectId(&loose), KvDb::kForRead), Tolm::eNotInDatabase);
    KvDbStub invented{&database, id.handle(), 0};
    EXPECT_EQ(Database::Open(object, KvDbObjectId(&invented), KvDb::kForRead), Tolm::eUnknownHandle);
    ASSERT_EQ(ScopedOpen<kvhost::Line>(id, KvDb::kForWrite)->Erase(), Tolm::eOk);
    EXPECT_EQ(Database::Open(object, id, KvDb::kForRead), Tolm::eWasErased);
    EXPECT_EQ(object, nullptr);
    ASSERT_EQ(Database::Open(object, id, KvDb::kForRead, true), Tolm::eOk);
    EXPECT_EQ(object->Close(), Tolm::eOk);
    EXPECT_EQ(ScopedOpen<kvhost::Circle>(database.ModelSpaceId()).Status(), Tolm::eNotThatKindOfClass);
    EXPECT_EQ(database.OpenCount(), 0);
}

TEST(Database, Setters_NeedTheObjectOpenForWrite) {
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Circle>(database);
    kvhost::Object* object = nullptr;
    ASSERT_EQ(Database::Open(object, id, KvDb::kForRead), Tolm::eOk);
    kvhost::Circle& circle = dynamic_cast<kvhost::Circle&>(*object);
    EXPECT_EQ(circle.SetRadius(2), Tolm::eNotOpenForWrite);
    EXPECT_EQ(circle.SetRadius(circle.Radius()), Tolm::eNotOpenForWrite);
    EXPECT_EQ(circle.SetCustomAttribute(L"a", L"b"), Tolm::eNotOpenForWrite);
    EXPECT_EQ(circle.SetUnspecified(L"Radius", true), Tolm::eNotOpenForWrite);
    EXPECT_EQ(circle.SetExpression(L"Radius", L"1"), Tolm::eNotOpenForWrite);
    EXPECT_EQ(circle.Erase(), Tolm::eNotOpenForWrite);
    EXPECT_EQ(circle.Radius(), 1);
    EXPECT_EQ(object->Close(), Tolm::eOk);
}

TEST(Database, Erase_TakesAttributesWithTheirBlockReferenceAndBack) {
    const auto database = kvtest::MakeSampleDrawing();
    const KvDbObjectId reference = FirstOf(*database, L"BlockReference");
    const KvDbObjectId attribute = database->OwnedBy(reference).at(0);
    ASSERT_EQ(ScopedOpen<kvhost::Object>(reference, KvDb::kForWrite)->Erase(), Tolm::eOk);
    EXPECT_TRUE(Database::Peek(attribute)->IsErased());
    EXPECT_EQ(database->Undo().UndoCount(), 1);
    ASSERT_EQ(ScopedOpen<kvhost::Object>(reference, KvDb::kForWrite, true)->Erase(false), Tolm::eOk);
    EXPECT_FALSE(Database::Peek(attribute)->IsErased());
    EXPECT_EQ(database->OwnedBy(reference), std::vector{attribute});
}

TEST(Database, Erase_RefusesWhatOthersNeed) {
    const auto database = kvtest::MakeSampleDrawing();
    const auto erase = [](KvDbObjectId id) {
        return ScopedOpen<kvhost::Object>(id, KvDb::kForWrite)->Erase();
    };
    EXPECT_EQ(erase(database->LayerNamed(L"Walls")), Tolm::eNotAllowed);
    EXPECT_EQ(erase(database->LayerNamed(L"0")), Tolm::eNotAllowed);
    EXPECT_EQ(erase(database->BlockNamed(L"Door")), Tolm::eNotAllowed);
    EXPECT_EQ(erase(database->ModelSpaceId()), Tolm::eNotAllowed);
    KvDbObjectId spare;
    ASSERT_EQ(database->AddLayer(L"Spare", spare), Tolm::eOk);
    EXPECT_EQ(erase(spare), Tolm::eOk);
    EXPECT_TRUE(database->LayerNamed(L"Spare").isNull());
    KvDbObjectId successor;
    ASSERT_EQ(database->AddLayer(L"spare", successor), Tolm::eOk);
    EXPECT_EQ(ScopedOpen<kvhost::Object>(spare, KvDb::kForWrite, true)->Erase(false), Tolm::eDuplicateKey);
}

TEST(Database, Erase_RefusesWhileAPartIsOpen) {
    const auto database = kvtest::MakeSampleDrawing();
    const KvDbObjectId reference = FirstOf(*database, L"BlockReference");
    const ScopedOpen<kvhost::Attribute> attribute(database->OwnedBy(reference).at(0));
    EXPECT_EQ(ScopedOpen<kvhost::Object>(reference, KvDb::kForWrite)->Erase(), Tolm::eWasOpenForRead);
    EXPECT_FALSE(Database::Peek(reference)->IsErased());
}

TEST(Database, CanWrite_RefusesLockedExternalErasedAndNull) {
    Database database;
    KvDbObjectId layer;
    ASSERT_EQ(database.AddLayer(L"Walls", layer), Tolm::eOk);
    auto line = std::make_unique<kvhost::Line>();
    ASSERT_EQ(line->SetLayerId(layer), Tolm::eOk);
    const KvDbObjectId id = AppendTo(database, std::move(line));
    EXPECT_EQ(Database::CanWrite(id), Tolm::eOk);
    SetLayerLocked(layer, true);
    EXPECT_EQ(Database::CanWrite(id), Tolm::eOnLockedLayer);
    EXPECT_EQ(Database::CanWrite(layer), Tolm::eOk);
    SetLayerLocked(layer, false);
    ASSERT_EQ(ScopedOpen<kvhost::Layer>(layer, KvDb::kForWrite)->SetExternal(true), Tolm::eOk);
    EXPECT_EQ(Database::CanWrite(id), Tolm::eOnLockedLayer);
    EXPECT_EQ(Database::CanWrite(layer), Tolm::eNotAllowed);
    ASSERT_EQ(ScopedOpen<kvhost::Line>(id, KvDb::kForWrite)->Erase(), Tolm::eOk);
    EXPECT_EQ(Database::CanWrite(id), Tolm::eWasErased);
    EXPECT_EQ(Database::CanWrite({}), Tolm::eNullObjectId);
}

TEST(Database, CanWrite_AttributeFollowsItsBlockReferencesLayer) {
    const auto database = kvtest::MakeSampleDrawing();
    const KvDbObjectId reference = FirstOf(*database, L"BlockReference");
    const KvDbObjectId attribute = database->OwnedBy(reference).at(0);
    const KvDbObjectId walls = database->LayerNamed(L"Walls");
    ASSERT_EQ(ScopedOpen<kvhost::Entity>(attribute, KvDb::kForWrite)->SetLayerName(L"0"), Tolm::eOk);
    EXPECT_EQ(Database::CanWrite(attribute), Tolm::eOnLockedLayer);
    SetLayerLocked(walls, false);
    EXPECT_EQ(Database::CanWrite(attribute), Tolm::eOk);
}

TEST(Database, RuntimeClasses_FormTheChainThatPluginsAsk) {
    const auto database = kvtest::MakeSampleDrawing();
    const KvDbObjectId reference = FirstOf(*database, L"BlockReference");
    KvDbObject* object = nullptr;
    ASSERT_EQ(kvdbOpenKvDbObject(object, database->OwnedBy(reference).at(0), KvDb::kForRead), Tolm::eOk);
    EXPECT_NE(kvrxCast<KvDbAttribute>(object), nullptr);
    EXPECT_NE(kvrxCast<KvDbEntity>(object), nullptr);
    EXPECT_STREQ(object->isA()->name(), L"KvDbAttribute");
    EXPECT_EQ(object->objectId(), database->OwnedBy(reference).at(0));
    EXPECT_EQ(object->ownerId(), reference);
    EXPECT_EQ(kvhost::Object::From(object), Database::Peek(object->objectId()));
    EXPECT_EQ(object->close(), Tolm::eOk);
    ASSERT_EQ(kvdbOpenKvDbObject(object, reference, KvDb::kForRead), Tolm::eOk);
    EXPECT_EQ(kvrxCast<KvDbAttribute>(object), nullptr);
    EXPECT_TRUE(object->isKindOf(KvRxObject::desc()));
    EXPECT_EQ(object->close(), Tolm::eOk);
    EXPECT_TRUE(database->isKindOf(KvDbDatabase::desc()));
}

TEST(Database, OpenEntity_RefusesOtherObjectsAndLeavesThemClosed) {
    Database database;
    KvDbEntity* entity = nullptr;
    EXPECT_EQ(kvdbOpenKvDbEntity(entity, database.LayerNamed(L"0"), KvDb::kForRead),
              Tolm::eNotThatKindOfClass);
    EXPECT_EQ(entity, nullptr);
    EXPECT_EQ(database.OpenCount(), 0);
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    ASSERT_EQ(kvdbOpenKvDbEntity(entity, id, KvDb::kForRead), Tolm::eOk);
    EXPECT_EQ(entity->layerId(), database.LayerNamed(L"0"));
    EXPECT_FALSE(entity->isErased());
    EXPECT_EQ(entity->close(), Tolm::eOk);
}

TEST(Database, LayerRename_KeepsEntitiesAndFreesTheOldName) {
    Database database;
    KvDbObjectId layer;
    ASSERT_EQ(database.AddLayer(L"Walls", layer), Tolm::eOk);
    EXPECT_EQ(database.LayerNamed(L"wALLS"), layer);
    {
        const ScopedOpen<kvhost::Layer> record(layer, KvDb::kForWrite);
        EXPECT_EQ(record->SetName(L"0"), Tolm::eDuplicateKey);
        EXPECT_EQ(record->SetName(L""), Tolm::eInvalidInput);
        EXPECT_EQ(record->SetName(L"Fences"), Tolm::eOk);
        EXPECT_EQ(record->SetName(L"FENCES"), Tolm::eOk);
    }
    EXPECT_TRUE(database.LayerNamed(L"Walls").isNull());
    EXPECT_EQ(database.LayerNamed(L"fences"), layer);
    EXPECT_EQ(ScopedOpen<kvhost::Layer>(database.LayerNamed(L"0"), KvDb::kForWrite)->SetName(L"x"),
              Tolm::eNotAllowed);
    database.Undo().UndoByUser(1);
    EXPECT_EQ(database.LayerNamed(L"Walls"), layer);
}

TEST(Database, TenThousandLayers_AreFoundByName) {
    Database database;
    KvDbObjectId id;
    for (int i = 0; i < 10000; ++i) {
        ASSERT_EQ(database.AddLayer(L"Layer " + std::to_wstring(i), id), Tolm::eOk);
    }
    EXPECT_EQ(database.LayerNamed(L"LAYER 9999"), id);
    EXPECT_EQ(database.OwnedBy(database.LayerTableId()).size(), 10001U);
}

TEST(Database, BlockReference_NeverPutsABlockIntoItself) {
    Database database;
    KvDbObjectId outer;
    KvDbObjectId inner;
    KvDbObjectId id;
    ASSERT_EQ(database.AddBlock(L"Outer", outer), Tolm::eOk);
    ASSERT_EQ(database.AddBlock(L"Inner", inner), Tolm::eOk);
    const auto referenceTo = [](KvDbObjectId block) {
        auto reference = std::make_unique<kvhost::BlockReference>();
        EXPECT_EQ(reference->SetBlockId(block), Tolm::eOk);
        return reference;
    };
    ASSERT_EQ(database.Append(referenceTo(inner), outer, id), Tolm::eOk);
    EXPECT_EQ(database.Append(referenceTo(outer), inner, id), Tolm::eInvalidInput);
    EXPECT_EQ(database.Append(referenceTo(inner), inner, id), Tolm::eInvalidInput);
    kvhost::BlockReference loose;
    EXPECT_EQ(loose.SetBlockId(database.ModelSpaceId()), Tolm::eInvalidInput);
    EXPECT_EQ(loose.SetBlockId(database.LayerTableId()), Tolm::eInvalidInput);
}

TEST(Database, Dictionary_FindsItsEntriesByName) {
    const auto database = kvtest::MakeSampleDrawing();
    const kvhost::Dictionary* const root = Database::PeekAs<kvhost::Dictionary>(database->NamedObjectsId());
    const kvhost::Dictionary* const project = Database::PeekAs<kvhost::Dictionary>(root->At(L"PROJECT"));
    ASSERT_NE(project, nullptr);
    const kvhost::Object* const client = Database::Peek(project->At(L"client"));
    ASSERT_NE(client, nullptr);
    EXPECT_EQ(*client->CustomAttribute(L"name"), L"Stadt Köln");
    EXPECT_TRUE(root->At(L"client").isNull());
    auto twin = std::make_unique<kvhost::Dictionary>();
    ASSERT_EQ(twin->SetName(L"project"), Tolm::eOk);
    KvDbObjectId id;
    EXPECT_EQ(database->Append(std::move(twin), root->Id(), id), Tolm::eDuplicateKey);
}

TEST(Database, WorkingSetFlag_IsSetAndCleared) {
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    Database::SetInWorkingSet(id, true);
    EXPECT_EQ(id.stubFlags() & KVDB_STUB_IN_WORKING_SET, KVDB_STUB_IN_WORKING_SET);
    Database::SetInWorkingSet(id, false);
    EXPECT_EQ(id.stubFlags(), 0U);
}

TEST(Database, RetiredIds_NameNoDatabase) {
    Database::KeepRetiredIds(true);
    KvDbObjectId id;
    {
        Database database;
        id = AppendNew<kvhost::Line>(database);
    }
    kvhost::Object* object = nullptr;
    EXPECT_EQ(id.database(), nullptr);
    EXPECT_EQ(Database::Open(object, id, KvDb::kForRead), Tolm::eNotInDatabase);
    EXPECT_EQ(Database::CanWrite(id), Tolm::eUnknownHandle);
    Database::KeepRetiredIds(false);
}

}  // namespace
