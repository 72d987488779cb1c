#include "tests/control/proofs/FaultSweep.h"

#include <algorithm>
#include <span>

#include "refhost/automation/LiveObject.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "tests/control/support/ModuleLock.h"
#include "tests/support/Rounds.h"

namespace kvtest {
namespace {

constexpr std::size_t c_mostCalls = 2'000;  // of one lead; far more than any makes
constexpr int c_mostRunsAgain = 50;         // of a run that another program has spoilt

// Where the rows become many, each leaves out calls that the rows beside it let fail: most calls are those of
// the family that they share.
std::size_t Stride() {
    constexpr std::size_t rowsAtFull = 20;
    return IsThorough() ? 1 : 1 + SweptRows().size() / rowsAtFull;
}

// Deliberate: who finds no drawing at the beginning of a write begins no group, and still ends that of the
// drawing which it finds at the end. The undo record lets such an end pass.
bool IsEndWithoutGroup(std::string_view unpaired) {
    constexpr std::wstring_view waysToTheUndoRecord[] = {L"kvDocManagerPtr", L"curDocument", L"database",
                                                         L"undoController"};
    return unpaired == "undoGroup 16 null without its beginning" &&
           std::ranges::find(waysToTheUndoRecord, kvhost::Faults::LastFailedService()) !=
               std::end(waysToTheUndoRecord);
}

}  // namespace

FaultSweep::FaultSweep()
    : undo(static_cast<kvhost::UndoController*>(document->GetDatabase().undoController())) {
    scenario.Arrange(document->GetDatabase());
    for (KvDbObjectId& id : ids) {
        id = scenario.append(document->GetDatabase());
    }
}

FaultSweep::~FaultSweep() {
    kvhost::Faults::Reset();
    kvhost::Answers::Reset();
    Discard();
    EXPECT_EQ(AskModuleCanUnload(), S_OK);
    EXPECT_EQ(kvhost::LiveObject::Count(), 0);
}

void FaultSweep::Sweep(const Lead& lead, const Lead& beginning) {
    const std::size_t stride = Stride();
    std::size_t failing =
        1 + (beginning && !IsThorough() ? CountCalls(beginning) : 0) + GetParam().index % stride;
    std::size_t calls = failing;
    for (; calls >= failing && failing < c_mostCalls && !HasFailure(); failing += stride) {
        calls = Run(lead, failing);
        const std::string failed = ToUtf8(kvhost::Faults::LastFailedService());
        EXPECT_FALSE(HasFailure()) << "call " << failing << " of " << calls << ", " << failed;
    }
    EXPECT_LT(failing, c_mostCalls) << "the row's life does not end";
    if (!HasFailure()) {
        EXPECT_GT(Run(lead, 0), 0U) << "nothing was swept";
    }
    kvhost::Faults::Reset();
}

std::size_t FaultSweep::CountCalls(const Lead& lead) {
    std::size_t calls = 0;
    for (int run = 0; run < 2; ++run) {  // the first one may load the module
        RunOnce(
            [&] {
                lead();
                calls = kvhost::Faults::CountedCalls();
            },
            0);
    }
    return calls;
}

std::size_t FaultSweep::Run(const Lead& lead, std::size_t failing) {
    RunOnce(lead, failing);
    for (int again = 0; wasFocusTaken && again < c_mostRunsAgain; ++again) {
        RunOnce(lead, failing);
    }
    EXPECT_FALSE(wasFocusTaken) << "the row gives the focus away";
    return kvhost::Faults::CountedCalls();
}

void FaultSweep::RunOnce(const Lead& lead, std::size_t failing) {
    kvhost::Faults::Reset();
    SetBack();
    isFaultFree = failing == 0;
    kvhost::Faults::FailAnyService(failing);
    lead();
    if (isFaultFree) {
        ExpectComplete();
    }
    ExpectBalanced();  // the end of the row is swept too
}

void FaultSweep::SetBack() {
    for (std::size_t index = 0; index < c_sweptObjects; ++index) {
        if (const wchar_t* const attribute = AttributeOf(index)) {
            const kvhost::ScopedOpen<kvhost::Object> object(ids[index], KvDb::kForWrite);
            ASSERT_TRUE(static_cast<bool>(object));
            EXPECT_EQ(object->SetCustomAttribute(attribute, scenario.before.text), Tolm::eOk);
        } else {
            scenario.SetDrawn(ids[index], scenario.before);
        }
    }
    Undo().Clear();
    static_cast<void>(kvhost::Answers::TakeShown());
    looseEnds = host->Editor().LooseEnds();
    isToldOfFailure = false;
    isComplete = false;
    wasFocusTaken = false;
}

void FaultSweep::ExpectComplete() {
    EXPECT_TRUE(isComplete) << "a step was left out though nothing failed";
    EXPECT_FALSE(isToldOfFailure) << "a failure was told though nothing failed";
}

void FaultSweep::ExpectBalanced() {
    Discard();
    PumpWaiting();
    EXPECT_EQ(host->Editor().OpenMarks(), 0);
    EXPECT_EQ(host->Editor().UserBreakDisabled(), 0);
    EXPECT_EQ(Undo().OpenGroups(), 0);
    EXPECT_EQ(document->GetDatabase().OpenCount(), 0);
    EXPECT_EQ(kvhost::LiveObject::Count(), 0);
    EXPECT_EQ(AskModuleCanUnload(), S_OK);
    const std::string unpaired = Unpaired();
    EXPECT_TRUE(unpaired.empty() || IsEndWithoutGroup(unpaired)) << unpaired;
    Clear();
}

bool FaultSweep::AreAll(const ScenarioValue& value) const {
    for (std::size_t index = 0; index < c_sweptObjects; ++index) {
        const wchar_t* const attribute = AttributeOf(index);
        if (attribute ? *kvhost::Database::Peek(ids[index])->CustomAttribute(attribute) != value.text
                      : !scenario.IsDrawn(ids[index], value)) {
            return false;
        }
    }
    return true;
}

void FaultSweep::ExpectWrittenOrReported() {
    const bool isTold =
        isToldOfFailure || !kvhost::Answers::TakeShown().empty() || host->Editor().LooseEnds() > looseEnds;
    EXPECT_TRUE((isTold && !isFaultFree) || AreAll(scenario.after)) << "an object was left out in silence";
}

bool FaultSweep::Begin() {
    fw::ComPtr<IKvPiPropertyEditControl2> made;
    if (FAILED(::CoCreateInstance(*GetParam().available.id, nullptr, CLSCTX_INPROC_SERVER,
                                  __uuidof(IKvPiPropertyEditControl2), made.PutVoid()))) {
        NoteTold();
        return false;
    }
    made.Reset();
    Create(*GetParam().available.id);
    return control && FillRow();
}

bool FaultSweep::FillRow() {
    SelectionArrays arrays;
    for (std::size_t index = 0; index < c_sweptObjects; ++index) {
        kvhost::PropertyRowEntry entry;
        if (!FindEntry(index, entry)) {
            NoteTold();
            return false;
        }
        arrays.Add(entry.object.Get(), entry.dispid, entry.dynamicProperty.Get());
    }
    if (scenario.readsInWindow && FAILED(DoVerb(OLEIVERB_INPLACEACTIVATE))) {
        NoteTold();
        return false;
    }
    // The palette keeps a row whose read failed, and reads it again later.
    isToldOfFailure |= FAILED(arrays.Init(*control.Get()));
    return true;
}

bool FaultSweep::FindEntry(std::size_t index, kvhost::PropertyRowEntry& entry) const {
    const wchar_t* const attribute = AttributeOf(index);
    if (!attribute) {
        entry.dispid = scenario.objectProperty;
        return SUCCEEDED(kvhost::GetAutomationObject(ids[index], entry.object.Put()));
    }
    for (const kvhost::PropertyRow& row : kvhost::RowsOf(std::span(&ids[index], 1))) {
        if (row.name == attribute) {
            entry = row.entries.front();
        }
    }
    return entry.dynamicProperty && entry.object;
}

bool FaultSweep::BeginActive() {
    if (!Begin() || FAILED(DoVerb(OLEIVERB_INPLACEACTIVATE))) {
        return false;
    }
    ::UpdateWindow(Row());
    return SUCCEEDED(DoVerb(OLEIVERB_UIACTIVATE));
}

}  // namespace kvtest
