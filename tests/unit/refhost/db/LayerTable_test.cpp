#include "refhost/db/LayerTable.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "host_sdk/KvDbObjectPointer.h"
#include "host_sdk/KvDbObjectReactor.h"
#include "host_sdk/KvEdServices.h"
#include "host_sdk/KvRxClass.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/Settings.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Faults.h"
#include "refhost/testing/Journal.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::ColorValue;
using kvhost::Database;
using kvhost::Faults;
using kvhost::ScopedOpen;
using Names = std::vector<std::wstring>;

class LayerTable : public testing::Test {
protected:
    LayerTable() {
        for (const wchar_t* const name : {L"Walls", L"Doors", L"Trees"}) {
            EXPECT_EQ(m_database.AddLayer(name, m_layers.emplace_back()), Tolm::eOk);
        }
    }
    ~LayerTable() override {
        Faults::Reset();
        EXPECT_EQ(m_database.OpenCount(), 0);
    }

    static std::wstring NameOf(KvDbObjectId id, bool openErased = false) {
        const KvDbObjectPointer<KvDbSymbolTableRecord> record(id, KvDb::kForRead, openErased);
        wchar_t* name = nullptr;
        EXPECT_EQ(record->getName(name), Tolm::eOk);
        const std::unique_ptr<wchar_t[]> owned(name);
        return owned.get();
    }
    Names Walk(bool forward, bool skipDeleted) {
        const KvDbObjectPointer<KvDbSymbolTable> table(m_database.LayerTableId());
        KvDbSymbolTableIterator* made = nullptr;
        EXPECT_EQ(table->newIterator(made, forward, skipDeleted), Tolm::eOk);
        const std::unique_ptr<KvDbSymbolTableIterator> iterator(made);
        Names names;
        for (; !iterator->done(); iterator->step(forward, skipDeleted)) {
            KvDbObjectId id;
            EXPECT_EQ(iterator->getRecordId(id), Tolm::eOk);
            names.push_back(NameOf(id, true));
        }
        KvDbObjectId none = m_layers.front();
        EXPECT_EQ(iterator->getRecordId(none), Tolm::eInvalidInput);
        EXPECT_TRUE(none.isNull());
        iterator->step(forward, skipDeleted);
        EXPECT_TRUE(iterator->done());
        return names;
    }
    void Erase(KvDbObjectId layer) {
        EXPECT_EQ(ScopedOpen<kvhost::Layer>(layer, KvDb::kForWrite)->Erase(), Tolm::eOk);
    }

    kvhost::HostSession m_session;
    kvhost::Document& m_document = m_session->Documents().New();
    Database& m_database = m_document.GetDatabase();
    std::vector<KvDbObjectId> m_layers;
};

TEST_F(LayerTable, Iterator_WalksEitherWayWithOrWithoutErasedRecords) {
    EXPECT_EQ(Walk(true, true), (Names{L"0", L"Walls", L"Doors", L"Trees"}));
    EXPECT_EQ(Walk(false, true), (Names{L"Trees", L"Doors", L"Walls", L"0"}));
    Erase(m_layers[1]);
    Erase(m_layers[2]);
    EXPECT_EQ(Walk(true, true), (Names{L"0", L"Walls"}));
    EXPECT_EQ(Walk(false, true), (Names{L"Walls", L"0"}));
    EXPECT_EQ(Walk(true, false), (Names{L"0", L"Walls", L"Doors", L"Trees"}));
}

TEST_F(LayerTable, IteratorUnderFaults_EndsItsWalk) {
    const KvDbObjectPointer<KvDbSymbolTable> table(m_database.LayerTableId());
    KvDbSymbolTableIterator* made = nullptr;
    Faults::FailService(L"newIterator", 1);
    EXPECT_EQ(table->newIterator(made, true, true), Tolm::eOutOfMemory);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(table->newIterator(made, true, true), Tolm::eOk);
    const std::unique_ptr<KvDbSymbolTableIterator> iterator(made);
    Faults::FailService(L"getRecordId", 1);
    KvDbObjectId id;
    EXPECT_EQ(iterator->getRecordId(id), Tolm::eInvalidInput);
    Faults::FailService(L"done", 1);
    EXPECT_TRUE(iterator->done());
    EXPECT_FALSE(iterator->done());
}

TEST_F(LayerTable, GetAt_OpensTheLayerOfThatName) {
    const KvDbObjectPointer<KvDbLayerTable> table(m_database.LayerTableId());
    KvDbLayerTableRecord* record = nullptr;
    ASSERT_EQ(table->getAt(L"walls", record, KvDb::kForRead), Tolm::eOk);
    EXPECT_EQ(record->objectId(), m_layers[0]);
    EXPECT_EQ(record->close(), Tolm::eOk);
    EXPECT_EQ(table->getAt(L"Nowhere", record, KvDb::kForRead), Tolm::eKeyNotFound);
    EXPECT_EQ(record, nullptr);
    EXPECT_EQ(table->getAt(nullptr, record, KvDb::kForRead), Tolm::eKeyNotFound);
    Faults::FailService(L"getAt", 1);
    EXPECT_EQ(table->getAt(L"Walls", record, KvDb::kForRead), Tolm::eKeyNotFound);
    const ScopedOpen<kvhost::Layer> writer(m_layers[0], KvDb::kForWrite);
    EXPECT_EQ(table->getAt(L"Walls", record, KvDb::kForRead), Tolm::eWasOpenForWrite);
    EXPECT_EQ(record, nullptr);
}

