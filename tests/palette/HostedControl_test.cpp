#include "palette/container/HostedControl.h"

#include <gtest/gtest.h>

#include "framework/com/SafeArray.h"
#include "palette/container/ControlFrame.h"
#include "palette/rows/PaintedText.h"
#include "refhost/testing/Journal.h"
#include "tests/palette/FakeControl.h"

namespace {

using kvpalette::HostedControl;
using kvtest::FakeControl;
using Calls = std::vector<std::wstring>;

class RecordingEvents : public kvpalette::ControlEvents {
public:
    Calls calls;

    void OnControlClick(HostedControl&) override { calls.push_back(L"click"); }
    void OnControlDoubleClick(HostedControl&) override { calls.push_back(L"double click"); }
    void OnControlKey(HostedControl&, WPARAM key, LPARAM) override {
        calls.push_back(L"key " + std::to_wstring(key));
    }
    void OnControlRightButton(HostedControl&, WPARAM, POINT point) override {
        calls.push_back(L"right " + std::to_wstring(point.x) + L" " + std::to_wstring(point.y));
    }
    void OnControlMiddleButton(HostedControl&, WPARAM, POINT) override { calls.push_back(L"middle"); }
    void OnControlBeginUpdate(HostedControl&) override { calls.push_back(L"begin"); }
    void OnControlEndUpdate(HostedControl&) override { calls.push_back(L"end"); }
    void OnControlModal(HostedControl&, bool begins) override {
        calls.push_back(begins ? L"modal" : L"no modal");
    }
    void OnControlActive(HostedControl&, bool active) override {
        calls.push_back(active ? L"active" : L"inactive");
    }
};

class HostedControlTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(::OleInitialize(nullptr)));
        m_class = std::make_unique<kvtest::FakeControlClass>();
        m_parent = ::CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 300, 100, nullptr, nullptr,
                                   nullptr, nullptr);
        CComObject<kvpalette::ControlFrame>* frame = nullptr;
        ASSERT_TRUE(SUCCEEDED(CComObject<kvpalette::ControlFrame>::CreateInstance(nullptr, &frame)));
        m_frame.Attach(frame);
        m_frame->Connect(m_parent);
        m_ambient.backColor = 0x123456;
        m_ambient.readOnlyBackColor = 0x654321;
        ASSERT_TRUE(SUCCEEDED(fw::MakeDispatchArray(nullptr, 0, m_selection.objects)));
        ASSERT_TRUE(SUCCEEDED(fw::MakeUnknownArray(nullptr, 0, m_selection.dynamicProperties)));
        ASSERT_TRUE(SUCCEEDED(fw::MakeLongArray(nullptr, 0, m_selection.dispids)));
    }
    void TearDown() override {
        m_control.Close();
        EXPECT_EQ(FakeControl::s_living, nullptr);
        m_frame.Reset();
        ::DestroyWindow(m_parent);
        m_class.reset();
        ::OleUninitialize();
    }

    HRESULT Create() { return m_control.Create(FakeControl::Id(), L"Row", m_selection); }
    FakeControl& Control() { return *FakeControl::s_living; }
    kvpalette::ControlSurroundings Surroundings() { return {m_parent, m_frame.Get(), &m_ambient, &m_events}; }

    std::unique_ptr<kvtest::FakeControlClass> m_class;
    HWND m_parent = nullptr;
    fw::ComPtr<CComObject<kvpalette::ControlFrame>> m_frame;
    kvpalette::AmbientValues m_ambient;
    RecordingEvents m_events;
    kvpalette::RowSelection m_selection;
    struct LateControl {
        HostedControlTest& test;
        std::unique_ptr<HostedControl> made;
        HostedControl& Get() {
            if (!made) {
                made = std::make_unique<HostedControl>(test.Surroundings());
            }
            return *made;
        }
        HRESULT Create(const CLSID& id, const std::wstring& name, kvpalette::RowSelection& selection) {
            return Get().Create(id, name, selection);
        }
        void Close() { made.reset(); }
    };
    LateControl m_control{*this, nullptr};
};

TEST_F(HostedControlTest, QuickActivation_IsPreferred) {
    ASSERT_EQ(Create(), S_OK);
    EXPECT_EQ(FakeControl::s_calls, (Calls{L"QuickActivate", L"SetClientSite", L"InitEditControl 0 arrays",
                                           L"put_PropertyIdentifier"}));
}

