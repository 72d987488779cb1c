#include "host_sdk/KvDbObjectReactor.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "host_sdk/KvDbObjectPointer.h"
#include "host_sdk/KvDbSymbolTable.h"
#include "refhost/db/Layer.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Database;
using kvhost::Faults;
using kvhost::ScopedOpen;
using Events = std::vector<std::string>;

class Witness final : public KvDbObjectReactor {
public:
    Events events;
    std::function<void()> onPart;

    void erased(const KvDbObject*, bool isErased) override {
        events.emplace_back(isErased ? "erased" : "back");
    }
    void onWatchedObjectGone(const KvDbObject*) override { events.emplace_back("gone"); }
    void openedForModify(const KvDbObject*) override { events.emplace_back("opened"); }
    void onWatchedObjectModified(const KvDbObject*) override { events.emplace_back("modified"); }
    void subObjModified(const KvDbObject*, const KvDbObject* part) override {
        events.push_back("part " + std::to_string(part->objectId().handle()));
        if (onPart) {
            onPart();
        }
    }
    void modifyUndone(const KvDbObject*) override { events.emplace_back("undone"); }
};

/// A reactor on the layer table of a drawing with one further layer, handle 17.
class KvDbObjectReactorTest : public testing::Test {
protected:
    KvDbObjectReactorTest() {
        EXPECT_EQ(m_database->AddLayer(L"Walls", m_layer), Tolm::eOk);
        EXPECT_EQ(Add(), Tolm::eOk);
    }
    ~KvDbObjectReactorTest() override { Faults::Reset(); }

    Tolm::ErrorStatus Add() {
        return KvDbObjectPointer<KvDbSymbolTable>(m_database->LayerTableId())->addReactor(&m_witness);
    }
    Tolm::ErrorStatus Remove() {
        return KvDbObjectPointer<KvDbSymbolTable>(m_database->LayerTableId())->removeReactor(&m_witness);
    }
    void Rename(const wchar_t* name) {
        EXPECT_EQ(ScopedOpen<kvhost::Layer>(m_layer, KvDb::kForWrite)->SetName(name), Tolm::eOk);
    }
    void ExpectEvents(const Events& expected) {
        EXPECT_EQ(m_witness.events, expected);
        m_witness.events.clear();
    }

    Witness m_witness;
    std::unique_ptr<Database> m_database = std::make_unique<Database>();
    KvDbObjectId m_layer;
};

TEST_F(KvDbObjectReactorTest, Records_ComeChangeAndGo) {
    KvDbObjectId added;
    EXPECT_EQ(m_database->AddLayer(L"Doors", added), Tolm::eOk);
    ExpectEvents({"part 18", "modified"});
    Rename(L"Outer walls");
    ExpectEvents({"part 17", "modified"});
    ScopedOpen<kvhost::Layer>(m_layer, KvDb::kForWrite)->Erase();
    ExpectEvents({"part 17", "modified"});
    m_database->Undo().UndoByUser(2);
    ExpectEvents({"part 17", "modified"});
    EXPECT_EQ(Database::PeekAs<kvhost::Layer>(m_layer)->Name(), L"Walls");
}

TEST_F(KvDbObjectReactorTest, TheObjectItself_IsToldOfChangeEraseAndUndo) {
    Witness own;
    ASSERT_EQ(KvDbObjectPointer<KvDbLayerTableRecord>(m_layer)->addReactor(&own), Tolm::eOk);
    Rename(L"Doors");
    EXPECT_EQ(own.events, (Events{"opened", "modified"}));
    own.events.clear();
    ScopedOpen<kvhost::Layer>(m_layer, KvDb::kForWrite)->Erase();
    EXPECT_EQ(own.events, (Events{"opened", "erased"}));
    own.events.clear();
    m_database->Undo().UndoByUser(1);
    EXPECT_EQ(own.events, (Events{"back"}));
    own.events.clear();
    m_database->Undo().UndoByUser(1);
    EXPECT_EQ(own.events, (Events{"undone", "modified"}));
    EXPECT_EQ(KvDbObjectPointer<KvDbLayerTableRecord>(m_layer)->removeReactor(&own), Tolm::eOk);
}

