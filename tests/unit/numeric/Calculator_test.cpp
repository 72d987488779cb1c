// The calculator of a number row: what it starts with, what comes back, and in which order.
#include "core/EditState.h"
#include "families/CalculatorLibraries.h"
#include "framework/window/CWnd.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "tests/support/MessagePump.h"
#include "tests/support/RowWarmUp.h"
#include "tests/support/WarmUp.h"
#include "tests/unit/numeric/NumericBench.h"

namespace {

using kvhost::Answers;
using kvtest::SelectionArrays;

/// Works in the calculator's window as soon as it is there.
class CalculatorUser {
public:
    explicit CalculatorUser(std::function<void(HWND dialog)> work)
        : m_timer(::SetTimer(nullptr, 0, 1, &Look)) {
        s_work = std::move(work);
    }
    CalculatorUser(const CalculatorUser&) = delete;
    CalculatorUser& operator=(const CalculatorUser&) = delete;
    ~CalculatorUser() {
        ::KillTimer(nullptr, m_timer);
        s_work = nullptr;
    }

private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
        const HWND dialog = ::FindWindowW(L"#32770", L"Calculator");
        if (dialog != nullptr && ::IsWindowVisible(dialog) && s_work) {
            const auto work = std::exchange(s_work, nullptr);
            work(dialog);
        }
    }

    inline static std::function<void(HWND dialog)> s_work;
    UINT_PTR m_timer;
};

const kvtest::WarmUpStep s_rows(&kvtest::WarmUpRows);
// What a first dialog leaves with the system.
const kvtest::WarmUpStep s_dialog([] {
    alignas(KvCalculatorResult) std::byte place[sizeof(KvCalculatorResult)] = {};
    const CString text(L"Calculator");
    Answers::SetInteractive(true);
    {
        const CalculatorUser user([](HWND dialog) { ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
        EXPECT_FALSE(FindCalculatorDialog(KVBRIDGE_LIBRARY)(reinterpret_cast<KvCalculatorResult*>(place),
                                                            &text, &text, true));
    }
    Answers::Reset();
});

/// Notes the points that the calculator gives.
class PointNotingRow : public CPropertyEditorTOLMNumeric {
public:
    using CPropertyEditorTOLMNumeric::CPropertyEditorTOLMNumeric;
    using CPropertyEditorTOLMNumeric::m_edit;
    using CPropertyEditorTOLMNumeric::m_editBoxReadOnly;
    using CPropertyEditorTOLMNumeric::m_state;
    using CPropertyEditorTOLMNumeric::m_text;

    HRESULT SetCalculatorPoint(const KvGePoint3d& point) override {
        kvtest::Note(L"SetCalculatorPoint", point.x, point.y, point.z);
        return CPropertyEditorTOLMNumeric::SetCalculatorPoint(point);
    }
};

class CalculatorRow : public kvtest::NumberRowTest<PointNotingRow> {
protected:
    CalculatorRow() {
        window.Create(s_windowClass, L"bench", WS_POPUP | WS_VISIBLE, {100, 100, 300, 120}, nullptr);
        shell.window = window.m_hWnd;
        EXPECT_EQ(row.SetNumericDataType(PE_TOLM_DISTANCE), S_OK);
    }
    ~CalculatorRow() override {
        EXPECT_EQ(row.Cleanup(), S_OK);
        Answers::Reset();
        kvhost::Faults::Reset();
    }

    /// A row in edit over one object.
    void Open(double number, VARIANT_BOOL readOnly = VARIANT_FALSE) {
        EXPECT_EQ(SelectionArrays().Add(&MakeNumber(L"A", number)).Init(row, readOnly), S_OK);
        EXPECT_EQ(row.BeginEdit({0, 0, 200, 20}), S_OK);
        kvtest::PumpWaiting();
        journal.Clear();
    }
    /// The text that the calculator was started with.
    std::wstring Launch() {
        EXPECT_EQ(row.LaunchCalculator(), S_OK);
        const std::vector<std::wstring> shown = Answers::TakeShown();
        return shown.empty() ? L"no dialog" : shown.front();
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestCalculatorRow"};
    CWnd window;
};

TEST_F(CalculatorRow, Result_IsCommittedLikeTypedText) {
    Open(18.5);
    Answers::QueueText(L"2*(3+0.25)");
    EXPECT_EQ(Launch(), L"18.5000");
    EXPECT_EQ(FirstValue().Get().dblVal, 6.5);
    EXPECT_EQ(row.GetRowText(), L"6.5000");
}

TEST_F(CalculatorRow, Calls_ComeInOrder) {
    Open(18.5);
    Answers::QueueText(L"6");
    Launch();
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvedGetVar", "KvCal", "InvokeDialog", "kvdbDis", "Invoke A",
                                             "kvedSendModeless", "kvdbRToS"}),
                 "kvedGetVar LUNITS", "KvCalCompoundUnit", "InvokeDialog Calculator 18.5000 1",
                 "kvdbDisToF 6 -1", "kvedSendModelessOperationStart ZRB_CHGPROP", "Invoke A put 5 r8:6",
                 "kvedSendModelessOperationEnded ZRB_CHGPROP", "Invoke A get 5", "kvdbRToS 6 -1 -1");
}

