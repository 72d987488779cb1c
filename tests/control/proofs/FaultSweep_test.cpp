#include <ostream>
#include <span>
#include <vector>

#include "core/CPropTextTooltip.h"
#include "framework/com/SafeArray.h"
#include "refhost/automation/LiveObject.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/UndoController.h"
#include "refhost/rx/Modules.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "tests/control/proofs/ModuleLock.h"
#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"
#include "tests/support/Rounds.h"
#include "tests/support/SentMessages.h"

namespace {

constexpr std::size_t c_objects = 3;
constexpr std::size_t c_mostCalls = 2'000;  // of one scenario; far more than any makes
constexpr int c_mostRunsAgain = 50;         // of a run that another program has spoilt

/// Where the row's value stands in each object: in the class's property, or in the custom attribute of that
/// name.
struct SweptProperty {
    const char* name;
    const wchar_t* attributes[c_objects];
};

constexpr SweptProperty c_dispid{"Dispid", {nullptr, nullptr, nullptr}};
// One dynamic property that is asked by object, and one that is asked by id and can be unspecified.
constexpr SweptProperty c_dynamic{"Dynamic", {L"Title", L"Remarks", L"Title"}};

struct SweptRow {
    kvtest::AvailableClass available;
    SweptProperty property;
    std::size_t index = 0;  // among all
};

void PrintTo(const SweptRow& row, std::ostream* stream) {
    *stream << row.available.scenario->coclass << ' ' << row.property.name;
}

// Each class, and those that take typed texts over dynamic properties too: custom attributes are texts.
std::vector<SweptRow> SweptRows() {
    std::vector<SweptRow> rows;
    for (const kvtest::AvailableClass& available : kvtest::AvailableClasses()) {
        const kvtest::ClassScenario& scenario = *available.scenario;
        rows.push_back({available, c_dispid});
        if (scenario.before.type == VT_BSTR && scenario.edit.way == kvtest::EditWay::Type) {
            rows.push_back({available, c_dynamic});
        }
    }
    for (std::size_t index = 0; index < rows.size(); ++index) {
        rows[index].index = index;
    }
    return rows;
}

// Where the rows become many, each leaves out calls that the rows beside it let fail: most calls are those of
// the family that they share.
std::size_t Stride() {
    constexpr std::size_t rowsAtFull = 20;
    return kvtest::IsThorough() ? 1 : 1 + SweptRows().size() / rowsAtFull;
}

std::string NameOfSweptRow(const ::testing::TestParamInfo<SweptRow>& row) {
    return std::string(row.param.available.scenario->coclass) + "_" + row.param.property.name;
}

// Rows over real objects of a drawing: one host service after the other fails in the middle of what a user
// does.
class FaultSweep : public kvtest::RowContainer, public ::testing::WithParamInterface<SweptRow> {
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

    /// Runs the scenario with one failing call after the other, until a run meets no failure. The calls of
    /// the scenario `beginning`, with which this one begins, are left to that one.
    void Sweep(Step lead, Step beginning = nullptr) {
        const std::size_t stride = Stride();
        const std::size_t first =
            1 + (beginning && !kvtest::IsThorough() ? CountCalls(beginning) : 0) + GetParam().index % stride;
        std::size_t failing = first;
        for (; failing < c_mostCalls && !HasFailure(); failing += stride) {
            Run(lead, failing);
            for (int again = 0; wasFocusTaken && again < c_mostRunsAgain; ++again) {
                Run(lead, failing);
            }
            EXPECT_FALSE(wasFocusTaken) << "the row gives the focus away";
            const std::size_t calls = kvhost::Faults::CountedCalls();
            const std::string failed = kvtest::ToUtf8(kvhost::Faults::LastFailedService());
            kvhost::Faults::Reset();
            EXPECT_FALSE(HasFailure()) << "call " << failing << " of " << calls << ", " << failed;
            if (calls < failing) {
                EXPECT_GT(calls, 0U) << "nothing was swept";
                return;
            }
        }
        EXPECT_TRUE(HasFailure()) << "the scenario does not end";
    }

    /// The calls of a scenario in which none fails, without those of the row's end.
    std::size_t CountCalls(Step lead) {
        std::size_t calls = 0;
        for (int run = 0; run < 2; ++run) {  // the first one may load the module
            kvhost::Faults::Reset();
            SetBack();
            kvhost::Faults::FailAnyService(0);
            (this->*lead)();
            calls = kvhost::Faults::CountedCalls();
            ExpectBalanced();
        }
        return calls;
    }

    void Run(Step lead, std::size_t failing) {
        kvhost::Faults::Reset();
        SetBack();
        kvhost::Faults::FailAnyService(failing);
        (this->*lead)();
        ExpectBalanced();  // the end of the row is swept too
    }