TEST_F(HostedControlTest, WithoutQuickActivation_GoesStepByStepSiteFirst) {
    FakeControl::s_behaviour.offersQuickActivation = false;
    m_selection.readOnly = true;
    ASSERT_EQ(Create(), S_OK);
    EXPECT_EQ(FakeControl::s_calls,
              (Calls{L"SetClientSite", L"InitNew", L"InitEditControl 0 arrays read-only",
                     L"put_PropertyIdentifier"}));
}

TEST_F(HostedControlTest, RefusedSelection_TakesEverythingBack) {
    FakeControl::s_behaviour.initResult = E_FAIL;
    EXPECT_EQ(Create(), E_FAIL);
    EXPECT_FALSE(m_control.Get().IsCreated());
    EXPECT_EQ(FakeControl::s_living, nullptr);
}

TEST_F(HostedControlTest, UnknownClass_IsToldByItsResult) {
    const CLSID unknown{0x11111111, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
    EXPECT_TRUE(FAILED(m_control.Create(unknown, L"Row", m_selection)));
    EXPECT_FALSE(m_control.Get().IsCreated());
}

TEST_F(HostedControlTest, Activation_ShowsTheWindowAtItsPlace) {
    ASSERT_EQ(Create(), S_OK);
    FakeControl::s_calls.clear();
    ASSERT_EQ(m_control.Get().Activate({10, 20, 110, 40}), S_OK);
    ASSERT_NE(m_control.Get().Window(), nullptr);
    EXPECT_EQ(::GetParent(m_control.Get().Window()), m_parent);
    RECT bounds{};
    ::GetWindowRect(m_control.Get().Window(), &bounds);
    ::MapWindowPoints(nullptr, m_parent, reinterpret_cast<POINT*>(&bounds), 2);
    EXPECT_EQ(bounds.left, 10);
    EXPECT_EQ(bounds.bottom, 40);
    ASSERT_EQ(m_control.Get().SetPosition({10, 42, 110, 62}), S_OK);
    ASSERT_FALSE(FakeControl::s_calls.empty());
    EXPECT_EQ(FakeControl::s_calls.back(), L"SetObjectRects 10 42");
}

TEST_F(HostedControlTest, UiActivation_IsReportedToThePalette) {
    ASSERT_EQ(Create(), S_OK);
    ASSERT_EQ(m_control.Get().Activate({0, 0, 100, 20}), S_OK);
    ASSERT_EQ(m_control.Get().UiActivate(), S_OK);
    EXPECT_TRUE(m_control.Get().IsUiActive());
    ASSERT_EQ(m_control.Get().UiDeactivate(), S_OK);
    EXPECT_FALSE(m_control.Get().IsUiActive());
    EXPECT_EQ(m_events.calls, (Calls{L"active", L"inactive"}));
}

TEST_F(HostedControlTest, Close_UndoesTheNegotiationInOrder) {
    ASSERT_EQ(Create(), S_OK);
    ASSERT_EQ(m_control.Get().Activate({0, 0, 100, 20}), S_OK);
    const HWND window = m_control.Get().Window();
    FakeControl::s_calls.clear();
    m_control.Close();
    EXPECT_EQ(FakeControl::s_calls, (Calls{L"Close 1", L"SetClientSite null"}));
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(HostedControlTest, AmbientProperties_AreAnswered) {
    ASSERT_EQ(Create(), S_OK);
    fw::Variant value;
    ASSERT_EQ(Control().Ambient(DISPID_BACKCOLOR, *value.Put()), S_OK);
    EXPECT_EQ(value.LongOr(0), 0x123456);
    ASSERT_EQ(Control().Ambient(kvpalette::c_ambientReadOnlyBackColor, *value.Put()), S_OK);
    EXPECT_EQ(value.LongOr(0), 0x654321);
    ASSERT_EQ(Control().Ambient(DISPID_AMBIENT_USERMODE, *value.Put()), S_OK);
    EXPECT_EQ(value.Get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(Control().Ambient(12345, *value.Put()), DISP_E_MEMBERNOTFOUND);
}

TEST_F(HostedControlTest, Site_LeadsToFrameAndContainer) {
    ASSERT_EQ(Create(), S_OK);
    ASSERT_EQ(m_control.Get().Activate({1, 2, 101, 22}), S_OK);
    fw::ComPtr<IOleInPlaceFrame> frame;
    fw::ComPtr<IOleInPlaceUIWindow> document;
    RECT position{};
    RECT clip{};
    OLEINPLACEFRAMEINFO info{sizeof(OLEINPLACEFRAMEINFO), TRUE, nullptr, nullptr, 0};
    ASSERT_EQ(Control().Site()->GetWindowContext(frame.Put(), document.Put(), &position, &clip, &info), S_OK);
    EXPECT_EQ(info.hwndFrame, m_parent);
    EXPECT_EQ(document, nullptr);
    EXPECT_EQ(position.top, 2);

    fw::ComPtr<IOleContainer> container;
    ASSERT_EQ(Control().ClientSite()->GetContainer(container.Put()), S_OK);
    fw::ComPtr<IEnumUnknown> controls;
    ASSERT_EQ(container->EnumObjects(OLECONTF_EMBEDDINGS, controls.Put()), S_OK);
    fw::ComPtr<IUnknown> listed;
    ASSERT_EQ(controls->Next(1, listed.Put(), nullptr), S_OK);
    EXPECT_TRUE(fw::IsSameObject(listed.Get(), m_control.Get().Object()));
    EXPECT_EQ(controls->Skip(1), S_FALSE);
}

TEST_F(HostedControlTest, Events_ReachPaletteAndJournal) {
    ASSERT_EQ(Create(), S_OK);
    const kvhost::Journal journal;
    for (const auto& connected : Control().Events().Snapshot()) {
        const auto sink = fw::QueryFrom<IKvPiPropertyEditEventsSink2>(connected.Get());
        ASSERT_TRUE(sink);
        EXPECT_EQ(sink->OnBeginPropertyUpdate(), S_OK);
        EXPECT_EQ(sink->OnEndPropertyUpdate(), S_OK);
        EXPECT_EQ(sink->OnKeyDown(VK_RETURN, 1), S_OK);
        EXPECT_EQ(sink->OnRButtonDown(0, MAKELPARAM(7, 9)), S_OK);
        EXPECT_EQ(sink->OnBeginModal(8), S_OK);
        EXPECT_EQ(sink->OnEndModal(8), S_OK);
    }
    EXPECT_EQ(m_events.calls, (Calls{L"begin", L"end", L"key 13", L"right 7 9", L"modal", L"no modal"}));
    ASSERT_EQ(journal.Entries().size(), 6u);
    EXPECT_EQ(journal.Entries()[2].Line(), L"OnKeyDown 13");
}

TEST_F(HostedControlTest, EventsByNumber_AreTheSameEvents) {
    ASSERT_EQ(Create(), S_OK);
    const auto connected = Control().Events().Snapshot();
    ASSERT_EQ(connected.size(), 1u);
    const auto dispatch = fw::QueryFrom<IDispatch>(connected.front().Get());
    VARIANT arguments[2]{};
    arguments[0].vt = VT_I4;
    arguments[1].vt = VT_I4;
    arguments[1].lVal = VK_TAB;
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    EXPECT_EQ(dispatch->Invoke(DISPID_KEYDOWN, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                               nullptr),
              S_OK);
    EXPECT_EQ(m_events.calls, (Calls{L"key 9"}));
    EXPECT_EQ(dispatch->Invoke(4711, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(HostedControlTest, ControlThatOutlivesItsRow_FindsNoPalette) {
    ASSERT_EQ(Create(), S_OK);
    ASSERT_EQ(m_control.Get().Activate({0, 0, 100, 20}), S_OK);
    const auto site = Control().Site();
    m_control.Close();
    HWND window = nullptr;
    EXPECT_EQ(site->GetWindow(&window), E_UNEXPECTED);
    EXPECT_EQ(site->CanInPlaceActivate(), S_FALSE);
    EXPECT_EQ(site->OnUIActivate(), E_UNEXPECTED);
}

TEST_F(HostedControlTest, PaintedText_IsWhatTheControlDraws) {
    ASSERT_EQ(Create(), S_OK);
    EXPECT_EQ(kvpalette::PaintedText(m_control.Get()), L"drawn text");
}

}  // namespace
