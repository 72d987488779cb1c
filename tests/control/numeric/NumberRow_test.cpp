#include "refhost/automation/PropertyRows.h"
#include "refhost/db/Arc.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/Answers.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

using kvhost::Arc;
using kvhost::Database;
using kvhost::ScopedOpen;

// Rows over arcs of a drawing: a radius, which is a length, and an angle.
class NumberRow : public kvtest::RowContainer {
protected:
    static constexpr DISPID c_radius = 222;
    static constexpr DISPID c_startAngle = 223;
    static constexpr int c_calculator = 1046;

    ~NumberRow() override {
        Discard();
        kvhost::Answers::Reset();
    }

    Database& Drawing() { return document->GetDatabase(); }

    void MakeArc(double radius) {
        KvDbObjectId id;
        ASSERT_EQ(Drawing().AppendEntity(std::make_unique<Arc>(), id), Tolm::eOk);
        ASSERT_EQ(ScopedOpen<Arc>(id, KvDb::kForWrite)->SetRadius(radius), Tolm::eOk);
        arcs.push_back(id);
    }
    void Set(const wchar_t* variable, int value) {
        ASSERT_EQ(host->Variables().Set(variable, value), kvhost::SystemVariables::Outcome::Done);
    }
    /// Over all arcs, as the palette makes it: what it is told comes before its objects.
    void OpenRow(const CLSID& classId, DISPID property, KvPeNumericType type = PE_TOLM_DISTANCE,
                 VARIANT_BOOL calculator = VARIANT_FALSE, bool readOnly = false) {
        Create(classId);
        if (const auto editor = As<IKvPeNumericEditor>()) {
            ASSERT_EQ(editor->SetNumericDataType(type), S_OK);
        }
        ASSERT_EQ(As<IKvPeCalculatorCtrl>()->SetCalculatorMode(calculator), S_OK);
        std::vector<fw::ComPtr<IDispatch>> automation;
        std::vector<IDispatch*> selection;
        for (const KvDbObjectId id : arcs) {
            automation.emplace_back();
            ASSERT_EQ(kvhost::GetAutomationObject(id, automation.back().Put()), S_OK);
            selection.push_back(automation.back().Get());
        }
        dispid = property;
        ASSERT_EQ(InitEdit(selection, readOnly), S_OK);
        GiveFont();
        UIActivate();
        kvtest::PumpWaiting();
        Drawing().Undo().Clear();
        Clear();
    }
    void OpenRadius(VARIANT_BOOL calculator = VARIANT_FALSE) {
        OpenRow(CLSID_KvPePropertyEditorTOLMNumeric, c_radius, PE_TOLM_DISTANCE, calculator);
    }
    void Enter(const wchar_t* text) {
        kvtest::TypeText(text);
        kvtest::PressKey(VK_RETURN);
    }
    double Radius(std::size_t index = 0) const { return Database::PeekAs<Arc>(arcs[index])->Radius(); }
    [[nodiscard]] kvtest::CallLines Puts() const {
        return kvtest::CallsOnly(journal, {"Invoke put", "Put", "kvedSendModeless"});
    }

    std::vector<KvDbObjectId> arcs;
};

TEST_F(NumberRow, Interfaces_AreThoseOfTheClass) {
    Create(CLSID_KvPePropertyEditorNumeric);
    EXPECT_TRUE(As<IKvPeCalculatorCtrl>());
    EXPECT_TRUE(As<IKvPeButtonEditCtrl>());
    EXPECT_FALSE(As<IKvPeNumericEditor>());
    Discard();
    Create(CLSID_KvPePropertyEditorTOLMNumeric);
    EXPECT_TRUE(As<IKvPeCalculatorCtrl>());
    EXPECT_TRUE(As<IKvPeButtonEditCtrl>());
    const auto editor = As<IKvPeNumericEditor>();
    ASSERT_TRUE(editor);
    for (int type = 0; type <= 6; ++type) {
        const bool isRefused = type == 3 || type == 4 || type == 5;
        EXPECT_EQ(editor->SetNumericDataType(static_cast<KvPeNumericType>(type)), isRefused ? E_FAIL : S_OK);
    }
}

TEST_F(NumberRow, Length_IsShownAndReadInEveryFormat) {
    struct Case {
        int format;
        const wchar_t* shown;
        const wchar_t* typed;
        double radius;
    };
    const Case cases[] = {{1, L"1.8500E+01", L"2.5e1", 25},
                          {2, L"18.5000", L"7", 7},
                          {3, L"1'-6.5000\"", L"2'-3\"", 27},
                          {4, L"1'-6 1/2\"", L"1'6-1/4", 18.25},
                          {5, L"18 1/2", L"3 1/8", 3.125}};
    MakeArc(18.5);
    for (const Case& format : cases) {
        ASSERT_EQ(ScopedOpen<Arc>(arcs[0], KvDb::kForWrite)->SetRadius(18.5), Tolm::eOk);
        Set(L"LUNITS", format.format);
        OpenRadius();
        EXPECT_EQ(BoxText(), format.shown);
        Enter(format.typed);
        EXPECT_EQ(Radius(), format.radius);
        Discard();
    }
}

