#include <algorithm>

#include "framework/com/SafeArray.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/UndoController.h"
#include "refhost/rx/Modules.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "tests/control/proofs/ModuleLock.h"
#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/RowContainer.h"

namespace {

constexpr std::size_t c_mostCalls = 2'000;  // of one scenario; far more than any makes

// Rows over real objects of a drawing: one host service after the other fails in the middle of what a user
// does.
class FaultSweep : public kvtest::RowContainer, public ::testing::WithParamInterface<kvtest::AvailableClass> {
protected:
    using Step = void (FaultSweep::*)();

    FaultSweep() : undo(static_cast<kvhost::UndoController*>(document->GetDatabase().undoController())) {
        scenario.Arrange(document->GetDatabase());
        for (KvDbObjectId& id : ids) {
            id = scenario.append(document->GetDatabase());
        }
    }
    ~FaultSweep() override {
        kvhost::Faults::Reset();
        kvhost::Answers::Reset();
        Discard();
        EXPECT_EQ(kvtest::AskModuleCanUnload(), S_OK);
        EXPECT_EQ(kvhost::LiveObject::Count(), 0);
    }

    /// Runs the scenario with one failing call after the other, until a run meets no failure.
    void Sweep(Step lead) {
        for (std::size_t failing = 1; failing < c_mostCalls && !HasFailure(); ++failing) {
            SetBack();
            kvhost::Faults::FailAnyService(failing);
            (this->*lead)();
            ExpectBalanced();  // the end of the row is swept too
            const std::size_t calls = kvhost::Faults::CountedCalls();
            const std::string failed = kvtest::ToUtf8(kvhost::Faults::LastFailedService());
            kvhost::Faults::Reset();
            EXPECT_FALSE(HasFailure()) << "call " << failing << " of " << calls << ", " << failed;
            if (calls < failing) {
                EXPECT_GT(failing, 1U) << "nothing was swept";
                return;
            }
        }
        EXPECT_TRUE(HasFailure()) << "the scenario does not end";
    }

    void SetBack() {
        for (const KvDbObjectId id : ids) {
            scenario.SetDrawn(id, scenario.before);
        }
        static_cast<void>(kvhost::Answers::TakeShown());
        looseEnds = host->Editor().LooseEnds();
        isToldOfFailure = false;
    }

    void ExpectBalanced() {
        Discard();
        kvtest::PumpWaiting();
        EXPECT_EQ(host->Editor().OpenMarks(), 0);
        EXPECT_EQ(host->Editor().UserBreakDisabled(), 0);
        CloseGroupThatTheHostKeptOpen();
        EXPECT_EQ(Undo().OpenGroups(), 0);
        EXPECT_EQ(document->GetDatabase().OpenCount(), 0);
        EXPECT_EQ(kvhost::LiveObject::Count(), 0);
        EXPECT_EQ(kvtest::AskModuleCanUnload(), S_OK);
        Clear();
    }

    // The group is ended by way of the current document, which may have gone in the middle of a write. A host
    // that fails to name it, or to end the group, keeps one group open, which is for the host to end.
    void CloseGroupThatTheHostKeptOpen() {
        const std::wstring failed = kvhost::Faults::LastFailedService();
        const std::wstring_view way[] = {L"kvDocManagerPtr", L"curDocument", L"database", L"undoController",
                                         L"undoGroup"};
        if (Undo().OpenGroups() == 1 && std::ranges::find(way, failed) != std::end(way)) {
            EXPECT_EQ(Undo().EndGroup(), Tolm::eOk);
        }
    }

    kvhost::UndoController& Undo() { return *undo; }
    [[nodiscard]] bool AreAll(const kvtest::ScenarioValue& value) const {
        return std::ranges::all_of(ids, [&](KvDbObjectId id) { return scenario.IsDrawn(id, value); });
    }
    /// Each object has the new value, or somebody was told that one has not: the user by a message or by the
    /// row's text, the host by the mark of a locked object.
    void ExpectWrittenOrReported() {
        const bool isTold = isToldOfFailure || !kvhost::Answers::TakeShown().empty() ||
                            host->Editor().LooseEnds() > looseEnds;
        EXPECT_TRUE(isTold || AreAll(scenario.after)) << "an object was left out in silence";
    }

    // The steps of the scenarios. A step that cannot be done any more is left out.