TEST_F(LayerTable, States_AreTheRecords) {
    {
        const ScopedOpen<kvhost::Layer> layer(m_layers[0], KvDb::kForWrite);
        layer->SetFrozen(true);
        layer->SetOn(false);
        layer->SetExternal(true);
    }
    const KvDbObjectPointer<KvDbLayerTableRecord> plain(m_layers[1]);
    const KvDbObjectPointer<KvDbLayerTableRecord> special(m_layers[0]);
    EXPECT_FALSE(plain->isFrozen() || plain->isOff() || plain->isDependent());
    EXPECT_TRUE(special->isFrozen() && special->isOff() && special->isDependent());
    for (const wchar_t* const service : {L"isFrozen", L"isOff", L"isDependent"}) {
        Faults::FailService(service, 1);
    }
    EXPECT_FALSE(special->isFrozen() || special->isOff() || special->isDependent());
    Faults::FailService(L"getName", 1);
    wchar_t* name = nullptr;
    EXPECT_EQ(special->getName(name), Tolm::eOutOfMemory);
    EXPECT_EQ(name, nullptr);
}

TEST_F(LayerTable, LayerTableId_IsTheTables) {
    EXPECT_EQ(m_database.layerTableId(), m_database.LayerTableId());
    Faults::FailService(L"layerTableId", 1);
    EXPECT_TRUE(m_database.layerTableId().isNull());
}

TEST(ObjectIds, ValidOnes_AreThoseOfLivingDrawings) {
    const kvhost::HostSession session;
    const KvDbObjectId id = session->Documents().New().GetDatabase().LayerTableId();
    EXPECT_TRUE(id.isValid());
    EXPECT_FALSE(KvDbObjectId().isValid());
    session->Documents().CloseAll();
    EXPECT_FALSE(id.isValid());
}

TEST_F(LayerTable, OpenWithClass_RefusesObjectsOfOthers) {
    KvDbObject* object = nullptr;
    EXPECT_EQ(kvdbOpenKvDbObject(object, m_layers[0], KvDb::kForRead, KvDbSymbolTable::desc(), false),
              Tolm::eNotThatKindOfClass);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(m_database.OpenCount(), 0);
    for (const KvRxClass* const accepted : {KvDbLayerTableRecord::desc(), KvDbSymbolTableRecord::desc(),
                                            KvDbObject::desc(), static_cast<KvRxClass*>(nullptr)}) {
        EXPECT_EQ(kvdbOpenKvDbObject(object, m_layers[0], KvDb::kForRead, accepted, false), Tolm::eOk);
        EXPECT_EQ(object->close(), Tolm::eOk);
    }
    EXPECT_TRUE(KvDbLayerTable::desc()->isDerivedFrom(KvDbSymbolTable::desc()));
}

TEST_F(LayerTable, ObjectPointer_ClosesAtItsEnd) {
    {
        KvDbObjectPointer<KvDbLayerTableRecord> pointer(m_layers[0]);
        EXPECT_EQ(pointer.openStatus(), Tolm::eOk);
        ASSERT_TRUE(pointer);
        EXPECT_EQ(pointer.object()->objectId(), m_layers[0]);
        EXPECT_EQ(m_database.OpenCount(), 1);
        pointer.acquire(nullptr);
        EXPECT_EQ(m_database.OpenCount(), 0);
        EXPECT_FALSE(pointer);
    }
    const KvDbObjectPointer<KvDbLayerTable> other(m_layers[0]);
    EXPECT_EQ(other.openStatus(), Tolm::eNotThatKindOfClass);
    EXPECT_FALSE(other);
    Erase(m_layers[0]);
    EXPECT_EQ(KvDbObjectPointer<KvDbLayerTableRecord>(m_layers[0]).openStatus(), Tolm::eWasErased);
    EXPECT_EQ(KvDbObjectPointer<KvDbLayerTableRecord>(m_layers[0], KvDb::kForRead, true).openStatus(),
              Tolm::eOk);
    EXPECT_EQ(KvDbObjectPointer<KvDbLayerTableRecord>().openStatus(), Tolm::eNullObjectId);
}

