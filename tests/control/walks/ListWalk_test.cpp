#include "host_sdk/KvEdServices.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/Layer.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/UndoController.h"
#include "refhost/testing/Answers.h"
#include "tests/control/walks/RowWalk.h"
#include "tests/support/Rounds.h"

// Whatever a user does in list rows: previews leave no trace, brackets are paired, and a choice is one step.

namespace {

constexpr UINT c_listHover = 1824;
const int c_steps = kvtest::Rounds(2'000, 100'000);

constexpr const wchar_t* c_refusedLayer = L"External";

std::vector<kvtest::AvailableClass> ListClasses() {
    std::vector<kvtest::AvailableClass> lists = kvtest::AvailableClasses();
    std::erase_if(lists, [](const kvtest::AvailableClass& row) {
        return row.scenario->edit.way != kvtest::EditWay::Choose;
    });
    return lists;
}

/// Over entities of the drawing, so that what is shown, written and taken back is what happened.
class ListWalk : public kvtest::RowWalk {
protected:
    ListWalk() {
        AddLayer(L"Locked", [](kvhost::Layer& layer) { layer.SetLocked(true); });
        AddLayer(L"Frozen", [](kvhost::Layer& layer) { layer.SetFrozen(true); });
        AddLayer(L"Hidden", [](kvhost::Layer& layer) { layer.SetOn(false); });
        AddLayer(c_refusedLayer, [](kvhost::Layer& layer) { layer.SetExternal(true); });
        for (KvDbObjectId& id : m_ids) {
            id = scenario.append(Drawing());
            scenario.SetDrawn(id, scenario.before);
        }
        Undo().Clear();
        NoteTrueDrawing();
        MakeRow();
    }

    void Step() {
        static_cast<void>(kvhost::Answers::TakeShown());
        switch (Below(10)) {
            case 0:
                static_cast<void>(Drop());
                return ExpectNothingWritten();
            case 1:
            case 2:
                Hover(AnyEntry());
                return ExpectNothingWritten();
            case 3:
                Hover(-1);
                return ExpectNothingWritten();
            case 4:
                Press(IsOneIn(2) ? VK_DOWN : VK_UP);
                return ExpectOneStepAtMost();
            case 5:
                return Commit();
            case 6:
                return Cancel();
            case 7:
                return UndoStep();
            case 8:
                EXPECT_EQ(DoVerb(IsOneIn(2) ? OLEIVERB_HIDE : OLEIVERB_UIACTIVATE), S_OK);
                return ExpectOneStepAtMost();
            default:
                return ChangeSelection();
        }
    }

private:
    [[nodiscard]] kvhost::Database& Drawing() { return document->GetDatabase(); }
    [[nodiscard]] kvhost::UndoController& Undo() { return Drawing().Undo(); }
    [[nodiscard]] std::string Drawn() { return kvhost::QdfContent(Drawing()); }

    template <class Change>
    void AddLayer(const wchar_t* name, const Change& change) {
        KvDbObjectId id;
        EXPECT_EQ(Drawing().AddLayer(name, id), Tolm::eOk);
        const kvhost::ScopedOpen<kvhost::Layer> layer(id, KvDb::kForWrite);
        ASSERT_TRUE(static_cast<bool>(layer));
        change(*layer);
    }

    void MakeRow() {
        Create(*GetParam().id);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        std::vector<fw::ComPtr<IDispatch>> drawn(static_cast<std::size_t>(1 + Below(c_objects)));
        std::vector<IDispatch*> selection;
        for (fw::ComPtr<IDispatch>& object : drawn) {
            ASSERT_EQ(kvhost::GetAutomationObject(m_ids[selection.size()], object.Put()), S_OK);
            selection.push_back(object.Get());
        }
        dispid = scenario.objectProperty;
        ASSERT_EQ(InitEdit(selection), S_OK);
        kvtest::PumpWaiting();
    }

    // What the user does

