// The platform's generic control container as a client: it offers no ambient properties, no frame of ours and
// no sinks, and knows nothing of rows.

#include "framework/base/Handles.h"
#include "framework/com/ComPtr.h"
#include "refhost/editor/HostSession.h"
#include "refhost/rx/Modules.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/control/clients/ClientTest.h"
#include "tests/support/MessagePump.h"
#include "tests/support/SelectionArrays.h"
#include "tests/support/WarmUp.h"

namespace {

constexpr DISPID c_property = 5;

using InitContainer = BOOL WINAPI();
using GetControl = HRESULT WINAPI(HWND, IUnknown**);

// The library of the container stays loaded: its window class is used by every test.
template <class Function>
Function* ContainerExport(const char* name) {
    const HMODULE library = ::LoadLibraryW(L"atl.dll");
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

void InitContainerOnce() {
    ASSERT_TRUE(ContainerExport<InitContainer>("AtlAxWinInit")());
}

const kvtest::WarmUpStep s_container(&InitContainerOnce);

SIZE ClientSize(HWND window) {
    RECT client{};
    ::GetClientRect(window, &client);
    return {client.right, client.bottom};
}

class GenericContainer : public kvtest::ClientTest {
protected:
    void SetUp() override {
        m_frame = ::CreateWindowExW(0, L"Static", L"container", WS_POPUP | WS_VISIBLE, 100, 100, 400, 200,
                                    nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(m_frame, nullptr);
        GetParam().scenario->Arrange(m_host->Documents().New().GetDatabase());
    }

    void TearDown() override {
        m_control.Reset();
        ::DestroyWindow(m_frame);
        kvtest::PumpWaiting();
        m_object.Reset();
        kvhost::Modules::UnloadAll();
        ::CoFreeUnusedLibrariesEx(0, 0);
        EXPECT_EQ(::GetModuleHandleW(L"KvPEXCtl.qmx"), nullptr) << "something of the module still lives";
    }

    void CreateContained() {
        m_container = ::CreateWindowExW(0, L"AtlAxWin", GetParam().progId, WS_CHILD | WS_VISIBLE, 10, 10, 200,
                                        20, m_frame, nullptr, nullptr, nullptr);
        ASSERT_NE(m_container, nullptr);
        // The container's window comes into being without a control too.
        fw::ComPtr<IUnknown> contained;
        ASSERT_EQ(ContainerExport<GetControl>("AtlAxGetControl")(m_container, contained.Put()), S_OK);
        m_control = contained.As<IKvPiPropertyEditControl2>();
        ASSERT_TRUE(m_control);
        kvtest::PumpWaiting();
    }

    void InitWithOneObject() {
        const kvtest::ClassScenario& scenario = *GetParam().scenario;
        m_object = kvhost::ScriptedObject::Make(L"A");
        scenario.Give(*m_object, c_property, scenario.before);
        ASSERT_EQ(kvtest::SelectionArrays().Add(m_object.Get()).Init(*m_control.Get()), S_OK);
    }

    HRESULT DoVerb(LONG verb) {
        const auto object = m_control.As<IOleObject>();
        fw::ComPtr<IOleClientSite> site;
        EXPECT_EQ(object->GetClientSite(site.Put()), S_OK);
        RECT place{};
        ::GetClientRect(m_container, &place);
        const HRESULT result = object->DoVerb(verb, nullptr, site.Get(), 0, m_container, &place);
        kvtest::PumpWaiting();
        return result;
    }

    HWND Row() const {
        HWND window = nullptr;
        EXPECT_EQ(m_control.As<IOleInPlaceObject>()->GetWindow(&window), S_OK);
        return window;
    }

    kvhost::HostSession m_host;
    HWND m_frame = nullptr;
    HWND m_container = nullptr;
    fw::ComPtr<IKvPiPropertyEditControl2> m_control;
    fw::ComPtr<kvhost::ScriptedObject> m_object;
};

TEST_P(GenericContainer, Create_ShowsTheRowOverTheWholeContainer) {
    CreateContained();
    ASSERT_NE(Row(), nullptr);
    EXPECT_EQ(::GetParent(Row()), m_container);
    EXPECT_TRUE(::IsWindowVisible(Row()));
    EXPECT_EQ(ClientSize(Row()).cx, 200);
    EXPECT_EQ(ClientSize(Row()).cy, 20);
}

TEST_P(GenericContainer, Activate_OpensTheRowForTheUser) {
    CreateContained();
    InitWithOneObject();
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_TRUE(::GetFocus() == Row() || ::IsChild(Row(), ::GetFocus()));
    EXPECT_EQ(m_control.As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_TRUE(::IsWindowVisible(Row()));
}

TEST_P(GenericContainer, Resize_MovesTheRowAlong) {
    CreateContained();
    InitWithOneObject();
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    ::SetWindowPos(m_container, nullptr, 30, 40, 120, 30, SWP_NOZORDER | SWP_NOACTIVATE);
    kvtest::PumpWaiting();
    EXPECT_EQ(ClientSize(Row()).cx, 120);
    EXPECT_EQ(ClientSize(Row()).cy, 30);
}

TEST_P(GenericContainer, HideAndShow_FollowTheVerbs) {
    CreateContained();
    InitWithOneObject();
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(::IsWindowVisible(Row()));
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(::IsWindowVisible(Row()));
}

TEST_P(GenericContainer, Destroy_WhileActive_EndsTheRowAndItsReferences) {
    CreateContained();
    InitWithOneObject();
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    const HWND row = Row();
    ::DestroyWindow(m_container);
    kvtest::PumpWaiting();
    EXPECT_FALSE(::IsWindow(row));
    EXPECT_EQ(m_control.Detach()->Release(), 0U);
}

TEST_P(GenericContainer, CreateAgain_AfterTheModuleWasUnloaded_Works) {
    CreateContained();
    m_control.Reset();
    ::DestroyWindow(m_container);
    kvtest::PumpWaiting();
    kvhost::Modules::UnloadAll();
    ::CoFreeUnusedLibrariesEx(0, 0);
    ASSERT_EQ(::GetModuleHandleW(L"KvPEXCtl.qmx"), nullptr);
    CreateContained();
    EXPECT_TRUE(::IsWindowVisible(Row()));
}

KV_FOR_EACH_AVAILABLE_CLASS(GenericContainer);

}  // namespace
