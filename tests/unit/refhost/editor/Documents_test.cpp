#include <gtest/gtest.h>

#include "framework/base/WindowsApi.h"
#include "host_sdk/KvDbHostApplicationServices.h"
#include "refhost/db/Line.h"
#include "refhost/db/WorkingSet.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Document;
using kvhost::Host;
using kvhost::HostSession;

TEST(Documents, Host_RunsForTheScopeOfItsSession) {
    EXPECT_EQ(Host::Current(), nullptr);
    EXPECT_EQ(kvDocManagerPtr(), nullptr);
    EXPECT_EQ(kvdbWorkingGlobals(), nullptr);
    EXPECT_EQ(kvdbHostApplicationServices(), nullptr);
    {
        const HostSession session;
        ASSERT_NE(kvdbHostApplicationServices(), nullptr);
        EXPECT_EQ(kvdbHostApplicationServices()->workingDatabase(), nullptr);
        EXPECT_EQ(Host::Current(), &*session);
        ASSERT_NE(kvDocManagerPtr(), nullptr);
        EXPECT_EQ(kvDocManagerPtr()->curDocument(), nullptr);
        EXPECT_EQ(kvdbWorkingGlobals(), nullptr);
    }
    EXPECT_EQ(Host::Current(), nullptr);
}

TEST(Documents, FirstDocument_IsCurrentUntilAnotherIsMadeSo) {
    const HostSession session;
    Document& first = session->Documents().New();
    Document& second = session->Documents().New();
    EXPECT_EQ(kvDocManagerPtr()->curDocument(), static_cast<KvApDocument*>(&first));
    EXPECT_EQ(first.database(), static_cast<KvDbDatabase*>(&first.GetDatabase()));
    EXPECT_EQ(session->WorkingDatabase(), &first.GetDatabase());
    session->Documents().SetCurrent(&second);
    EXPECT_EQ(session->WorkingDatabase(), &second.GetDatabase());
    session->SetWorkingDatabase(&first.GetDatabase());
    EXPECT_EQ(kvdbWorkingGlobals(), &first.GetDatabase().Globals());
    EXPECT_EQ(kvdbHostApplicationServices()->workingDatabase(),
              static_cast<KvDbDatabase*>(&first.GetDatabase()));
    EXPECT_EQ(Document::Of(&second.GetDatabase()), &second);
    EXPECT_EQ(first.Title(), L"Drawing1");
    EXPECT_EQ(second.Title(), L"Drawing2");
    session->Documents().Close(&first);
    EXPECT_EQ(session->WorkingDatabase(), &second.GetDatabase());
    session->Documents().Close(&second);
    EXPECT_EQ(session->Documents().Current(), nullptr);
    EXPECT_EQ(session->WorkingDatabase(), nullptr);
}

TEST(Documents, ClosingDocument_HasNoDatabaseForPlugins) {
    const HostSession session;
    Document& document = session->Documents().New();
    document.SetClosing(true);
    EXPECT_EQ(document.database(), nullptr);
}

TEST(Documents, DrawingWithOpenGroup_IsNotClosed) {
    const HostSession session;
    Document& document = session->Documents().New();
    EXPECT_EQ(document.GetDatabase().Undo().BeginGroup(L"change"), Tolm::eOk);
    EXPECT_FALSE(session->Documents().Close(&document));
    EXPECT_EQ(session->Documents().Current(), &document);
    EXPECT_EQ(document.database(), static_cast<KvDbDatabase*>(&document.GetDatabase()));
    EXPECT_EQ(document.GetDatabase().Undo().EndGroup(), Tolm::eOk);
    EXPECT_TRUE(session->Documents().Close(&document));
    EXPECT_FALSE(session->Documents().Close(nullptr));
}

TEST(Documents, Ids_StayComparableAfterTheirDocumentIsClosed) {
    const HostSession session;
    Document& document = session->Documents().New();
    const KvDbObjectId id = kvtest::AppendNew<kvhost::Line>(document.GetDatabase());
    session->Documents().Close(&document);
    KvDbObject* object = nullptr;
    EXPECT_EQ(kvdbOpenKvDbObject(object, id, KvDb::kForRead), Tolm::eNotInDatabase);
    EXPECT_EQ(id.database(), nullptr);
}

