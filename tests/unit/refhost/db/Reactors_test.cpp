#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "refhost/db/Block.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/DatabaseReactor.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/ObjectReactor.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Database;
using kvhost::Object;
using kvhost::ScopedOpen;
using kvtest::AppendNew;

using Events = std::vector<std::string>;

class ObjectWitness final : public kvhost::ObjectReactor {
public:
    Events events;
    std::wstring before;

    void OpenedForModify(const Object& object) override {
        events.emplace_back("opened");
        if (const auto* const entity = dynamic_cast<const kvhost::Entity*>(&object)) {
            before = entity->Description();
        }
    }
    void Modified(const Object& /*object*/) override { events.emplace_back("modified"); }
    void Erased(const Object& /*object*/, bool erased) override {
        events.emplace_back(erased ? "erased" : "back");
    }
    void Gone(const Object& /*object*/) override { events.emplace_back("gone"); }
};

class DatabaseWitness final : public kvhost::DatabaseReactor {
public:
    Events events;

    void ObjectAppended(const Database& /*database*/, const Object& object) override {
        Note("appended", object);
    }
    void ObjectModified(const Database& /*database*/, const Object& object) override {
        Note("modified", object);
    }
    void ObjectErased(const Database& /*database*/, const Object& object, bool erased) override {
        Note(erased ? "erased" : "back", object);
    }
    void DatabaseGone(const Database& /*database*/) override { events.emplace_back("gone"); }

private:
    void Note(const char* event, const Object& object) {
        const std::wstring name = object.ClassName();
        events.push_back(std::string(event) + ' ' + std::string(name.begin(), name.end()));
    }
};

TEST(Reactors, Change_IsAnnouncedBeforeAndToldAfterClose) {
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    ObjectWitness witness;
    {
        const ScopedOpen<kvhost::Line> line(id, KvDb::kForWrite);
        line->AddReactor(&witness);
        line->SetDescription(L"first");
        line->SetHyperlink(L"second");
        EXPECT_EQ(witness.events, (Events{"opened"}));
        EXPECT_EQ(witness.before, L"");
    }
    EXPECT_EQ(witness.events, (Events{"opened", "modified"}));
    { const ScopedOpen<kvhost::Line> line(id, KvDb::kForWrite); }
    ScopedOpen<kvhost::Line>(id, KvDb::kForWrite)->SetDescription(L"first");
    EXPECT_EQ(witness.events, (Events{"opened", "modified"})) << "nothing changed";
    ScopedOpen<kvhost::Line>(id, KvDb::kForWrite)->RemoveReactor(&witness);
    ScopedOpen<kvhost::Line>(id, KvDb::kForWrite)->SetDescription(L"third");
    EXPECT_EQ(witness.events.size(), 2U);
}

TEST(Reactors, EraseAndBack_AreToldInsteadOfModified) {
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    ObjectWitness witness;
    ScopedOpen<kvhost::Line>(id)->AddReactor(&witness);
    ScopedOpen<kvhost::Line>(id, KvDb::kForWrite)->Erase();
    ScopedOpen<kvhost::Line>(id, KvDb::kForWrite, true)->Erase(false);
    EXPECT_EQ(witness.events, (Events{"opened", "erased", "opened", "back"}));
    database.Undo().UndoByUser(2);
    EXPECT_EQ(witness.events, (Events{"opened", "erased", "opened", "back", "modified"}))
        << "erased and back again: the object is as it was before";
    database.Undo().RedoByUser(1);
    EXPECT_EQ(witness.events.back(), "erased");
}

TEST(Reactors, UndoAndRedo_TellWhenAllObjectsAreConsistent) {
    class Checker final : public kvhost::ObjectReactor {
    public:
        KvDbObjectId other;
        std::wstring seen;
        void Modified(const Object& /*object*/) override {
            seen = Database::PeekAs<kvhost::Line>(other)->Description();
        }
    };
    Database database;
    const KvDbObjectId first = AppendNew<kvhost::Line>(database);
    const KvDbObjectId second = AppendNew<kvhost::Line>(database);
    database.Undo().BeginGroup(L"both");
    ScopedOpen<kvhost::Line>(first, KvDb::kForWrite)->SetDescription(L"new");
    ScopedOpen<kvhost::Line>(second, KvDb::kForWrite)->SetDescription(L"new");
    database.Undo().EndGroup();
    Checker checker;
    checker.other = second;
    ScopedOpen<kvhost::Line>(first)->AddReactor(&checker);
    checker.seen = L"not asked";
    database.Undo().UndoByUser(1);
    EXPECT_EQ(checker.seen, L"");
    database.Undo().RedoByUser(1);
    EXPECT_EQ(checker.seen, L"new");
}

