#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "framework/base/WindowsApi.h"
#include "host_sdk/KvApDocument.h"
#include "host_sdk/KvDbAssoc.h"
#include "host_sdk/KvDbEntity.h"
#include "host_sdk/KvDbGlobals.h"
#include "host_sdk/KvDbHostApplicationServices.h"
#include "host_sdk/KvDbLayerTableRecord.h"
#include "host_sdk/KvDbUndoController.h"
#include "host_sdk/KvEdLivePreview.h"
#include "host_sdk/KvEdSelection.h"
#include "host_sdk/KvEdServices.h"
#include "host_sdk/KvEdVariables.h"
#include "host_sdk/KvRxVariablesDictionary.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/Settings.h"
#include "refhost/db/WorkingSet.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"
#include "refhost/editor/SelectionSets.h"
#include "refhost/testing/Faults.h"
#include "refhost/testing/Journal.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Database;
using kvhost::Faults;
using kvhost::Journal;
using kvhost::ScopedOpen;

struct Application final : IUnknown {
    STDMETHODIMP QueryInterface(REFIID, void** object) override {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
};

/// A host in which every service succeeds.
struct Scene {
    kvhost::HostSession session;
    KvDbHostApplicationServices* services = kvdbHostApplicationServices();
    kvhost::Document& document = session->Documents().New();
    Database& database = document.GetDatabase();
    KvDbObjectId line = kvtest::AppendNew<kvhost::Line>(database);
    KvDbObjectId layer = database.LayerNamed(L"0");
    Application application;
    IUnknown* originalApplication = session->ApplicationObject();
    kved_name set{};
    kved_name entity{};
    kvhost::ArrayEditTransaction transaction{KvArray<KvDbObjectId>()};