TEST_F(CalculatorRow, Cancelled_CommitsWhatWasTyped) {
    Open(18.5);
    row.m_edit->SetWindowText(L"7");
    Answers::QueueButton(IDCANCEL);
    EXPECT_EQ(Launch(), L"18.5000");
    EXPECT_EQ(FirstValue().Get().dblVal, 7);
}

TEST_F(CalculatorRow, CancelledWithoutTyping_WritesNothing) {
    Open(18.5);
    Answers::QueueButton(IDCANCEL);
    Launch();
    EXPECT_TRUE(FirstValue().puts.empty());
}

TEST_F(CalculatorRow, FractionalUnits_TextBecomesANumber) {
    SetVariable(L"LUNITS", 5);
    Open(18.5);
    EXPECT_EQ(row.GetRowText(), L"18 1/2");
    EXPECT_EQ(Launch(), L"18.5");
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"kvdbDis"}), "kvdbDisToF 18 1/2 5");
    row.m_text = L"2*x";
    EXPECT_EQ(Launch(), L"2*x");
    row.m_text = L"1/3";
    EXPECT_EQ(Launch(), L"0.333333333333333");
}

TEST_F(CalculatorRow, OtherUnitsOrNoAnswer_TextStays) {
    SetVariable(L"LUNITS", 4);
    Open(18.5);
    EXPECT_EQ(Launch(), L"1'-6 1/2\"");
    SetVariable(L"LUNITS", 5);
    row.m_text = L"18 1/2";
    kvhost::Faults::FailService(L"kvedGetVar", 1);
    EXPECT_EQ(Launch(), L"18 1/2");
    kvhost::Faults::FailService(L"kvdbDisToF", 1);
    EXPECT_EQ(Launch(), L"18 1/2");
}

TEST_F(CalculatorRow, InchesWithoutFeet_GetThem) {
    Open(1);
    row.m_text = L"5\"";
    EXPECT_EQ(Launch(), L"0' 5\"");
    row.m_text = L"-5\"";
    EXPECT_EQ(Launch(), L"-0' 5\"");
    row.m_text = L"1'-5\"";
    EXPECT_EQ(Launch(), L"1'-5\"");
    row.m_text = L"5";
    EXPECT_EQ(Launch(), L"5");
    row.m_text = L" -5\"";
    EXPECT_EQ(Launch(), L"0'  -5\"");
}

TEST_F(CalculatorRow, ReadOnlyRow_CalculatorIsToldAndNothingIsWritten) {
    Open(18.5, VARIANT_TRUE);
    Answers::QueueText(L"6");
    EXPECT_EQ(Launch(), L"18.5000");
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"InvokeDialog", "Invoke A put"}),
                 "InvokeDialog Calculator 18.5000 0");
}

TEST_F(CalculatorRow, ReadOnlyBox_ResultIsNotTaken) {
    Open(18.5);
    row.m_editBoxReadOnly = true;
    Answers::QueueText(L"6");
    Launch();
    EXPECT_EQ(row.m_edit->GetWindowText(), L"18.5000");
    EXPECT_TRUE(FirstValue().puts.empty());
}

TEST(CalculatorLibraries, UnitsLibrary_ConstructsAUnitWithoutPowers) {
    alignas(double) std::byte place[sizeof(KvCalCompoundUnit)];
    std::fill(std::begin(place), std::end(place), std::byte{0x55});
    auto* const unit = reinterpret_cast<KvCalCompoundUnit*>(place);
    EXPECT_TRUE(ConstructCalculatorUnit(unit));
    EXPECT_EQ(unit->LengthPower(), 0);
    EXPECT_EQ(unit->AnglePower(), 0);
}

