#include "tests/control/walks/RowWalk.h"
#include "tests/support/Rounds.h"

// What a user does who chooses and types nothing: no property is put.

namespace {

const int c_steps = kvtest::Rounds(1'000, 100'000);

/// Over scripted objects, which note each property that is put.
class IdleWalk : public kvtest::RowWalk {
protected:
    IdleWalk() { Select(); }

    void Step() {
        switch (Below(10)) {
            case 0:
                Select();
                break;
            case 1:
                EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
                break;
            case 2:
                elsewhere.SetFocus();
                break;
            case 3:
                Wheel();
                break;
            case 4:
                static_cast<void>(control->Refresh(0));
                break;
            case 5:
                PressTab();
                break;
            case 6:
                ::SendMessageW(Row(), IsOneIn(2) ? WM_THEMECHANGED : WM_SYSCOLORCHANGE, 0, 0);
                break;
            case 7:
                GiveFont();
                break;
            case 8:
                OpenOrShut();
                break;
            default:
                EXPECT_EQ(DoVerb(IsOneIn(2) ? OLEIVERB_HIDE : OLEIVERB_SHOW), S_OK);
        }
        kvtest::PumpWaiting();
    }
    void ExpectNothingPut() {
        EXPECT_TRUE(kvtest::SameCalls(
            {}, kvtest::CallsOnly(journal,
                                  {"Invoke A put", "SetUnspecified", "undoGroup", "OnBeginPropertyUpdate"})));
        EXPECT_EQ(Unpaired(), "");
        journal.Clear();
    }

private:
    void Select() {
        Discard();
        ExpectNothingPut();
        Create(*GetParam().id);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        std::vector<IDispatch*> selection;
        for (int count = 1 + Below(c_objects); count > 0; --count) {
            selection.push_back(&AnyObject());
        }
        ASSERT_EQ(InitEdit(selection, IsOneIn(5)), S_OK);
    }
    kvhost::ScriptedObject& AnyObject() {
        const bool allowsUnspecified = IsOneIn(3);
        kvhost::ScriptedObject& object =
            MakeObject(L"A", L"", allowsUnspecified ? kvhost::OffersUnspecified : 0U);
        scenario.Give(object, c_property, IsOneIn(3) ? scenario.after : scenario.before);
        object.At(c_property).unspecifiedAllowed = allowsUnspecified;
        object.At(c_property).unspecified = allowsUnspecified && IsOneIn(2);
        return object;
    }
    [[nodiscard]] HWND ChildOrRow() const {
        const HWND child = kvtest::ChildInFocus(Row());
        return child != nullptr ? child : Row();
    }
    void Wheel() {
        ::PostMessageW(ChildOrRow(), WM_MOUSEWHEEL, MAKEWPARAM(0, IsOneIn(2) ? WHEEL_DELTA : -WHEEL_DELTA),
                       0);
    }
    void PressTab() { ::PostMessageW(ChildOrRow(), WM_KEYDOWN, VK_TAB, 1); }
    void OpenOrShut() {
        if (const HWND list = List()) {
            ::SendMessageW(list, CB_SHOWDROPDOWN, IsOneIn(2) ? TRUE : FALSE, 0);
        }
    }
};

TEST_P(IdleWalk, NothingChosen_PutsNoProperty) {
    for (int step = 0; step < c_steps && !HasFailure(); ++step) {
        Step();
        ExpectNothingPut();
        EXPECT_FALSE(HasFailure()) << "step " << step;
    }
}

KV_FOR_EACH_AVAILABLE_CLASS(IdleWalk);

}  // namespace