TEST(Reactors, Database_HearsOfAllObjects) {
    Database database;
    DatabaseWitness witness;
    database.AddReactor(&witness);
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    ScopedOpen<kvhost::Line>(id, KvDb::kForWrite)->SetDescription(L"new");
    ScopedOpen<kvhost::Line>(id, KvDb::kForWrite)->Erase();
    EXPECT_EQ(witness.events, (Events{"appended Line", "modified Line", "erased Line"}));
    witness.events.clear();
    database.Undo().UndoByUser(3);
    EXPECT_EQ(witness.events, (Events{"modified Line"})) << "erased before and after";
    database.Undo().RedoByUser(1);
    EXPECT_EQ(witness.events.back(), "back Line");
    database.RemoveReactor(&witness);
    AppendNew<kvhost::Line>(database);
    EXPECT_EQ(witness.events.size(), 2U);
}

TEST(Reactors, Table_HearsOfItsRecords) {
    Database database;
    ObjectWitness witness;
    ScopedOpen<Object>(database.LayerTableId())->AddReactor(&witness);
    KvDbObjectId layer;
    ASSERT_EQ(database.AddLayer(L"Walls", layer), Tolm::eOk);
    ScopedOpen<kvhost::Layer>(layer, KvDb::kForWrite)->SetFrozen(true);
    ScopedOpen<kvhost::Layer>(layer, KvDb::kForWrite)->Erase();
    EXPECT_EQ(witness.events, (Events{"modified", "modified", "modified"}));
    AppendNew<kvhost::Line>(database);
    EXPECT_EQ(witness.events.size(), 3U);
}

TEST(Reactors, EraseOfABlockReference_IsToldForItsAttributes) {
    const auto database = kvtest::MakeSampleDrawing();
    DatabaseWitness witness;
    database->AddReactor(&witness);
    for (const KvDbObjectId id : database->ModelSpaceEntities()) {
        if (Database::PeekAs<kvhost::BlockReference>(id) != nullptr) {
            ScopedOpen<Object>(id, KvDb::kForWrite)->Erase();
        }
    }
    EXPECT_EQ(witness.events, (Events{"erased BlockReference", "erased Attribute"}));
    database->RemoveReactor(&witness);
}

TEST(Reactors, Reactor_MayDetachOthersWhileItIsCalled) {
    class Detacher final : public kvhost::ObjectReactor {
    public:
        explicit Detacher(kvhost::ObjectReactor& other) : m_other(other) {}
        void Modified(const Object& object) override {
            const ScopedOpen<Object> opened(object.Id());
            opened->RemoveReactor(&m_other);
            opened->RemoveReactor(this);
        }

    private:
        kvhost::ObjectReactor& m_other;
    };
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    ObjectWitness witness;
    Detacher detacher(witness);
    {
        const ScopedOpen<kvhost::Line> line(id, KvDb::kForWrite);
        line->AddReactor(&detacher);
        line->AddReactor(&witness);
        line->AddReactor(&witness);
        line->SetDescription(L"new");
    }
    EXPECT_EQ(witness.events, (Events{"opened"}));
}

TEST(Reactors, EndOfTheDatabase_DetachesAndTells) {
    ObjectWitness objectWitness;
    DatabaseWitness databaseWitness;
    {
        Database database;
        const KvDbObjectId id = AppendNew<kvhost::Line>(database);
        ScopedOpen<kvhost::Line>(id)->AddReactor(&objectWitness);
        database.AddReactor(&databaseWitness);
    }
    EXPECT_EQ(objectWitness.events, (Events{"gone"}));
    EXPECT_EQ(databaseWitness.events, (Events{"gone"}));
}

TEST(Reactors, Reactor_CanReadTheObjectAndChangesOfItsOwnAreSteps) {
    class Follower final : public kvhost::ObjectReactor {
    public:
        KvDbObjectId follower;
        void Modified(const Object& object) override {
            const ScopedOpen<kvhost::Line> leader(object.Id());
            ASSERT_TRUE(leader);
            ScopedOpen<kvhost::Line>(follower, KvDb::kForWrite)->SetDescription(leader->Description());
        }
    };
    Database database;
    const KvDbObjectId first = AppendNew<kvhost::Line>(database);
    Follower follower;
    follower.follower = AppendNew<kvhost::Line>(database);
    ScopedOpen<kvhost::Line>(first)->AddReactor(&follower);
    const int before = database.Undo().UndoCount();
    ScopedOpen<kvhost::Line>(first, KvDb::kForWrite)->SetDescription(L"new");
    EXPECT_EQ(Database::PeekAs<kvhost::Line>(follower.follower)->Description(), L"new");
    EXPECT_EQ(database.Undo().UndoCount(), before + 2);
    ScopedOpen<kvhost::Line>(first)->RemoveReactor(&follower);
}

}  // namespace