    Scene() {
        session->Editor().SetDragging(true);
        session->Editor().SetPreviewStarted(true);
        session->Editor().SetPreviewRecording(true);
        session->Editor().PushCommand(L"ANY", 1);
        session->SetApplicationObject(&application);
        session->Sets().Make({line}, set);
        kvhost::SelectionSets::NameOf(line, entity);
        document.GetSelection().Pick({line});
        session->Editor().SetPaletteWindow(KVED_SECOND_PALETTE, ::GetDesktopWindow());
        KvDbObjectId viewport;
        EXPECT_EQ(database.AddViewport(L"Plan", viewport), Tolm::eOk);
        ScopedOpen<kvhost::Settings>(database.SettingsId(), KvDb::kForWrite)->SetCurrentViewport(L"Plan");
        const ScopedOpen<kvhost::Layer> record(layer, KvDb::kForWrite);
        record->SetLocked(true);
        record->SetFrozen(true);
        record->SetOn(false);
        record->SetExternal(true);
    }
    ~Scene() { session->SetApplicationObject(originalApplication); }
};

const kvhost::Layer& PeekLayer(const Scene& scene) {
    return *Database::PeekAs<kvhost::Layer>(scene.layer);
}

KvDbObject* OpenObject(KvDbObjectId id) {
    KvDbObject* object = nullptr;
    return kvdbOpenKvDbObject(object, id, KvDb::kForRead) == Tolm::eOk ? object : nullptr;
}

/// Opens outside of journal and faults, so that a test of another service sees only that one.
KvDbEntity* PlainOpen(KvDbObjectId id) {
    kvhost::Object* object = nullptr;
    return Database::Open(object, id, KvDb::kForRead) == Tolm::eOk
               ? dynamic_cast<KvDbEntity*>(object->DbObject())
               : nullptr;
}

struct Service {
    const wchar_t* name;
    std::wstring
        line;  // Journal line of the call; the handle of the line entity is 11, that of the layer 10.
    std::function<bool(Scene&)> call;  // True when the service says that it succeeded.
};

std::vector<Service> DatabaseServices() {
    const auto opened = [](KvDbObject* object) {
        if (object != nullptr) {
            static_cast<void>(kvhost::Object::From(object)->Close());
        }
        return object != nullptr;
    };
    return {
        {L"kvDocManagerPtr", L"kvDocManagerPtr", [](Scene&) { return kvDocManagerPtr() != nullptr; }},
        {L"curDocument", L"curDocument",
         [](Scene& scene) { return scene.session->Documents().curDocument() != nullptr; }},
        {L"database", L"database", [](Scene& scene) { return scene.document.database() != nullptr; }},
        {L"isQuiescent", L"isQuiescent", [](Scene& scene) { return scene.document.isQuiescent(); }},
        {L"allowsLivePreview", L"allowsLivePreview",
         [](Scene& scene) {
             scene.session->Editor().SetDragging(false);
             return scene.document.allowsLivePreview();
         }},
        {L"layerTableId", L"layerTableId",
         [](Scene& scene) { return !scene.database.layerTableId().isNull(); }},
        {L"isFrozen", L"isFrozen 10", [](Scene& scene) { return PeekLayer(scene).isFrozen(); }},
        {L"isOff", L"isOff 10", [](Scene& scene) { return PeekLayer(scene).isOff(); }},
        {L"isDependent", L"isDependent 10", [](Scene& scene) { return PeekLayer(scene).isDependent(); }},
        {L"getBool", L"getBool PROPERTYPREVIEW",
         [](Scene&) { return KvRxVariablesDictionary::getBool(L"PROPERTYPREVIEW", false); }},
        {L"kvedGetPaletteWnd", L"kvedGetPaletteWnd 1",
         [](Scene&) { return kvedGetPaletteWnd(KVED_SECOND_PALETTE) != nullptr; }},
        {L"kvedGetCurViewportObjectId", L"kvedGetCurViewportObjectId",
         [](Scene&) { return !kvedGetCurViewportObjectId().isNull(); }},
        {L"kvedLivePreviewContextManager", L"kvedLivePreviewContextManager",
         [](Scene&) { return kvedLivePreviewContextManager() != nullptr; }},
        {L"undoController", L"undoController",
         [](Scene& scene) { return scene.database.undoController() != nullptr; }},
        {L"undoGroup", L"undoGroup 8 Change property",
         [](Scene& scene) {
             const bool begun = scene.database.Undo().undoGroup(8, L"Change property") == Tolm::eOk;
             scene.database.Undo().EndGroup();
             return begun;
         }},
        {L"undoGroup", L"undoGroup 16 null",
         [](Scene& scene) {
             scene.database.Undo().BeginGroup(L"group");
             return scene.database.Undo().undoGroup(16, nullptr) == Tolm::eOk;
         }},
        {L"undo", L"undo 1", [](Scene& scene) { return scene.database.Undo().undo(1) == Tolm::eOk; }},
        {L"kvdbOpenKvDbObject", L"kvdbOpenKvDbObject 11 0",
         [=](Scene& scene) { return opened(OpenObject(scene.line)); }},
        {L"kvdbOpenKvDbEntity", L"kvdbOpenKvDbEntity 11 1",
         [=](Scene& scene) {
             KvDbEntity* entity = nullptr;
             return kvdbOpenKvDbEntity(entity, scene.line, KvDb::kForWrite) == Tolm::eOk && opened(entity);
         }},
        {L"close", L"close 11", [](Scene& scene) { return PlainOpen(scene.line)->close() == Tolm::eOk; }},
        {L"upgradeOpen", L"upgradeOpen 11",
         [=](Scene& scene) {
             KvDbEntity* const entity = PlainOpen(scene.line);
             const bool upgraded = entity->upgradeOpen() == Tolm::eOk;
             static_cast<void>(opened(entity));
             return upgraded;
         }},
        {L"isLocked", L"isLocked 10",
         [](Scene& scene) { return ScopedOpen<kvhost::Layer>(scene.layer)->isLocked(); }},
        {L"pushHighlight", L"pushHighlight 11 1 2 2",
         [=](Scene& scene) {
             KvDbEntity* const entity = PlainOpen(scene.line);
             const bool pushed = entity->pushHighlight(KvDbFullSubentPath(scene.line, 1, 2),
                                                       KVDB_HIGHLIGHT_SUBENTITY) == Tolm::eOk;
             return opened(entity) && pushed;
         }},
        {L"kvdbWorkingGlobals", L"kvdbWorkingGlobals",
         [](Scene&) { return kvdbWorkingGlobals() != nullptr; }},
        {L"kvdbHostApplicationServices", L"kvdbHostApplicationServices",
         [](Scene&) { return kvdbHostApplicationServices() != nullptr; }},
        {L"workingDatabase", L"workingDatabase",
         [](Scene& scene) { return scene.services->workingDatabase() != nullptr; }},
        {L"getActiveTransaction", L"getActiveTransaction",
         [](Scene&) { return KvDbAssocArrayEditTransaction::getActiveTransaction() != nullptr; }},
        {L"kvedIsDragging", L"kvedIsDragging", [](Scene&) { return kvedIsDragging(); }},
        {L"kvedIsInCommandStack", L"kvedIsInCommandStack 1", [](Scene&) { return kvedIsInCommandStack(1); }},
        {L"kvedIsLivePreviewStarted", L"kvedIsLivePreviewStarted",
         [](Scene&) { return kvedIsLivePreviewStarted(); }},
        {L"kvedIsLivePreviewRecording", L"kvedIsLivePreviewRecording",
         [](Scene&) { return kvedIsLivePreviewRecording(); }},
        {L"kvedGetApplicationObject", L"kvedGetApplicationObject",
         [](Scene&) { return kvedGetApplicationObject() != nullptr; }},
    };
}

std::vector<Service> EditorFunctions() {
    return {
        {L"kvedSSGetFirst", L"kvedSSGetFirst",
         [](Scene&) {
             resbuf* grips = nullptr;
             resbuf* picked = nullptr;
             const bool got = kvedSSGetFirst(&grips, &picked) == KVED_RTNORM;
             EXPECT_EQ(picked != nullptr, got);
             delete grips;
             delete picked;
             return got;
         }},
        {L"kvedSSSetFirst", L"kvedSSSetFirst -1:1 null",
         [](Scene& scene) { return kvedSSSetFirst(scene.set, nullptr) == KVED_RTNORM; }},
        {L"kvedSSLength", L"kvedSSLength -1:1",
         [](Scene& scene) {
             long length = 0;
             return kvedSSLength(scene.set, &length) == KVED_RTNORM;
         }},
        {L"kvedSSName", L"kvedSSName -1:1 0",
         [](Scene& scene) {
             kved_name name{};
             return kvedSSName(scene.set, 0, name) == KVED_RTNORM;
         }},
        {L"kvedSSAdd", L"kvedSSAdd null null",
         [](Scene&) {
             kved_name name{};
             return kvedSSAdd(nullptr, nullptr, name) == KVED_RTNORM;
         }},
        {L"kvedSSFree", L"kvedSSFree -1:1",
         [](Scene& scene) { return kvedSSFree(scene.set) == KVED_RTNORM; }},
        {L"kvutRelRb", L"kvutRelRb", [](Scene&) { return kvutRelRb(new resbuf{}) == KVED_RTNORM; }},
        {L"kvedGetVar", L"kvedGetVar GRIPS",
         [](Scene&) {
             resbuf buffer{};
             return kvedGetVar(L"GRIPS", &buffer) == KVED_RTNORM;
         }},
        {L"kvedSetVar", L"kvedSetVar GRIPS 0",
         [](Scene&) {
             resbuf buffer{};
             buffer.restype = KVED_RTSHORT;
             return kvedSetVar(L"GRIPS", &buffer) == KVED_RTNORM;
         }},
    };
}

class ServiceFaults : public testing::TestWithParam<Service> {
protected:
    void TearDown() override { Faults::Reset(); }
};

TEST_P(ServiceFaults, ServiceSucceedsFailsAndSucceedsAgain) {
    Scene scene;
    {
        const Journal journal;
        EXPECT_TRUE(GetParam().call(scene));
        ASSERT_FALSE(journal.Entries().empty());
        EXPECT_EQ(journal.Entries().front().Line(), GetParam().line);
    }
    // What the first call used up is there again for the second.
    scene.session->Sets().Make({scene.line}, scene.set);
    Faults::FailService(GetParam().name, 1);
    EXPECT_FALSE(GetParam().call(scene));
    EXPECT_EQ(scene.database.OpenCount(), 0) << "a failure leaves nothing open";
    scene.session->Sets().Make({scene.line}, scene.set);
    kvtest::AppendNew<kvhost::Line>(scene.database);
    EXPECT_TRUE(GetParam().call(scene));
    EXPECT_EQ(scene.database.OpenCount(), 0);
}

const auto s_nameOfTest = [](const testing::TestParamInfo<Service>& test) {
    const std::wstring name(test.param.name);
    return std::string(name.begin(), name.end()) + std::to_string(test.index);
};

INSTANTIATE_TEST_SUITE_P(Database, ServiceFaults, testing::ValuesIn(DatabaseServices()), s_nameOfTest);
INSTANTIATE_TEST_SUITE_P(Editor, ServiceFaults, testing::ValuesIn(EditorFunctions()), s_nameOfTest);

TEST(ServiceJournal, ServicesWithoutResult_WriteTheirLinesAndDoTheirWorkUnderFaults) {
    Scene scene;
    const Journal journal;
    for (const wchar_t* const name : {L"kvedSendModelessOperationStart", L"kvedDisableUsrbrk",
                                      L"kvedEnableUsrbrk", L"kvedPostCommandPrompt", L"enableProgressMeter",
                                      L"kvedSendModelessOperationEnded", L"kvdbDefaultGlobals"}) {
        Faults::FailService(name, 0);
    }
    kvedSendModelessOperationStart(L"ZRB_CHGPROP");
    kvedDisableUsrbrk();
    kvedEnableUsrbrk();
    kvedPostCommandPrompt();
    KvDbAssocManager::enableProgressMeter(false, KvString());
    KvDbAssocManager::enableProgressMeter(true, L"Evaluating");
    kvedSendModelessOperationEnded(L"ZRB_CHGPROP");
    KvArray<KvDbObjectId> ids;
    scene.transaction.workSet(ids);
    static_cast<void>(kvdbDefaultGlobals());
    Faults::Reset();
    std::vector<std::wstring> lines;
    for (const kvhost::JournalEntry& entry : journal.Entries()) {
        lines.push_back(entry.Line());
    }
    EXPECT_EQ(lines,
              (std::vector<std::wstring>{
                  L"kvedSendModelessOperationStart ZRB_CHGPROP", L"kvedDisableUsrbrk", L"kvedEnableUsrbrk",
                  L"kvedPostCommandPrompt", L"enableProgressMeter 0", L"enableProgressMeter 1 Evaluating",
                  L"kvedSendModelessOperationEnded ZRB_CHGPROP", L"workSet", L"kvdbDefaultGlobals"}));
    EXPECT_EQ(scene.session->Editor().OpenMarks(), 0);
    EXPECT_EQ(scene.session->Editor().PromptsPosted(), 1);
}

TEST(ServiceJournal, HostsOwnWork_LeavesNoLines) {
    Scene scene;
    const Journal journal;
    ScopedOpen<kvhost::Line>(scene.line, KvDb::kForWrite)->SetDescription(L"new");
    scene.database.Undo().UndoByUser(1);
    EXPECT_EQ(Database::CanWrite(scene.line), Tolm::eOnLockedLayer);
    static_cast<void>(scene.session->WorkingDatabase());
    EXPECT_TRUE(journal.Entries().empty());
}

}  // namespace
