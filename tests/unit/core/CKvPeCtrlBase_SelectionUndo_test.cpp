#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Text.h"
#include "refhost/db/UndoController.h"
#include "refhost/editor/SelectionSets.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/core/ControlBench.h"

namespace {

using kvtest::c_property;
using kvtest::SelectionArrays;

constexpr HRESULT c_changeToBeUndone = static_cast<HRESULT>(0x80200149);

class CKvPeCtrlBase_SelectionUndo : public kvtest::ControlTest {
protected:
    ~CKvPeCtrlBase_SelectionUndo() override {
        kvhost::Faults::Reset();
        EXPECT_EQ(host->Sets().Count(), 0U);
        EXPECT_EQ(Drawing().OpenCount(), 0);
        EXPECT_EQ(host->Editor().OpenMarks(), 0);
    }

    Tolm::ErrorStatus Retain() { return control.undoSSRetain(Drawing().undoController(), 1); }

    // A closed group that changes the text of one entity and makes another one.
    KvDbObjectId ChangeInGroup(KvDbObjectId changed) {
        KvDbUndoController& undo = *Drawing().undoController();
        EXPECT_EQ(undo.undoGroup(KVDB_UNDO_GROUP_BEGIN, L"change"), Tolm::eOk);
        {
            const kvhost::ScopedOpen<kvhost::Text> text(changed, KvDb::kForWrite);
            EXPECT_EQ(text->SetContent(L"changed"), Tolm::eOk);
        }
        const KvDbObjectId made = MakeEntity();
        EXPECT_EQ(undo.undoGroup(KVDB_UNDO_GROUP_END, nullptr), Tolm::eOk);
        journal.Clear();
        return made;
    }

    [[nodiscard]] std::wstring TextOf(KvDbObjectId id) const {
        return kvhost::Database::PeekAs<kvhost::Text>(id)->Content();
    }

    // The host calls that matter to the order, without set names.
    [[nodiscard]] kvtest::CallLines Order() const {
        kvtest::CallLines lines =
            kvtest::CallsOnly(journal, {"kvedSS", "kvedSend", "undo 1", "kvedGetVar", "kvedSetVar"});
        for (std::string& line : lines) {
            if (line.starts_with("kvedSS")) {
                line.resize(line.find(' ') == std::string::npos ? line.size() : line.find(' '));
            }
        }
        return lines;
    }
};

TEST_F(CKvPeCtrlBase_SelectionUndo, NoController_ReturnsInvalidInput) {
    EXPECT_EQ(control.undoSSRetain(nullptr, 1), Tolm::eInvalidInput);
    EXPECT_EQ(static_cast<int>(Tolm::eInvalidInput), 3);
    EXPECT_NO_CALLS(journal);
}

TEST_F(CKvPeCtrlBase_SelectionUndo, NothingSelected_OnlyUndoes) {
    const KvDbObjectId entity = MakeEntity();
    ChangeInGroup(entity);
    EXPECT_EQ(Retain(), Tolm::eOk);
    EXPECT_EQ(TextOf(entity), L"");
    EXPECT_CALLS(Order(), "kvedSSGetFirst", "undo 1");
}

TEST_F(CKvPeCtrlBase_SelectionUndo, Selection_IsKeptLessWhatTheUndoErased) {
    const KvDbObjectId first = MakeEntity();
    const KvDbObjectId second = MakeEntity();
    const KvDbObjectId made = ChangeInGroup(first);
    document->GetSelection().Pick({first, made, second});
    journal.Clear();
    EXPECT_EQ(Retain(), Tolm::eOk);
    EXPECT_EQ(TextOf(first), L"");
    EXPECT_EQ(document->GetSelection().PickFirst(), (std::vector{first, second}));
    EXPECT_CALLS(Order(), "kvedSSGetFirst", "kvedSendModelessOperationStart ZRB_ERRORCONDITION",
                 "kvedSSLength", "undo 1", "kvedSSAdd", "kvedSSName", "kvedSSAdd", "kvedSSName", "kvedSSName",
                 "kvedSSAdd", "kvedGetVar GRIPOBJLIMIT", "kvedSSLength", "kvedSSSetFirst", "kvedSSFree",
                 "kvedSendModelessOperationEnded ZRB_ERRORCONDITION", "kvedSSFree", "kvedSSFree");
}

TEST_F(CKvPeCtrlBase_SelectionUndo, EachObject_IsHeldOpenWhileItIsAdded) {
    const KvDbObjectId entity = MakeEntity();
    ChangeInGroup(entity);
    document->GetSelection().Pick({entity});
    journal.Clear();
    EXPECT_EQ(Retain(), Tolm::eOk);
    kvtest::CallLines names = kvtest::CallsOnly(journal, {"kvdbOpenKvDbEntity", "kvedSSAdd", "close"});
    for (std::string& line : names) {
        line.resize(std::min(line.size(), line.find(' ')));
    }
    EXPECT_CALLS(names, "kvedSSAdd", "kvdbOpenKvDbEntity", "kvedSSAdd", "close");
}

TEST_F(CKvPeCtrlBase_SelectionUndo, SelectionAboveLimit_IsPutBackWithoutGripsAndLeavesTheVariable) {
    const KvDbObjectId first = MakeEntity();
    const KvDbObjectId second = MakeEntity();
    ChangeInGroup(first);
    ASSERT_EQ(host->Variables().Set(L"GRIPOBJLIMIT", 1), kvhost::SystemVariables::Outcome::Done);
    ASSERT_EQ(host->Variables().Set(L"GRIPS", 2), kvhost::SystemVariables::Outcome::Done);
    document->GetSelection().Pick({first, second});
    const std::size_t gripsBefore = document->GetSelection().GripComputations();
    journal.Clear();
    EXPECT_EQ(Retain(), Tolm::eOk);
    EXPECT_EQ(host->Variables().Integer(L"GRIPS"), 2);
    EXPECT_EQ(document->GetSelection().GripComputations(), gripsBefore);
    EXPECT_EQ(document->GetSelection().PickFirst().size(), 2U);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvedGetVar", "kvedSetVar"}), "kvedGetVar GRIPOBJLIMIT",
                 "kvedGetVar GRIPS", "kvedSetVar GRIPS 0", "kvedSetVar GRIPS 2");
}