TEST_F(CalculatorRow, Records_FillTheBoxByTheirKind) {
    Open(1);
    alignas(double) std::byte place[sizeof(KvCalculatorResult)] = {};
    auto& record = *reinterpret_cast<KvCalculatorResult*>(place);
    record.value = 0.1;
    record.x = 1;
    record.y = 2;
    record.z = 3;
    for (const auto kind : {KVCALC_NUMBER, KVCALC_NUMBER_WITH_UNIT}) {
        record.kind = kind;
        EXPECT_EQ(row.SetCalculatorResult(&record), 1);
        EXPECT_EQ(row.m_edit->GetWindowText(), L"0.1");
    }
    journal.Clear();
    record.kind = KVCALC_POINT;
    EXPECT_EQ(row.SetCalculatorResult(&record), 1);
    EXPECT_EQ(row.m_edit->GetWindowText(), L"");
    EXPECT_CALLS(journal, "SetCalculatorPoint 1 2 3");
    row.m_edit->SetWindowText(L"former");
    record.kind = KVCALC_NEITHER;
    EXPECT_EQ(row.SetCalculatorResult(&record), 1);
    EXPECT_EQ(row.m_edit->GetWindowText(), L"");
    EXPECT_EQ(row.SetCalculatorResult(nullptr), 0);
    row.m_edit->SetWindowText(row.GetRowText());
}

TEST_F(CalculatorRow, SixteenDigits_ComeBackExactly) {
    Open(1);
    Answers::QueueText(L"1/3");
    Launch();
    EXPECT_EQ(FirstValue().Get().dblVal, 0.3333333333333333);
}

TEST_F(CalculatorRow, WhileTheDialogIsUp_HidingTheRowEndsNoEdit) {
    Open(18.5);
    Answers::SetInteractive(true);
    int stateWhileUp = 0;
    std::size_t putsWhileUp = 9;
    {
        const CalculatorUser user([&](HWND dialog) {
            row.m_edit->SetWindowText(L"7");
            EXPECT_EQ(row.Handle_DoVerbHide(), S_OK);
            stateWhileUp = row.m_state;
            putsWhileUp = FirstValue().puts.size();
            ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        });
        Launch();
    }
    EXPECT_GE(stateWhileUp, EditState_InEdit);
    EXPECT_EQ(putsWhileUp, 0U);
    EXPECT_EQ(FirstValue().Get().dblVal, 7);
    // Afterwards hiding ends the edit again.
    EXPECT_EQ(row.Handle_DoVerbHide(), S_OK);
    EXPECT_EQ(row.m_state, EditState_Shown);
}

TEST_F(CalculatorRow, RealDialog_TypedFormulaIsTaken) {
    Open(18.5);
    Answers::SetInteractive(true);
    {
        const CalculatorUser user([](HWND dialog) {
            HWND formula = ::FindWindowExW(dialog, nullptr, L"Edit", nullptr);
            ::SetWindowTextW(formula, L"1.5*4");
            ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        Launch();
    }
    EXPECT_EQ(FirstValue().Get().dblVal, 6);
}

TEST(CalculatorLibraries, MissingLibrary_HasNoDialog) {
    EXPECT_EQ(FindCalculatorDialog(L"KvNoSuchLibrary.dll"), nullptr);
}

TEST(CalculatorLibraries, LibraryWithoutTheEntry_IsUnloadedAgain) {
    constexpr wchar_t c_library[] = L"cabinet.dll";
    ASSERT_EQ(::GetModuleHandleW(c_library), nullptr);
    EXPECT_EQ(FindCalculatorDialog(c_library), nullptr);
    EXPECT_EQ(::GetModuleHandleW(c_library), nullptr);
}

TEST(CalculatorLibraries, LoadedLibraryWithoutTheEntry_StaysLoaded) {
    EXPECT_EQ(FindCalculatorDialog(L"KvHost.dll"), nullptr);
    EXPECT_NE(::GetModuleHandleW(L"KvHost.dll"), nullptr);
}

TEST(CalculatorLibraries, LibraryWithTheEntry_StaysLoaded) {
    const KvInvokeDialog found = FindCalculatorDialog(KVBRIDGE_LIBRARY);
    EXPECT_NE(found, nullptr);
    EXPECT_NE(::GetModuleHandleW(KVBRIDGE_LIBRARY), nullptr);
    EXPECT_EQ(FindCalculatorDialog(KVBRIDGE_LIBRARY), found);
}

}  // namespace