TEST_F(KvDbObjectReactorTest, Removed_HearsNothingMore) {
    EXPECT_EQ(Remove(), Tolm::eOk);
    Rename(L"Doors");
    m_database.reset();
    ExpectEvents({});
}

TEST_F(KvDbObjectReactorTest, RemovedAmidItsEvent_HearsNoFurtherOne) {
    m_witness.onPart = [&] { EXPECT_EQ(Remove(), Tolm::eOk); };
    Rename(L"Doors");
    ExpectEvents({"part 17"});
}

TEST_F(KvDbObjectReactorTest, DiesAttached_IsTakenOff) {
    {
        Witness other;
        ASSERT_EQ(KvDbObjectPointer<KvDbSymbolTable>(m_database->LayerTableId())->addReactor(&other),
                  Tolm::eOk);
        ASSERT_EQ(KvDbObjectPointer<KvDbLayerTableRecord>(m_layer)->addReactor(&other), Tolm::eOk);
    }
    Rename(L"Doors");
    ExpectEvents({"part 17", "modified"});
}

TEST_F(KvDbObjectReactorTest, DrawingGoes_IsToldOnce) {
    m_database.reset();
    ExpectEvents({"gone"});
}

TEST_F(KvDbObjectReactorTest, BadCalls_AreRefused) {
    EXPECT_EQ(Add(), Tolm::eInvalidInput) << "attached already";
    const KvDbObjectPointer<KvDbSymbolTable> table(m_database->LayerTableId());
    EXPECT_EQ(table->addReactor(nullptr), Tolm::eInvalidInput);
    Witness other;
    EXPECT_EQ(table->removeReactor(&other), Tolm::eInvalidInput);
    KvDbObject* record = nullptr;
    ASSERT_EQ(kvdbOpenKvDbObject(record, m_layer, KvDb::kForRead), Tolm::eOk);
    EXPECT_EQ(record->close(), Tolm::eOk);
    EXPECT_EQ(record->addReactor(&other), Tolm::eNotOpenForRead);
    EXPECT_EQ(record->removeReactor(&other), Tolm::eNotOpenForRead);
}

TEST_F(KvDbObjectReactorTest, Faults_RefuseToAddButStillRemove) {
    EXPECT_EQ(Remove(), Tolm::eOk);
    Faults::FailService(L"addReactor", 1);
    EXPECT_EQ(Add(), Tolm::eInvalidInput);
    EXPECT_EQ(Add(), Tolm::eOk);
    Faults::FailService(L"removeReactor", 1);
    EXPECT_EQ(Remove(), Tolm::eInvalidInput);
    Rename(L"Doors");
    ExpectEvents({});
}

/// The reactor's operations stand in a fixed order behind those of its base; a destructor takes two places.
TEST(KvDbObjectReactorSlots, Operations_StandInOrder) {
    Witness witness;
    KvDbObjectReactor* const reactor = &witness;
    void** const table = *reinterpret_cast<void***>(reactor);
    const auto call = [&](std::size_t slot, auto... arguments) {
        using Operation = void (*)(KvDbObjectReactor*, decltype(arguments)...);
        reinterpret_cast<Operation>(table[slot])(reactor, arguments...);
    };
    Database database;
    KvDbObject* object = nullptr;
    ASSERT_EQ(kvdbOpenKvDbObject(object, database.LayerTableId(), KvDb::kForRead), Tolm::eOk);
    constexpr std::size_t c_cancelled = 3;
    call(c_cancelled, object);
    call(c_cancelled + 1, object, object);
    call(c_cancelled + 2, object, true);
    call(c_cancelled + 3, object);
    call(c_cancelled + 4, object);
    call(c_cancelled + 5, object);
    call(c_cancelled + 6, object, object);
    call(c_cancelled + 7, object);
    EXPECT_EQ(witness.events, (Events{"erased", "gone", "opened", "modified", "part 1", "undone"}));
    EXPECT_EQ(reactor->isA(), KvDbObjectReactor::desc());
    EXPECT_EQ(object->close(), Tolm::eOk);
}

}  // namespace
