#include <gtest/gtest.h>

#include "framework/base/CString.h"
#include "host_sdk/KvCalculator.h"
#include "refhost/calculator/CalculatorDialog.h"
#include "refhost/calculator/ResourceIds.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/Faults.h"
#include "refhost/testing/Journal.h"
#include "tests/support/MessagePump.h"

extern "C" bool InvokeDialog(KvCalculatorResult* record, const CString* caption, const CString* text,
                             bool writable);

namespace {

using kvhost::Answers;

class Calculator : public testing::Test {
protected:
    ~Calculator() override {
        Answers::Reset();
        kvhost::Faults::Reset();
    }

    bool Invoke(const wchar_t* text, bool writable = true) {
        const CString caption(L"Calculator");
        const CString input(text);
        return InvokeDialog(&record, &caption, &input, writable);
    }

    kvhost::HostSession session;
    kvhost::Document& document = session->Documents().New();
    KvCalculatorResult record{KVCALC_NEITHER, 0, 0, 0, 0, 0, {}};
};

TEST_F(Calculator, PreparedFormula_FillsTheRecord) {
    Answers::QueueText(L"2*(3+4)");
    EXPECT_TRUE(Invoke(L"5"));
    EXPECT_EQ(record.kind, KVCALC_NUMBER);
    EXPECT_EQ(record.value, 14);
    EXPECT_TRUE(record.unit.IsUnitless());
}

TEST_F(Calculator, Units_AreToldWithTheNumber) {
    Answers::QueueText(L"2'*1'");
    EXPECT_TRUE(Invoke(L""));
    EXPECT_EQ(record.kind, KVCALC_NUMBER_WITH_UNIT);
    EXPECT_EQ(record.value, 288);
    EXPECT_TRUE(record.unit.IsArea());
    Answers::QueueText(L"1'-6\"");
    EXPECT_TRUE(Invoke(L""));
    EXPECT_TRUE(record.unit.IsLength());
    session->Variables().Set(L"AUNITS", 2);
    Answers::QueueText(L"90d");
    EXPECT_TRUE(Invoke(L""));
    EXPECT_TRUE(record.unit.IsAngle());
    EXPECT_EQ(record.value, 100);
}

TEST_F(Calculator, Point_FillsTheCoordinates) {
    Answers::QueueText(L"[1, 2, 3]");
    EXPECT_TRUE(Invoke(L""));
    EXPECT_EQ(record.kind, KVCALC_POINT);
    EXPECT_EQ(record.x, 1);
    EXPECT_EQ(record.y, 2);
    EXPECT_EQ(record.z, 3);
}

TEST_F(Calculator, ConfirmedWithoutAText_TakesTheOneItBeganWith) {
    Answers::QueueButton(IDOK);
    EXPECT_TRUE(Invoke(L"0' 5\""));
    EXPECT_EQ(record.value, 5);
    EXPECT_EQ(Answers::TakeShown(), std::vector<std::wstring>{L"0' 5\""});
}

TEST_F(Calculator, CancelledMalformedOrReadOnly_LeavesTheRecord) {
    Answers::QueueButton(IDCANCEL);
    EXPECT_FALSE(Invoke(L"5"));
    Answers::QueueText(L"2*");
    EXPECT_FALSE(Invoke(L"5"));
    Answers::QueueText(L"2*3");
    EXPECT_FALSE(Invoke(L"5", false));
    EXPECT_FALSE(Invoke(L"5"));  // nobody is there to answer
    EXPECT_EQ(record.kind, KVCALC_NEITHER);
    EXPECT_EQ(record.value, 0);
}

TEST_F(Calculator, IsJournaledAndCanFail) {
    kvhost::Journal journal;
    Answers::QueueText(L"7");
    kvhost::Faults::FailService(L"InvokeDialog", 1);
    EXPECT_FALSE(Invoke(L"5"));
    EXPECT_TRUE(Invoke(L"6", true));
    ASSERT_EQ(journal.Entries().size(), 2U);
    EXPECT_EQ(journal.Entries()[0].Line(), L"InvokeDialog Calculator 5 1");
    EXPECT_EQ(journal.Entries()[0].result, L"0");
    EXPECT_EQ(journal.Entries()[1].result, L"1");
    const CString text(L"1");
    EXPECT_FALSE(InvokeDialog(nullptr, &text, &text, true));
    EXPECT_FALSE(InvokeDialog(&record, nullptr, &text, true));
    EXPECT_FALSE(InvokeDialog(&record, &text, nullptr, true));
}

class CalculatorWindow : public testing::Test {
protected:
    void Show(const wchar_t* text, bool writable = true) {
        dialog.emplace(L"Calculator", text, kvhost::AngularFormat::Degrees, writable);
        ASSERT_TRUE(dialog->CreateModeless(KVBRIDGE_DIALOG_CALCULATOR));
    }
    CString Text(int id) { return dialog->GetDlgItemText(id); }
    bool CanConfirm() { return ::IsWindowEnabled(dialog->GetDlgItem(IDOK)) != FALSE; }
    void Press(const wchar_t* key) {
        for (int id = KVBRIDGE_FIRST_KEY; id <= KVBRIDGE_LAST_KEY; ++id) {
            if (Text(id) == key) {
                ::SendMessageW(dialog->GetDlgItem(id), BM_CLICK, 0, 0);
                return;
            }
        }
        FAIL() << "no such key";
    }