    void SetBack() {
        for (std::size_t index = 0; index < c_objects; ++index) {
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
        wasFocusTaken = false;
    }

    void ExpectBalanced() {
        Discard();
        kvtest::PumpWaiting();
        EXPECT_EQ(host->Editor().OpenMarks(), 0);
        EXPECT_EQ(host->Editor().UserBreakDisabled(), 0);
        EXPECT_EQ(Undo().OpenGroups(), 0);
        EXPECT_EQ(document->GetDatabase().OpenCount(), 0);
        EXPECT_EQ(kvhost::LiveObject::Count(), 0);
        EXPECT_EQ(kvtest::AskModuleCanUnload(), S_OK);
        Clear();
    }

    kvhost::UndoController& Undo() { return *undo; }
    /// Null when the value stands in the class's property.
    static const wchar_t* AttributeOf(std::size_t index) { return GetParam().property.attributes[index]; }
    [[nodiscard]] bool AreAll(const kvtest::ScenarioValue& value) const {
        for (std::size_t index = 0; index < c_objects; ++index) {
            const wchar_t* const attribute = AttributeOf(index);
            if (attribute ? *kvhost::Database::Peek(ids[index])->CustomAttribute(attribute) != value.text
                          : !scenario.IsDrawn(ids[index], value)) {
                return false;
            }
        }
        return true;
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
        if (FAILED(::CoCreateInstance(*GetParam().available.id, nullptr, CLSCTX_INPROC_SERVER,
                                      __uuidof(IKvPiPropertyEditControl2), made.PutVoid()))) {
            isToldOfFailure = true;
            return false;
        }
        made.Reset();
        Create(*GetParam().available.id);
        return control && FillRow();
    }
    bool FillRow() {
        kvtest::SelectionArrays arrays;
        for (std::size_t index = 0; index < c_objects; ++index) {
            kvhost::PropertyRowEntry entry;
            if (!FindEntry(index, entry)) {
                isToldOfFailure = true;
                return false;
            }
            arrays.Add(entry.object.Get(), entry.dispid, entry.dynamicProperty.Get());
        }
        if (scenario.readsInWindow && FAILED(DoVerb(OLEIVERB_INPLACEACTIVATE))) {
            isToldOfFailure = true;
            return false;
        }
        // The palette keeps a row whose read failed, and reads it again later.
        isToldOfFailure |= FAILED(arrays.Init(*control.Get()));
        return true;
    }
    bool FindEntry(std::size_t index, kvhost::PropertyRowEntry& entry) const {
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
    void NoteWhatIsShown(HWND child) {
        if (scenario.edit.way == kvtest::EditWay::Choose) {
            // A list shows the choice until the palette refreshes the rows, as it does when an update has
            // ended.
            static_cast<void>(control->Refresh(0));
        }
        isToldOfFailure |= !scenario.edit.IsShownIn(child);
    }
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
    void Hide() {
        if (BeginActive() && Enter()) {
            const HWND child = kvtest::ChildInFocus(Row());
            static_cast<void>(DoVerb(OLEIVERB_HIDE));
            NoteWhatIsShown(child);
        }
        ExpectWrittenOrReported();
    }
    void Escape() {
        if (BeginActive() && scenario.edit.EnterUnconfirmed(Row())) {
            const HWND child = kvtest::ChildInFocus(Row());
            const kvtest::SentMessages sent;
            kvtest::PressInRow(Row(), VK_ESCAPE);
            // Another program that comes to the front before the key ends the edit, which writes the value.
            wasFocusTaken = !sent.To(child, {WM_KILLFOCUS}).empty();
        }
        EXPECT_TRUE(wasFocusTaken || AreAll(scenario.before)) << "what was taken back was written";
    }
    void Refuse() {
        host->Editor().SetDragging(true);
        EnterAndReturn();
        host->Editor().SetDragging(false);
        ExpectWrittenOrReported();
    }
    void Tip() {
        if (Begin() && SUCCEEDED(DoVerb(OLEIVERB_INPLACEACTIVATE))) {
            GiveFont();
            const RECT narrow = {c_place.left, c_place.top, c_place.left + 6, c_place.bottom};
            EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&narrow, &narrow), S_OK);
            ::UpdateWindow(Row());
            kvtest::MovePointerTo(Row(), {2, 5});
            ::SendMessageW(Row(), WM_MOUSEMOVE, 0, MAKELPARAM(2, 5));
            if (const HWND tip = ::FindWindowW(L"KvPeTextTip", nullptr)) {
                ::SendMessageW(tip, WM_TIMER, CPropTextTooltip::TimerId, 0);  // as when the user rests
                hasShownTip |= ::IsWindowVisible(tip) != FALSE;
            }
            ::SendMessageW(Row(), WM_MOUSELEAVE, 0, 0);
        }
        EXPECT_TRUE(AreAll(scenario.before));
    }
    void WriteAndUndo() {
        EnterAndReturn();
        ExpectWrittenOrReported();
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
    const kvtest::ClassScenario& scenario = *GetParam().available.scenario;
    KvDbObjectId ids[c_objects];
    kvhost::UndoController* undo = nullptr;
    int looseEnds = 0;
    bool isToldOfFailure = false;
    bool wasFocusTaken = false;
    bool hasShownTip = false;
};

TEST_P(FaultSweep, CreateAndInit_EachServiceFails) {
    Sweep(&FaultSweep::CreateAndInit);
}

TEST_P(FaultSweep, Activate_EachServiceFails) {
    Sweep(&FaultSweep::Activate);
}

TEST_P(FaultSweep, HideInEdit_EachServiceFails) {
    Sweep(&FaultSweep::Hide, &FaultSweep::Activate);
}

TEST_P(FaultSweep, Escape_EachServiceFails) {
    Sweep(&FaultSweep::Escape, &FaultSweep::Activate);
}

TEST_P(FaultSweep, RefusedEdit_EachServiceFails) {
    Sweep(&FaultSweep::Refuse, &FaultSweep::Activate);
}

TEST_P(FaultSweep, Tip_EachServiceFails) {
    Sweep(&FaultSweep::Tip);
    EXPECT_EQ(hasShownTip, scenario.hasTip);
}

TEST_P(FaultSweep, WriteAndUndo_EachServiceFails) {
    Sweep(&FaultSweep::WriteAndUndo, &FaultSweep::Activate);
}

TEST_P(FaultSweep, Dialog_EachServiceFails) {
    Sweep(&FaultSweep::Dialog);
}

INSTANTIATE_TEST_SUITE_P(Classes, FaultSweep, ::testing::ValuesIn(SweptRows()), &NameOfSweptRow);

}  // namespace
