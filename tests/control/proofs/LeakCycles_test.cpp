#include "refhost/db/UndoController.h"
#include "refhost/rx/Modules.h"
#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/ModuleLock.h"
#include "tests/control/support/RowContainer.h"
#include "tests/support/HeapBlocks.h"
#include "tests/support/KernelHandles.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/Rounds.h"

namespace {

// The first ones fill what is made once and kept.
constexpr int c_firstCycles = 10;

int Cycles() {
    return kvtest::RoundsOfEach(kvtest::AvailableClasses().size(), 1'200, 10'000);
}

class LeakCycles : public kvtest::RowContainer, public ::testing::WithParamInterface<kvtest::AvailableClass> {
protected:
    LeakCycles() { scenario.Arrange(document->GetDatabase()); }
    ~LeakCycles() override {
        Discard();
        EXPECT_EQ(kvtest::AskModuleCanUnload(), S_OK);
    }

    /// A whole life of a row, with one edit that is committed.
    void RunCycle() {
        Create(*GetParam().id);
        kvhost::ScriptedObject& object = MakeObject(L"A", L"");
        scenario.Give(object, c_property, scenario.before);
        if (scenario.readsInWindow) {
            ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        }
        ASSERT_EQ(InitEdit({&object}), S_OK);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        ::UpdateWindow(Row());
        ASSERT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
        ASSERT_TRUE(scenario.edit.Enter(Row()));
        kvtest::PressInRow(Row(), VK_RETURN);
        fw::Variant written;
        ASSERT_EQ(written.CopyFrom(object.At(c_property).Get()), S_OK);
        ASSERT_TRUE(scenario.after.IsSameAs(written));
        ASSERT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
        ASSERT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
        Discard();
        kvtest::PumpWaiting();
        Clear();
        undo->Clear();  // which keeps each edit
    }
    void RunCycles(int count) {
        for (int cycle = 0; cycle < count && !HasFatalFailure(); ++cycle) {
            RunCycle();
        }
    }

    const kvtest::ClassScenario& scenario = *GetParam().scenario;
    kvhost::UndoController* const undo =
        static_cast<kvhost::UndoController*>(document->GetDatabase().undoController());
};

TEST_P(LeakCycles, WholeLives_LeaveNothingBehind) {
    const int cycles = Cycles();
    RunCycles(c_firstCycles);
    const kvtest::LeakCheck check;
    const long handles = kvtest::CountKernelHandles();
    const long blocks = kvtest::CountHeapBlocks();
    RunCycles(cycles);
    // Texts and whatever else lies in memory.
    EXPECT_LE(kvtest::CountHeapBlocks() - blocks, kvtest::c_heapNoise);
    EXPECT_LE(kvtest::CountKernelHandles(), handles);
    EXPECT_EQ(check.Describe(), "");
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
    EXPECT_EQ(host->Editor().UserBreakDisabled(), 0);
}

TEST_P(LeakCycles, ModuleAfterItsLastRow_UnloadsAndLoadsAgain) {
    for (int load = 0; load < 3; ++load) {
        RunCycle();
        EXPECT_EQ(kvtest::AskModuleCanUnload(), S_OK);
        kvhost::Modules::UnloadAll();
        ::CoFreeUnusedLibrariesEx(0, 0);
        EXPECT_EQ(::GetModuleHandleW(L"KvPEXCtl.qmx"), nullptr) << "load " << load;
    }
    RunCycle();
}

KV_FOR_EACH_AVAILABLE_CLASS(LeakCycles);

}  // namespace