TEST(Documents, DirtyMark_FollowsUndoAndSave) {
    const HostSession session;
    Document& document = session->Documents().New();
    EXPECT_FALSE(document.IsDirty());
    EXPECT_NE(document.Save(), L"") << "there is no file yet";
    kvtest::AppendNew<kvhost::Line>(document.GetDatabase());
    EXPECT_TRUE(document.IsDirty());
    document.GetDatabase().Undo().UndoByUser(1);
    EXPECT_FALSE(document.IsDirty());
    document.GetDatabase().Undo().RedoByUser(1);
    wchar_t folder[MAX_PATH];
    ::GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"documents_test.qdf";
    ASSERT_EQ(document.SaveAs(path), L"");
    EXPECT_FALSE(document.IsDirty());
    EXPECT_EQ(document.Title(), L"documents_test.qdf");
    document.GetDatabase().Undo().UndoByUser(1);
    EXPECT_TRUE(document.IsDirty());
    std::wstring error;
    Document* const reopened = session->Documents().Open(path, error);
    ASSERT_NE(reopened, nullptr) << "error of " << error.size() << " characters";
    EXPECT_EQ(session->Documents().Current(), reopened);
    EXPECT_EQ(reopened->GetDatabase().ModelSpaceEntities().size(), 1U);
    EXPECT_FALSE(reopened->IsDirty());
    EXPECT_EQ(reopened->Save(), L"");
    EXPECT_TRUE(::DeleteFileW(path.c_str()));
    EXPECT_EQ(session->Documents().Open(path, error), nullptr);
    EXPECT_NE(error, L"");
}

TEST(Documents, WorkingSetGlobals_AreThoseOfTheWorkingDatabase) {
    const HostSession session;
    Document& document = session->Documents().New();
    document.GetDatabase().Globals().workingSetDepth = 1;
    EXPECT_EQ(kvdbWorkingGlobals()->workingSetDepth, 1);
    EXPECT_EQ(kvdbDefaultGlobals()->workingSetDepth, 0);
    kvhost::DefaultGlobals().workingSetDepth = 2;
    EXPECT_EQ(kvdbDefaultGlobals()->workingSetDepth, 2);
    kvhost::DefaultGlobals() = {};
}

TEST(Documents, ArrayEditTransactions_Nest) {
    const HostSession session;
    kvhost::Database& database = session->Documents().New().GetDatabase();
    const KvDbObjectId id = kvtest::AppendNew<kvhost::Line>(database);
    EXPECT_EQ(KvDbAssocArrayEditTransaction::getActiveTransaction(), nullptr);
    {
        const kvhost::ArrayEditTransaction outer{KvArray<KvDbObjectId>()};
        {
            KvArray<KvDbObjectId> members;
            members.append(id);
            const kvhost::ArrayEditTransaction inner(members);
            KvArray<KvDbObjectId> ids;
            KvDbAssocArrayEditTransaction::getActiveTransaction()->workSet(ids);
            ASSERT_EQ(ids.length(), 1);
            EXPECT_EQ(ids[0], id);
        }
        KvArray<KvDbObjectId> ids;
        KvDbAssocArrayEditTransaction::getActiveTransaction()->workSet(ids);
        EXPECT_TRUE(ids.isEmpty());
    }
    EXPECT_EQ(KvDbAssocArrayEditTransaction::getActiveTransaction(), nullptr);
}

TEST(Documents, ProgressMeter_IsSwitched) {
    KvDbAssocManager::enableProgressMeter(false, KvString());
    EXPECT_FALSE(kvhost::IsProgressMeterEnabled());
    KvDbAssocManager::enableProgressMeter(true, L"Evaluating");
    EXPECT_TRUE(kvhost::IsProgressMeterEnabled());
}

}  // namespace
