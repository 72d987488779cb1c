#include "tests/control/support/RowContainer.h"

namespace {

using kvtest::RecordingSink;

class RowEvents : public kvtest::RowContainer {
protected:
    void PressDown() { ::SendMessageW(Row(), WM_KEYDOWN, VK_DOWN, 1); }

    DWORD Connect(RecordingSink& other) {
        fw::ComPtr<IConnectionPoint> point;
        EXPECT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2),
                                                                       point.Put()),
                  S_OK);
        DWORD cookie = 0;
        EXPECT_EQ(point->Advise(&other, &cookie), S_OK);
        return cookie;
    }
    void Disconnect(DWORD cookie) {
        fw::ComPtr<IConnectionPoint> point;
        EXPECT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2),
                                                                       point.Put()),
                  S_OK);
        EXPECT_EQ(point->Unadvise(cookie), S_OK);
    }
};

TEST_F(RowEvents, SeveralSinks_AreCalledInTheOrderOfTheirConnection) {
    CreateTextRow({L"alpha"});
    const auto second = RecordingSink::Make(L"second");
    Connect(*second);
    PressDown();
    EXPECT_CALLS(journal, "OnKeyDown 40 1", "second.OnKeyDown 40 1");
}

TEST_F(RowEvents, SinkThatLeavesInTheEvent_IsTheLastThatItGets) {
    CreateTextRow({L"alpha"});
    const auto second = RecordingSink::Make(L"second");
    Connect(*second);
    sink->onEvent = [&](const std::wstring&) {
        Disconnect(sinkCookie);
        return S_OK;
    };
    PressDown();
    PressDown();
    EXPECT_CALLS(journal, "OnKeyDown 40 1", "second.OnKeyDown 40 1", "second.OnKeyDown 40 1");
}

TEST_F(RowEvents, SinkThatComesInTheEvent_HearsOfTheNextOne) {
    CreateTextRow({L"alpha"});
    const auto second = RecordingSink::Make(L"second");
    sink->onEvent = [&](const std::wstring&) {
        sink->onEvent = nullptr;
        Connect(*second);
        return S_OK;
    };
    PressDown();
    EXPECT_CALLS(journal, "OnKeyDown 40 1");
    Clear();
    PressDown();
    EXPECT_CALLS(journal, "OnKeyDown 40 1", "second.OnKeyDown 40 1");
}

TEST_F(RowEvents, SinkThatNoLongerAnswersTheQuery_IsLeftOut) {
    CreateTextRow({L"alpha"});
    const auto second = RecordingSink::Make(L"second");
    Connect(*second);
    sink->answersSecondInterface = false;
    PressDown();
    EXPECT_CALLS(journal, "second.OnKeyDown 40 1");
}

TEST_F(RowEvents, SinkOfTheFirstInterfaceOnly_CannotConnect) {
    Create(CLSID_KvPePropertyEditorText);
    const auto second = RecordingSink::Make(L"second");
    second->answersSecondInterface = false;
    fw::ComPtr<IConnectionPoint> point;
    ASSERT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2),
                                                                   point.Put()),
              S_OK);
    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(second.Get(), &cookie), CONNECT_E_CANNOTCONNECT);
}

TEST_F(RowEvents, NoSink_RowWorksAlone) {
    CreateTextRow({L"alpha"});
    Disconnect(sinkCookie);
    PressDown();
    EXPECT_NO_CALLS(journal);
}

}  // namespace