    /// False when the row shows none, as over objects on a locked layer.
    bool Drop() {
        EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
        if (IsListShown()) {
            ::SendMessageW(List(), CB_SHOWDROPDOWN, TRUE, 0);
        }
        kvtest::PumpWaiting();
        return IsListShown();
    }
    [[nodiscard]] bool IsListShown() const { return ::IsWindowVisible(List()) != FALSE; }
    [[nodiscard]] int CurrentEntry() const {
        return static_cast<int>(::SendMessageW(List(), CB_GETCURSEL, 0, 0));
    }
    /// -1 is none.
    [[nodiscard]] int AnyEntry() {
        return Below(static_cast<int>(::SendMessageW(List(), CB_GETCOUNT, 0, 0)) + 1) - 1;
    }
    [[nodiscard]] bool IsRefused(int entry) const {
        wchar_t text[100]{};
        ::SendMessageW(List(), CB_GETLBTEXT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(text));
        return std::wcscmp(text, c_refusedLayer) == 0;
    }
    /// The mouse gets to entries of a list that is shown.
    void Hover(int entry) {
        if (!IsListShown() && !Drop()) {
            return;
        }
        ::SendMessageW(Row(), c_listHover, 1002, entry);
        if (!IsOneIn(4)) {
            kvtest::PumpWaiting();  // else the next step meets an action that still waits
        }
    }
    void Press(WORD key) {
        if (IsListShown()) {
            ::PostMessageW(List(), WM_KEYDOWN, key, 1);
        }
        kvtest::PumpWaiting();
    }
    void Commit() {
        static_cast<void>(Drop());
        ExpectNothingWritten();
        EXPECT_EQ(control->Refresh(0), S_OK);
        const int current = CurrentEntry();
        const int entry = AnyEntry();
        const bool isWritten = IsListShown() && entry != -1 && entry != current && !IsRefused(entry);
        ::SendMessageW(List(), CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
        Press(VK_RETURN);
        EXPECT_FALSE(kvedIsLivePreviewStarted());
        EXPECT_EQ(Groups(), isWritten ? 1U : 0U) << "entry " << entry << " instead of " << current;
        ExpectOneStepAtMost();
    }
    void Cancel() {
        static_cast<void>(Drop());
        Hover(AnyEntry());
        Hover(AnyEntry());
        Press(VK_ESCAPE);
        EXPECT_FALSE(kvedIsLivePreviewStarted());
        ExpectNothingWritten();
    }
    /// The palette reads its rows afterwards.
    void UndoStep() {
        if (Undo().UndoCount() > 0) {
            EXPECT_EQ(Undo().UndoByUser(1), Tolm::eOk);
            Undo().Preview().TakeBack();
            NoteTrueDrawing();
        }
        EXPECT_EQ(control->Refresh(0), S_OK);
        ExpectNothingWritten();
    }
    void ChangeSelection() {
        Discard();
        kvtest::PumpWaiting();
        EXPECT_FALSE(kvedIsLivePreviewStarted());
        ExpectOneStepAtMost();  // what is marked in an open list counts when the row is left
        MakeRow();
        ExpectNothingWritten();
    }

    // What must hold afterwards

    [[nodiscard]] std::size_t Groups() const { return kvtest::CallsOnly(journal, {"undoGroup 8"}).size(); }
    void NoteTrueDrawing() {
        m_trueDrawing = Drawn();
        m_steps = Undo().UndoCount();
    }
    void ExpectPaired() {
        EXPECT_EQ(Unpaired(), "");
        EXPECT_EQ(host->Editor().OpenMarks(), 0);
        EXPECT_EQ(Undo().OpenGroups(), 0);
        journal.Clear();
    }
    void ExpectNothingWritten() {
        EXPECT_EQ(Groups(), 0U);
        EXPECT_EQ(Undo().UndoCount(), m_steps);
        if (!kvedIsLivePreviewStarted()) {
            EXPECT_TRUE(Drawn() == m_trueDrawing) << "what was shown is still there";
        }
        ExpectPaired();
    }
    void ExpectOneStepAtMost() {
        const int made = Undo().UndoCount() - m_steps;
        EXPECT_LE(Groups(), 1U);
        EXPECT_LE(made, static_cast<int>(Groups()));
        EXPECT_GE(made, 0);
        if (!kvedIsLivePreviewStarted()) {
            EXPECT_EQ(Drawn() == m_trueDrawing, made == 0) << "a change without a step, or the reverse";
            NoteTrueDrawing();
        }
        ExpectPaired();
    }

    KvDbObjectId m_ids[c_objects];
    std::string m_trueDrawing;
    int m_steps = 0;
};

TEST_P(ListWalk, PreviewLeavesNoTrace_BracketsArePaired_OneStepPerChoice) {
    for (int step = 0; step < c_steps && !HasFailure(); ++step) {
        Step();
        EXPECT_FALSE(HasFailure()) << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Classes, ListWalk, ::testing::ValuesIn(ListClasses()), &kvtest::NameOfClass);

}  // namespace
