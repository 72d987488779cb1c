#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/RowContainer.h"

namespace {

const fw::WindowClass s_windowClass{.name = L"KvTestNextFrame"};

// A container may end the window of a row, or its own with it, and show the row again later.
class ActivatedAnew : public kvtest::RowContainer,
                      public ::testing::WithParamInterface<kvtest::AvailableClass> {
protected:
    ActivatedAnew() { scenario.Arrange(document->GetDatabase()); }
    ~ActivatedAnew() override { Discard(); }

    void OpenRow() {
        Create(*GetParam().id);
        object = &MakeObject(L"A", L"");
        scenario.Give(*object, c_property, scenario.before);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        ASSERT_EQ(InitEdit({object}), S_OK);
        ::UpdateWindow(Row());
        UIActivate();
    }
    void ExpectEditWorks() {
        ::UpdateWindow(Row());
        UIActivate();
        ASSERT_TRUE(scenario.edit.Enter(Row()));
        EXPECT_TRUE(::IsWindowVisible(kvtest::ChildInFocus(Row())));
        kvtest::PressInRow(Row(), VK_RETURN);
        EXPECT_TRUE(Holds(scenario.after));
    }
    bool Holds(const kvtest::ScenarioValue& value) {
        fw::Variant present;
        return SUCCEEDED(present.CopyFrom(object->At(c_property).Get())) && value.IsSameAs(present);
    }

    const kvtest::ClassScenario& scenario = *GetParam().scenario;
    kvhost::ScriptedObject* object = nullptr;
};

TEST_P(ActivatedAnew, RowWasDeactivated_IsEditedAsBefore) {
    OpenRow();
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(Row(), nullptr);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    ExpectEditWorks();
}

TEST_P(ActivatedAnew, ContainerWindowEndedAmidAnEdit_NextEditStartsWithTheValue) {
    OpenRow();
    frame.DestroyWindow();
    kvtest::PumpWaiting();
    EXPECT_EQ(Row(), nullptr);
    ASSERT_TRUE(frame.Create(s_windowClass, L"", WS_POPUP | WS_VISIBLE, {100, 100, 500, 400}, nullptr));
    ::SetForegroundWindow(frame);
    site->MoveTo(frame);

    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    ::UpdateWindow(Row());
    UIActivate();
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_TRUE(object->At(c_property).puts.empty()) << "nobody has entered anything";
    EXPECT_TRUE(Holds(scenario.before));
    ExpectEditWorks();
}

KV_FOR_EACH_AVAILABLE_CLASS(ActivatedAnew);

}  // namespace