    bool Begin() {
        fw::ComPtr<IKvPiPropertyEditControl2> made;
        if (FAILED(::CoCreateInstance(*GetParam().id, nullptr, CLSCTX_INPROC_SERVER,
                                      __uuidof(IKvPiPropertyEditControl2), made.PutVoid()))) {
            isToldOfFailure = true;
            return false;
        }
        made.Reset();
        Create(*GetParam().id);
        return control && FillRow();
    }
    bool FillRow() {
        std::vector<fw::ComPtr<IDispatch>> drawn(std::size(ids));
        fw::Variant arrays[3];
        std::vector<IDispatch*> bare;
        for (std::size_t index = 0; index < std::size(ids); ++index) {
            if (FAILED(kvhost::GetAutomationObject(ids[index], drawn[index].Put()))) {
                isToldOfFailure = true;
                return false;
            }
            bare.push_back(drawn[index].Get());
        }
        const std::vector<IUnknown*> none(bare.size());
        const std::vector<LONG> dispids(bare.size(), scenario.objectProperty);
        const auto count = static_cast<ULONG>(bare.size());
        EXPECT_EQ(fw::MakeDispatchArray(bare.data(), count, arrays[0]), S_OK);
        EXPECT_EQ(fw::MakeUnknownArray(none.data(), count, arrays[1]), S_OK);
        EXPECT_EQ(fw::MakeLongArray(dispids.data(), count, arrays[2]), S_OK);
        // The palette keeps a row whose read failed, and reads it again later.
        isToldOfFailure |= FAILED(control->InitEditControl(arrays[0].Address(), arrays[1].Address(),
                                                           arrays[2].Address(), VARIANT_FALSE));
        return true;
    }
    bool BeginActive() {
        if (!Begin() || FAILED(DoVerb(OLEIVERB_INPLACEACTIVATE))) {
            return false;
        }
        ::UpdateWindow(Row());
        return SUCCEEDED(DoVerb(OLEIVERB_UIACTIVATE));
    }
    bool Enter() {
        const bool isEntered = scenario.edit.Enter(Row());
        isToldOfFailure |= !isEntered;  // there is nothing to work in
        return isEntered;
    }
    void NoteWhatIsShown(HWND child) { isToldOfFailure |= !scenario.edit.IsShownIn(child); }
    void EnterAndReturn() {
        if (BeginActive() && Enter()) {
            kvtest::PressInRow(Row(), VK_RETURN);
            NoteWhatIsShown(kvtest::ChildInFocus(Row()));
        }
    }

public:
    // The scenarios

    void CreateAndInit() { Begin(); }
    void Activate() { BeginActive(); }
    void EditAndReturn() {
        EnterAndReturn();
        ExpectWrittenOrReported();
    }
    void Hide() {
        if (BeginActive() && Enter()) {
            const HWND child = kvtest::ChildInFocus(Row());
            static_cast<void>(DoVerb(OLEIVERB_HIDE));
            NoteWhatIsShown(child);
        }
        ExpectWrittenOrReported();
    }
    void Refuse() {
        host->Editor().SetDragging(true);
        EnterAndReturn();
        host->Editor().SetDragging(false);
        ExpectWrittenOrReported();
    }
    void Tip() {
        if (BeginActive()) {
            GiveFont();
            ::SendMessageW(Row(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
            kvtest::PumpWaiting();
            ::SendMessageW(Row(), WM_MOUSELEAVE, 0, 0);
        }
        EXPECT_TRUE(AreAll(scenario.before));
    }
    void WriteAndUndo() {
        EditAndReturn();
        CloseGroupThatTheHostKeptOpen();
        // The user takes it back: as one step where the group came about, else object by object.
        while (Undo().UndoCount() > 0 && !AreAll(scenario.before)) {
            ASSERT_EQ(Undo().UndoByUser(1), Tolm::eOk);
        }
        EXPECT_TRUE(AreAll(scenario.before));
    }
    void Dialog() {
        if (Begin()) {
            kvhost::Answers::QueueText(scenario.after.text);
            EXPECT_EQ(control->LaunchDialog(fw::Bstr(scenario.before.text).Get(), 8), S_OK);
            kvhost::Answers::Reset();
        }
    }

protected:
    const kvtest::ClassScenario& scenario = *GetParam().scenario;
    KvDbObjectId ids[3];
    kvhost::UndoController* undo = nullptr;
    int looseEnds = 0;
    bool isToldOfFailure = false;
};

TEST_P(FaultSweep, CreateAndInit_EachServiceFails) {
    Sweep(&FaultSweep::CreateAndInit);
}

TEST_P(FaultSweep, Activate_EachServiceFails) {
    Sweep(&FaultSweep::Activate);
}

TEST_P(FaultSweep, EditAndReturn_EachServiceFails) {
    Sweep(&FaultSweep::EditAndReturn);
}

TEST_P(FaultSweep, HideInEdit_EachServiceFails) {
    Sweep(&FaultSweep::Hide);
}

TEST_P(FaultSweep, RefusedEdit_EachServiceFails) {
    Sweep(&FaultSweep::Refuse);
}

TEST_P(FaultSweep, Tip_EachServiceFails) {
    Sweep(&FaultSweep::Tip);
}

TEST_P(FaultSweep, WriteAndUndo_EachServiceFails) {
    Sweep(&FaultSweep::WriteAndUndo);
}

TEST_P(FaultSweep, Dialog_EachServiceFails) {
    Sweep(&FaultSweep::Dialog);
}

KV_FOR_EACH_AVAILABLE_CLASS(FaultSweep);

}  // namespace