TEST_F(CKvPeCtrlBase_SelectionUndo, SelectionAtLimit_LeavesTheVariable) {
    const KvDbObjectId first = MakeEntity();
    ChangeInGroup(first);
    ASSERT_EQ(host->Variables().Set(L"GRIPOBJLIMIT", 1), kvhost::SystemVariables::Outcome::Done);
    document->GetSelection().Pick({first});
    journal.Clear();
    EXPECT_EQ(Retain(), Tolm::eOk);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvedGetVar", "kvedSetVar"}), "kvedGetVar GRIPOBJLIMIT");
}

TEST_F(CKvPeCtrlBase_SelectionUndo, VariablesCannotBeRead_LeavesThemAlone) {
    const KvDbObjectId first = MakeEntity();
    ASSERT_EQ(host->Variables().Set(L"GRIPOBJLIMIT", 1), kvhost::SystemVariables::Outcome::Done);
    document->GetSelection().Pick({first, MakeEntity()});
    for (const std::size_t failing : {1U, 2U}) {
        ChangeInGroup(first);
        kvhost::Faults::FailService(L"kvedGetVar", failing);
        EXPECT_EQ(Retain(), Tolm::eOk);
        EXPECT_TRUE(kvtest::CallsOnly(journal, {"kvedSetVar"}).empty());
        EXPECT_EQ(document->GetSelection().PickFirst().size(), 2U);
        kvhost::Faults::Reset();
    }
}

TEST_F(CKvPeCtrlBase_SelectionUndo, NameCannotBeRead_LeavesThatObjectOut) {
    const KvDbObjectId first = MakeEntity();
    const KvDbObjectId second = MakeEntity();
    ChangeInGroup(first);
    document->GetSelection().Pick({first, second});
    kvhost::Faults::FailService(L"kvedSSName", 1);
    EXPECT_EQ(Retain(), Tolm::eOk);
    EXPECT_EQ(document->GetSelection().PickFirst(), (std::vector{second}));
}

TEST_F(CKvPeCtrlBase_SelectionUndo, NameIsOfNoObject_LeavesItOut) {
    const KvDbObjectId first = MakeEntity();
    const KvDbObjectId second = MakeEntity();
    ChangeInGroup(first);
    document->GetSelection().Pick({first, second});
    kvhost::Faults::FailService(L"kvdbGetObjectId", 1);
    EXPECT_EQ(Retain(), Tolm::eOk);
    EXPECT_EQ(document->GetSelection().PickFirst(), (std::vector{second}));
}

TEST_F(CKvPeCtrlBase_SelectionUndo, OpenFailsForAnotherReason_KeepsTheObject) {
    const KvDbObjectId first = MakeEntity();
    ChangeInGroup(first);
    document->GetSelection().Pick({first});
    const kvhost::ScopedOpen<kvhost::Text> writer(MakeEntity(), KvDb::kForRead);
    kvhost::Faults::FailService(L"kvdbOpenKvDbEntity", 0);
    EXPECT_EQ(Retain(), Tolm::eOk);
    EXPECT_EQ(document->GetSelection().PickFirst(), (std::vector{first}));
    EXPECT_EQ(Drawing().OpenCount(), 1);
    const_cast<kvhost::ScopedOpen<kvhost::Text>&>(writer).Close();
}

// From the write

TEST_F(CKvPeCtrlBase_SelectionUndo, WriteThatTheHostWantsUndone_IsTakenBackBehindItsGroup) {
    kvhost::ScriptedObject& object = MakeObject(L"A");
    const KvDbObjectId entity = MakeEntity(&object);
    object.At(c_property).putResult = c_changeToBeUndone;
    object.script.onCall = [&](const std::wstring& operation) {
        if (operation == L"Invoke") {
            const kvhost::ScopedOpen<kvhost::Text> text(entity, KvDb::kForWrite);
            EXPECT_EQ(text->SetContent(L"changed"), Tolm::eOk);
        }
    };
    Select(SelectionArrays().Add(&object));
    EXPECT_EQ(WriteText(L"new"), c_changeToBeUndone);
    EXPECT_EQ(TextOf(entity), L"");
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"undo", "kvedSendModelessOperationEnded"}), "undoController",
                 "undoGroup 8 Property change", "undoController", "undoGroup 16 null", "undo 1",
                 "kvedSendModelessOperationEnded ZRB_CHGPROP");
}

TEST_F(CKvPeCtrlBase_SelectionUndo, OtherFailures_AreNotTakenBack) {
    MakeObject(L"A").At(c_property).putResult = E_ACCESSDENIED;
    Select(SelectionArrays().Add(objects[0].Get()));
    EXPECT_EQ(WriteText(L"new"), E_ACCESSDENIED);
    EXPECT_TRUE(kvtest::CallsOnly(journal, {"undo 1", "kvedSSGetFirst"}).empty());
}

}  // namespace