    std::optional<kvhost::CalculatorDialog> dialog;
};

TEST_F(CalculatorWindow, Formula_IsWorkedOutWhileItIsTyped) {
    Show(L"1'-6\"");
    EXPECT_EQ(dialog->GetWindowText(), L"Calculator");
    EXPECT_EQ(Text(KVBRIDGE_FORMULA), L"1'-6\"");
    EXPECT_EQ(Text(KVBRIDGE_RESULT), L"= 18 units");
    EXPECT_TRUE(CanConfirm());
    dialog->SetDlgItemText(KVBRIDGE_FORMULA, L"2*");
    EXPECT_EQ(Text(KVBRIDGE_RESULT), L"");
    EXPECT_FALSE(CanConfirm());
    dialog->SetDlgItemText(KVBRIDGE_FORMULA, L"2*45d");
    EXPECT_EQ(Text(KVBRIDGE_RESULT), L"= 90\u00B0");
    dialog->SetDlgItemText(KVBRIDGE_FORMULA, L"[1,2]");
    EXPECT_EQ(Text(KVBRIDGE_RESULT), L"= [1, 2, 0]");
    dialog->SetDlgItemText(KVBRIDGE_FORMULA, L"2'*3'");
    EXPECT_EQ(Text(KVBRIDGE_RESULT), L"= 864 units^2");
    EXPECT_TRUE(CanConfirm());
}

TEST_F(CalculatorWindow, Keys_TypeTheirText) {
    Show(L"");
    for (const wchar_t* const key : {L"sqrt(", L"1", L"6", L")", L"*", L"2"}) {
        Press(key);
    }
    EXPECT_EQ(Text(KVBRIDGE_FORMULA), L"sqrt(16)*2");
    EXPECT_EQ(Text(KVBRIDGE_RESULT), L"= 8");
}

TEST_F(CalculatorWindow, ReadOnlyRow_ResultCantBeConfirmed) {
    Show(L"2+3", false);
    EXPECT_EQ(Text(KVBRIDGE_RESULT), L"= 5");
    EXPECT_FALSE(CanConfirm());
}

TEST_F(CalculatorWindow, Confirmed_HasTheResult) {
    Show(L"2+3");
    ::SendMessageW(dialog->m_hWnd, WM_COMMAND, IDOK, 0);
    ASSERT_TRUE(dialog->Result());
    EXPECT_EQ(dialog->Result()->value.number, 5);
}

}  // namespace