TEST_F(NumberRow, Angle_IsShownAndReadInEveryFormat) {
    const wchar_t* const shown[] = {L"45.00", L"45d0'", L"50.00g", L"0.79r", L"N 45d0' E"};
    MakeArc(1);
    Set(L"AUPREC", 2);
    for (int format = 0; format <= 4; ++format) {
        ASSERT_EQ(ScopedOpen<Arc>(arcs[0], KvDb::kForWrite)->SetStartAngle(0.7853981633974483), Tolm::eOk);
        Set(L"AUNITS", format);
        OpenRow(CLSID_KvPePropertyEditorTOLMNumeric, c_startAngle, PE_TOLM_ANGLE);
        EXPECT_EQ(BoxText(), shown[format]);
        Enter(L"N 30d W");
        EXPECT_NEAR(Database::PeekAs<Arc>(arcs[0])->StartAngle(), 2.0943951023931953, 1e-12);
        Discard();
    }
}

TEST_F(NumberRow, Unedited_CommitsNothing) {
    // Its text is not its value: to read it back would change the arc.
    MakeArc(1.23456789);
    for (const CLSID& classId : {CLSID_KvPePropertyEditorTOLMNumeric, CLSID_KvPePropertyEditorNumeric}) {
        OpenRow(classId, c_radius);
        EXPECT_EQ(BoxText(), L"1.2346");
        kvtest::PressKey(VK_RETURN);
        ::SetFocus(elsewhere.m_hWnd);
        kvtest::PumpWaiting();
        EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
        EXPECT_TRUE(Puts().empty());
        EXPECT_EQ(Radius(), 1.23456789);
        EXPECT_EQ(Drawing().Undo().UndoCount(), 0);
        Discard();
    }
}

TEST_F(NumberRow, MalformedText_IsRefusedAndTheOldValueShown) {
    // No expressions are in the start angle's way.
    MakeArc(1);
    for (const wchar_t* const text : {L"abc", L"1 2", L"45dd", L"-"}) {
        OpenRow(CLSID_KvPePropertyEditorTOLMNumeric, c_startAngle, PE_TOLM_ANGLE);
        const std::wstring former = BoxText();
        Enter(text);
        EXPECT_EQ(BoxText(), former);
        EXPECT_TRUE(Puts().empty());
        EXPECT_EQ(Drawing().Undo().UndoCount(), 0);
        Discard();
    }
}

TEST_F(NumberRow, Expression_IsTakenWhereTheTextIsNoNumber) {
    MakeArc(5);
    OpenRadius();
    Enter(L"2*3+1");
    EXPECT_EQ(Radius(), 7);
    EXPECT_EQ(BoxText(), L"7.0000");
}

TEST_F(NumberRow, LengthsThatPrintAlike_AreOneValue) {
    MakeArc(1.00004);
    MakeArc(1.00003);
    OpenRadius();
    EXPECT_EQ(BoxText(), L"1.0000");
    Discard();
    Set(L"LUPREC", 5);
    OpenRadius();
    EXPECT_EQ(BoxText(), L"*VARIES*");
}

TEST_F(NumberRow, Edit_IsOneStepOverAllObjects) {
    MakeArc(1);
    MakeArc(2);
    OpenRadius();
    Enter(L"3.5");
    EXPECT_EQ(Radius(0), 3.5);
    EXPECT_EQ(Radius(1), 3.5);
    EXPECT_EQ(Drawing().Undo().UndoCount(), 1);
}

TEST_F(NumberRow, CalculatorButton_ClickTakesTheResult) {
    MakeArc(5);
    OpenRow(CLSID_KvPePropertyEditorTOLMNumeric, c_startAngle, PE_TOLM_RAW_ANGLE, VARIANT_TRUE);
    ASSERT_NE(Box(c_calculator), nullptr);
    EXPECT_TRUE(::IsWindowVisible(Box(c_calculator)));
    kvhost::Answers::QueueText(L"30*2");
    kvtest::ClickAt(Box(c_calculator), {5, 5});
    kvtest::PumpWaiting();
    EXPECT_NEAR(Database::PeekAs<Arc>(arcs[0])->StartAngle(), 1.0471975511965976, 1e-12);
    EXPECT_EQ(BoxText(), L"60");
    EXPECT_EQ(Drawing().Undo().UndoCount(), 1);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"InvokeDialog", "KvCalCompoundUnit", "OnBeginPropertyUpdate",
                                             "OnEndPropertyUpdate", "kvedSendModeless"}),
                 "OnBeginPropertyUpdate", "KvCalCompoundUnit", "InvokeDialog Calculator 0 1",
                 "kvedSendModelessOperationStart ZRB_CHGPROP", "OnBeginPropertyUpdate",
                 "kvedSendModelessOperationEnded ZRB_CHGPROP", "OnEndPropertyUpdate", "OnEndPropertyUpdate");
}

TEST_F(NumberRow, CalculatorButton_CancelledDialogWritesNothing) {
    MakeArc(5);
    OpenRow(CLSID_KvPePropertyEditorNumeric, c_radius, PE_TOLM_DISTANCE, VARIANT_TRUE);
    kvhost::Answers::QueueButton(IDCANCEL);
    kvtest::ClickAt(Box(c_calculator), {5, 5});
    kvtest::PumpWaiting();
    EXPECT_EQ(Radius(), 5);
    EXPECT_EQ(Drawing().Undo().UndoCount(), 0);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"InvokeDialog"}), "InvokeDialog Calculator 5.0000 1");
}

TEST_F(NumberRow, CalculatorMode_OneGivesNoButton) {
    MakeArc(5);
    OpenRow(CLSID_KvPePropertyEditorNumeric, c_radius, PE_TOLM_DISTANCE, 1);
    EXPECT_EQ(Box(c_calculator), nullptr);
}

}  // namespace