TEST_F(LayerTable, ObjectPointerOverAnObjectWithoutId_DeletesIt) {
    const kvhost::Journal journal;
    {
        KvDbObjectPointer<KvDbEntity> pointer;
        pointer.acquire(new kvhost::Line());
        EXPECT_EQ(pointer.openStatus(), Tolm::eOk);
    }
    ASSERT_EQ(journal.Entries().size(), 1U);
    EXPECT_EQ(journal.Entries().front().Line(), L"kvdbDeleteObject");
    kvdbDeleteObject(nullptr);
    KvDbObject* owned = nullptr;
    ASSERT_EQ(kvdbOpenKvDbObject(owned, m_layers[0], KvDb::kForRead), Tolm::eOk);
    kvdbDeleteObject(owned);
    EXPECT_EQ(owned->close(), Tolm::eOk) << "an object of a database is not deleted";
}

TEST_F(LayerTable, ViewportOverride_HoldsInItsViewportOnly) {
    KvDbObjectId plan;
    KvDbObjectId detail;
    ASSERT_EQ(m_database.AddViewport(L"Plan", plan), Tolm::eOk);
    ASSERT_EQ(m_database.AddViewport(L"Detail", detail), Tolm::eOk);
    EXPECT_EQ(m_database.AddViewport(L"plan", plan), Tolm::eDuplicateKey);
    EXPECT_EQ(m_database.ViewportNamed(L"DETAIL"), detail);
    {
        const ScopedOpen<kvhost::Layer> layer(m_layers[0], KvDb::kForWrite);
        EXPECT_EQ(layer->SetOverrideColor(L"Plan", ColorValue::ByLayer()), Tolm::eInvalidInput);
        EXPECT_EQ(layer->SetOverrideColor(L"", ColorValue::OfIndex(1)), Tolm::eInvalidInput);
        EXPECT_EQ(layer->SetOverrideColor(L"Plan", ColorValue::OfIndex(1)), Tolm::eOk);
        EXPECT_EQ(layer->SetOverrideColor(L"PLAN", ColorValue::OfIndex(2)), Tolm::eOk);
        EXPECT_EQ(layer->ColorIn(L"Plan"), ColorValue::OfIndex(2));
        EXPECT_EQ(layer->ColorIn(L"Detail"), ColorValue::OfIndex(7));
        EXPECT_TRUE(layer->hasOverrides(m_database.ViewportNamed(L"Plan")));
        EXPECT_FALSE(layer->hasOverrides(detail));
        EXPECT_FALSE(layer->hasOverrides({}));
        EXPECT_FALSE(layer->hasOverrides(m_layers[1]));
        Faults::FailService(L"hasOverrides", 1);
        EXPECT_FALSE(layer->hasOverrides(m_database.ViewportNamed(L"Plan")));
        EXPECT_EQ(layer->SetOverrideColor(L"Plan", std::nullopt), Tolm::eOk);
        EXPECT_FALSE(layer->HasOverrides(L"Plan"));
        EXPECT_EQ(layer->SetOverrideColor(L"Plan", std::nullopt), Tolm::eOk);
    }
}

TEST_F(LayerTable, CurrentViewport_IsTheDrawingsSetting) {
    KvDbObjectId plan;
    ASSERT_EQ(m_database.AddViewport(L"Plan", plan), Tolm::eOk);
    const KvDbObjectId line = kvtest::AppendNew<kvhost::Line>(m_database);
    {
        const ScopedOpen<kvhost::Layer> layer(m_database.LayerNamed(L"0"), KvDb::kForWrite);
        layer->SetOverrideColor(L"Plan", ColorValue::OfIndex(3));
    }
    EXPECT_TRUE(kvedGetCurViewportObjectId().isNull());
    EXPECT_EQ(Database::PeekAs<kvhost::Entity>(line)->EffectiveColor(), ColorValue::OfIndex(7));
    using Outcome = kvhost::SystemVariables::Outcome;
    EXPECT_EQ(m_session->Variables().Set(L"VIEWPORT", std::wstring(L"Nowhere")), Outcome::OutOfRange);
    EXPECT_EQ(m_session->Variables().Set(L"VIEWPORT", std::wstring(L"Plan")), Outcome::Done);
    EXPECT_EQ(kvedGetCurViewportObjectId(), plan);
    EXPECT_EQ(Database::PeekAs<kvhost::Entity>(line)->EffectiveColor(), ColorValue::OfIndex(3));
    kvhost::VariableValue value;
    EXPECT_EQ(m_session->Variables().Get(L"VIEWPORT", value), Outcome::Done);
    EXPECT_EQ(std::get<std::wstring>(value), L"Plan");
    EXPECT_EQ(m_session->Variables().Set(L"VIEWPORT", std::wstring()), Outcome::Done);
    EXPECT_TRUE(kvedGetCurViewportObjectId().isNull());
}

TEST_F(LayerTable, OverrideColor_IsTheEditors) {
    m_session->Editor().SetViewportOverrideColor(RGB(1, 2, 3));
    EXPECT_EQ(kvedGetVpOvrBackgColorValue(), RGB(1, 2, 3));
    Faults::FailService(L"kvedGetVpOvrBackgColorValue", 1);
    EXPECT_EQ(kvedGetVpOvrBackgColorValue(), ::GetSysColor(COLOR_WINDOW));
}

}  // namespace
