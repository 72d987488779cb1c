#include "tests/control/proofs/FaultSweep.h"

#include "core/CPropTextTooltip.h"
#include "refhost/testing/Answers.h"
#include "tests/control/support/UserInput.h"
#include "tests/support/SentMessages.h"

namespace {

class FaultSweep : public kvtest::FaultSweep {
protected:
    bool Enter() {
        const bool isEntered = scenario.edit.Enter(Row());
        if (!isEntered) {
            NoteTold();  // there is nothing to work in
        }
        return isEntered;
    }
    void NoteWhatIsShown(HWND child) {
        if (scenario.edit.way == kvtest::EditWay::Choose) {
            // A list shows the choice until the palette refreshes the rows, as it does when an update has
            // ended.
            static_cast<void>(control->Refresh(0));
        }
        if (!scenario.edit.IsShownIn(child)) {
            NoteTold();
        }
    }
    // The row's child, which a write may take the focus from; null when the user has found none.
    HWND EnterAndReturn() {
        if (!BeginActive() || !Enter()) {
            return nullptr;
        }
        const HWND child = kvtest::ChildInFocus(Row());
        kvtest::PressInRow(Row(), VK_RETURN);
        Complete();
        return child;
    }

    // What a user does

    void CreateAndInit() {
        if (Begin()) {
            Complete();
        }
    }
    void Activate() {
        if (BeginActive()) {
            Complete();
        }
    }
    void Hide() {
        if (BeginActive() && Enter()) {
            const HWND child = kvtest::ChildInFocus(Row());
            static_cast<void>(DoVerb(OLEIVERB_HIDE));
            NoteWhatIsShown(child);
            Complete();
        }
        ExpectWrittenOrReported();
    }
    void Escape() {
        if (BeginActive() && scenario.edit.EnterUnconfirmed(Row())) {
            const HWND child = kvtest::ChildInFocus(Row());
            EXPECT_TRUE(!isFaultFree || IsUnconfirmed(child)) << "there is nothing to take back";
            const kvtest::SentMessages sent;
            kvtest::PressInRow(Row(), VK_ESCAPE);
            // Another program that comes to the front before the key ends the edit, which writes the value.
            wasFocusTaken = !sent.To(child, {WM_KILLFOCUS}).empty();
            Complete();
        }
        EXPECT_TRUE(wasFocusTaken || AreAll(scenario.before)) << "what was taken back was written";
    }
    [[nodiscard]] bool IsUnconfirmed(HWND child) const {
        return scenario.edit.way == kvtest::EditWay::Press ? !kvhost::Answers::TakeShown().empty()
                                                           : scenario.edit.IsShownIn(child);
    }
    void Refuse() {
        host->Editor().SetDragging(true);
        const HWND child = EnterAndReturn();
        host->Editor().SetDragging(false);
        if (isFaultFree) {
            EXPECT_TRUE(AreAll(scenario.before)) << "what the host refuses was written";
            EXPECT_FALSE(kvhost::Answers::TakeShown().empty()) << "nobody was told that it was refused";
            return;
        }
        if (child) {
            NoteWhatIsShown(child);
        }
        ExpectWrittenOrReported();
    }
    void Tip() {
        if (Begin() && SUCCEEDED(DoVerb(OLEIVERB_INPLACEACTIVATE))) {
            GiveFont();
            const RECT narrow = {c_place.left, c_place.top, c_place.left + 6, c_place.bottom};
            EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&narrow, &narrow), S_OK);
            ::UpdateWindow(Row());
            const bool isShown = IsTipShown();
            EXPECT_TRUE(!isFaultFree || isShown == scenario.hasTip);
            ::SendMessageW(Row(), WM_MOUSELEAVE, 0, 0);
            Complete();
        }
        EXPECT_TRUE(AreAll(scenario.before));
    }
    // When the pointer rests over the row.
    bool IsTipShown() {
        kvtest::MovePointerTo(Row(), {2, 5});
        ::SendMessageW(Row(), WM_MOUSEMOVE, 0, MAKELPARAM(2, 5));
        const HWND tip = ::FindWindowW(L"KvPeTextTip", nullptr);
        ::SendMessageW(tip, WM_TIMER, CPropTextTooltip::TimerId, 0);
        return ::IsWindowVisible(tip) != FALSE;
    }
    void UndoAndRedoAsOneStep() {
        EXPECT_EQ(Undo().UndoCount(), 1);
        EXPECT_EQ(Undo().UndoByUser(1), Tolm::eOk);
        EXPECT_TRUE(AreAll(scenario.before));
        EXPECT_EQ(Undo().RedoByUser(1), Tolm::eOk);
        EXPECT_TRUE(AreAll(scenario.after));
    }
    void WriteAndUndo() {
        if (const HWND child = EnterAndReturn()) {
            NoteWhatIsShown(child);
        }
        ExpectWrittenOrReported();
        if (isFaultFree) {
            UndoAndRedoAsOneStep();
        }
        // The user takes it back: as one step where the group came about, else object by object.
        while (Undo().UndoCount() > 0 && !AreAll(scenario.before)) {
            ASSERT_EQ(Undo().UndoByUser(1), Tolm::eOk);
        }
        EXPECT_TRUE(AreAll(scenario.before));
    }
};

TEST_P(FaultSweep, CreateAndInit_EachServiceFails) {
    Sweep([this] { CreateAndInit(); });
}

TEST_P(FaultSweep, Activate_EachServiceFails) {
    Sweep([this] { Activate(); });
}

TEST_P(FaultSweep, HideInEdit_EachServiceFails) {
    Sweep([this] { Hide(); }, [this] { Activate(); });
}

TEST_P(FaultSweep, Escape_EachServiceFails) {
    Sweep([this] { Escape(); }, [this] { Activate(); });
}

TEST_P(FaultSweep, RefusedEdit_EachServiceFails) {
    Sweep([this] { Refuse(); }, [this] { Activate(); });
}

TEST_P(FaultSweep, Tip_EachServiceFails) {
    Sweep([this] { Tip(); });
}

TEST_P(FaultSweep, WriteAndUndo_EachServiceFails) {
    Sweep([this] { WriteAndUndo(); }, [this] { Activate(); });
}

INSTANTIATE_TEST_SUITE_P(Classes, FaultSweep, ::testing::ValuesIn(kvtest::SweptRows()),
                         &kvtest::NameOfSweptRow);

}  // namespace
