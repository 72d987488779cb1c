#include "core/CKvPeShell.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "core/CKvPeBaseTempl.h"
#include "core/EditState.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/JournalNote.h"
#include "tests/support/ShellBench.h"

// What the layers above the core bring: a class that previews and one that has buttons. The shell knows their
// names.
class CKvPePreviewAbleCtrlBase {
public:
    virtual long Handle_OnListHover(UINT message, WPARAM wParam, LPARAM lParam, BOOL& handled) = 0;
    virtual long Handle_OnBeginPropertyUpdate(int& handled) = 0;
    virtual long Handle_OnEndPropertyUpdate(int& handled) = 0;

protected:
    ~CKvPePreviewAbleCtrlBase() = default;
};

class CKvPeButtonEditBase : public CKvPeCtrlBase {
public:
    using CKvPeCtrlBase::CKvPeCtrlBase;
    virtual HRESULT OnCustomButton(int id) = 0;
};

namespace {

using kvtest::Note;

/// Logic that notes what it is asked, and fails or throws when told to.
class NotingLogic : public CKvPeCtrlBase {
public:
    using CKvPeCtrlBase::CKvPeCtrlBase;
    using CKvPeCtrlBase::m_state;

    std::function<void()> onRefresh;
    std::function<void()> onMessage;
    BOOL leavesHandled = TRUE;
    HRESULT verbResult = S_OK;

    HRESULT Handle_InitEditControl(VARIANT*, VARIANT*, VARIANT*, short readOnly) override {
        Note(L"Init", readOnly);
        return S_FALSE;
    }
    HRESULT Handle_Refresh() override {
        Note(L"Refresh");
        if (onRefresh) {
            onRefresh();
        }
        return E_FAIL;
    }
    HRESULT SetPropertyValue(VARIANT*, ValueType type) override {
        Note(L"SetPropertyValue", type);
        return S_FALSE;
    }
    HRESULT LaunchZRBPropertyDialog(CString& text) override {
        Note(L"LaunchDialog", text.Std());
        return S_FALSE;
    }
    HRESULT Handle_OnDraw(ATL_DRAWINFO&) override {
        Note(L"Draw");
        return S_OK;
    }
    HRESULT Handle_SetObjectRects(const RECT* bounds, const RECT*) override {
        Note(L"SetObjectRects", bounds->left, bounds->top, bounds->right, bounds->bottom);
        return S_OK;
    }
    HRESULT Handle_DoVerbHide() override {
        Note(L"Hide", ::IsWindowVisible(ControlWindow()));
        return verbResult;
    }
    HRESULT Handle_DoVerbShow() override {
        Note(L"Show", ::IsWindowVisible(ControlWindow()));
        return verbResult;
    }
    HRESULT Handle_DoVerbUIActivate(const RECT* bounds) override {
        Note(L"UIActivate", bounds->left, bounds->top, bounds->right, bounds->bottom);
        return S_OK;
    }
    HRESULT Handle_UIDeactivate() override {
        Note(L"UIDeactivate");
        return S_OK;
    }
    HRESULT Cleanup() override {
        Note(L"Cleanup", ::IsWindow(ControlWindow()));
        return CKvPeCtrlBase::Cleanup();
    }

    LRESULT Handle_OnCtlColor(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"CtlColor", handled);
    }
    LRESULT Handle_OnKeyDown(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"KeyDown", handled);
    }
    LRESULT Handle_OnLButtonDown(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"LButtonDown", handled);
    }
    LRESULT Handle_OnRButtonDown(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"RButtonDown", handled);
    }
    LRESULT Handle_OnMButtonDown(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"MButtonDown", handled);
    }
    LRESULT Handle_OnLButtonDblClk(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"LButtonDblClk", handled);
    }
    LRESULT Handle_OnCreate(UINT, WPARAM, LPARAM, BOOL&) override {
        Note(L"Create");
        return 0;
    }
    LRESULT Handle_OnMouseMove(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"MouseMove", handled);
    }
    LRESULT Handle_OnMouseLeave(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"MouseLeave", handled);
    }
    LRESULT Handle_OnDrawTooltip(UINT, WPARAM wParam, LPARAM, BOOL&) override {
        Note(L"DrawTip", wParam);
        return 7;
    }
    LRESULT Handle_OnEraseBackground(UINT, WPARAM, LPARAM, BOOL& handled) override {
        return Answer(L"Erase", handled);
    }

private:
    LRESULT Answer(const wchar_t* name, BOOL& handled) const {
        Note(name, handled);
        if (onMessage) {
            onMessage();
        }
        handled = leavesHandled;
        return 7;
    }
};

class PreviewLogic : public NotingLogic, public CKvPePreviewAbleCtrlBase {
public:
    using NotingLogic::NotingLogic;
    int handlesUpdates = 1;

    long Handle_OnListHover(UINT message, WPARAM wParam, LPARAM lParam, BOOL&) override {
        Note(L"ListHover", message, wParam, lParam);
        return 5;
    }
    long Handle_OnBeginPropertyUpdate(int& handled) override {
        Note(L"BeginPreview");
        handled = handlesUpdates;
        return S_FALSE;
    }
    long Handle_OnEndPropertyUpdate(int& handled) override {
        Note(L"EndPreview");
        handled = handlesUpdates;
        return S_FALSE;
    }
};

class ButtonLogic : public CKvPeButtonEditBase {
public:
    using CKvPeButtonEditBase::CKvPeButtonEditBase;
    HRESULT OnCustomButton(int id) override {
        Note(L"CustomButton", id);
        return S_FALSE;
    }
    HRESULT LaunchZRBPropertyDialog(CString& text) override {
        Note(L"LaunchDialog", text.Std());
        return S_OK;
    }
};

/// The shell over a logic class, with the logic within reach; with none for LogicLess.
template <class LogicClass, bool WithLogic = true>
class TestShell : public CKvPeBaseTempl<LogicClass> {
public:
    const CLSID& ClassId() const noexcept override { return CLSID_KvPePropertyEditorText; }
    LogicClass& Rows() { return *this->Logic(); }

protected:
    HRESULT FinalConstruct() {
        if constexpr (WithLogic) {
            return CKvPeBaseTempl<LogicClass>::FinalConstruct();
        } else {
            return S_OK;
        }
    }
};

}  // namespace

// The tests' logic classes have no row in the class table.
template <>
struct KvPeClassIdOf<NotingLogic> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorText; }
};
template <>
struct KvPeClassIdOf<PreviewLogic> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorText; }
};
template <>
struct KvPeClassIdOf<ButtonLogic> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorText; }
};

namespace {

template <class Shell>
class LogicBench : public kvtest::ShellBench<Shell> {
protected:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendMessageW(this->Window(), message, wParam, lParam);
    }
    kvtest::CallLines LogicCalls() { return kvtest::CallsIgnoring(this->journal, {"Site.", "Frame."}); }
};

using Shell = LogicBench<TestShell<NotingLogic>>;
using EmptyShell = LogicBench<TestShell<NotingLogic, false>>;
using PreviewShell = LogicBench<TestShell<PreviewLogic>>;
using ButtonShell = LogicBench<TestShell<ButtonLogic>>;

class CKvPeShell_Logic : public Shell {};
class CKvPeShell_NoLogic : public EmptyShell {};
class CKvPeShell_Preview : public PreviewShell {};
class CKvPeShell_Button : public ButtonShell {};

// No logic

TEST_F(CKvPeShell_NoLogic, EveryInterfaceOperation_IsUnexpected) {
    OLE_COLOR color = 0;
    VARIANT_BOOL keeps = VARIANT_FALSE;
    fw::ComPtr<IUnknown> object;
    fw::Variant value;
    EXPECT_EQ(shell->InitEditControl(value.Address(), value.Address(), value.Address(), VARIANT_FALSE),
              E_UNEXPECTED);
    EXPECT_EQ(shell->Refresh(0), E_UNEXPECTED);
    EXPECT_EQ(shell->get_KeepFocus(&keeps), E_UNEXPECTED);
    EXPECT_EQ(shell->put_BackColor(1), E_UNEXPECTED);
    EXPECT_EQ(shell->get_BackColor(&color), E_UNEXPECTED);
    EXPECT_EQ(shell->put_ForeColor(1), E_UNEXPECTED);
    EXPECT_EQ(shell->get_ForeColor(&color), E_UNEXPECTED);
    EXPECT_EQ(shell->put_ReadOnlyBackColor(1), E_UNEXPECTED);
    EXPECT_EQ(shell->get_ReadOnlyBackColor(&color), E_UNEXPECTED);
    EXPECT_EQ(shell->put_ReadOnlyForeColor(1), E_UNEXPECTED);
    EXPECT_EQ(shell->get_ReadOnlyForeColor(&color), E_UNEXPECTED);
    EXPECT_EQ(shell->put_Font(nullptr), E_UNEXPECTED);
    EXPECT_EQ(shell->get_Font(object.Put()), E_UNEXPECTED);
    EXPECT_EQ(shell->put_PropertyIdentifier(nullptr), E_UNEXPECTED);
    EXPECT_EQ(shell->get_PropertyIdentifier(object.Put()), E_UNEXPECTED);
    EXPECT_EQ(shell->SetValue(value.Address(), 0), E_UNEXPECTED);
    EXPECT_EQ(shell->LaunchDialog(nullptr, 8), E_UNEXPECTED);
    EXPECT_EQ(shell->LaunchDialog(nullptr, 24), E_UNEXPECTED);
}

TEST_F(CKvPeShell_NoLogic, Messages_GoToTheSystem) {
    Activate();
    Send(WM_MOUSEMOVE);
    Send(WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_EQ(Send(WM_GETDLGCODE), 4);
    EXPECT_EQ(static_cast<HRESULT>(Send(1824)), E_FAIL);
    EXPECT_EQ(LogicCalls(), kvtest::CallLines{});
}

// Interface operations

TEST_F(CKvPeShell_Logic, Operations_ReachTheLogicAndHandItsResultOn) {
    fw::Variant value;
    EXPECT_EQ(shell->InitEditControl(value.Address(), value.Address(), value.Address(), VARIANT_TRUE),
              S_FALSE);
    EXPECT_EQ(shell->SetValue(value.Address(), 2), S_FALSE);
    EXPECT_EQ(shell->Refresh(0), S_OK) << "a failed refresh is the row's affair";
    EXPECT_CALLS(LogicCalls(), "Init -1", "SetPropertyValue 2", "Refresh");
}

TEST_F(CKvPeShell_Logic, LaunchDialog_OnlyTheFlagOfTheDialogCounts) {
    const fw::Bstr text(L"row");
    EXPECT_EQ(shell->LaunchDialog(text.Get(), 8), S_FALSE);
    EXPECT_EQ(shell->LaunchDialog(text.Get(), 9), S_FALSE);
    EXPECT_EQ(shell->LaunchDialog(nullptr, 8), S_FALSE);
    EXPECT_EQ(shell->LaunchDialog(text.Get(), 16), E_UNEXPECTED);
    EXPECT_EQ(shell->LaunchDialog(text.Get(), 24), E_UNEXPECTED);
    EXPECT_EQ(shell->LaunchDialog(text.Get(), 0), E_UNEXPECTED);
    EXPECT_CALLS(LogicCalls(), "LaunchDialog row", "LaunchDialog row", "LaunchDialog");
}

TEST_F(CKvPeShell_Logic, LogicThrows_OperationFails) {
    shell->Rows().onRefresh = [] { throw std::runtime_error("broken"); };
    EXPECT_EQ(shell->Refresh(0), E_FAIL);
    shell->Rows().onRefresh = [] { throw std::bad_alloc(); };
    EXPECT_EQ(shell->Refresh(0), E_OUTOFMEMORY);
}

TEST_F(CKvPeShell_Logic, PropertyIdentifier_ForeignObject_IsRefused) {
    EXPECT_EQ(shell->put_PropertyIdentifier(static_cast<IOleClientSite*>(site.Get())), E_NOINTERFACE);
    fw::ComPtr<IUnknown> identifier;
    EXPECT_EQ(shell->put_PropertyIdentifier(nullptr), S_OK);
    EXPECT_EQ(shell->get_PropertyIdentifier(identifier.Put()), S_OK);
    EXPECT_FALSE(identifier);
}

// Verbs and places

TEST_F(CKvPeShell_Logic, HideAndShow_LogicActsBeforeTheWindowGoesAndAfterItCame) {
    Activate();
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(shell->IsWindowVisible());
    EXPECT_EQ(DoVerb(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(shell->IsWindowVisible());
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"Hide", "Show"}), "Hide 1", "Show 1");
}

TEST_F(CKvPeShell_Logic, Hide_LogicFails_WindowGoesAllTheSame) {
    Activate();
    shell->Rows().verbResult = E_FAIL;
    EXPECT_EQ(DoVerb(OLEIVERB_HIDE), E_FAIL);
    EXPECT_FALSE(shell->IsWindowVisible());
}

TEST_F(CKvPeShell_Logic, UIActivation_GivesTheClientRectangle) {
    EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"UIActivate"}), "UIActivate 0 0 120 20");
}

TEST_F(CKvPeShell_Logic, Deactivation_ReachesTheLogicWhileItsWindowLives) {
    Activate();
    EXPECT_EQ(shell->UIDeactivate(), S_OK);
    EXPECT_CALLS(kvtest::CallsOnly(journal, {"UIDeactivate"}), "UIDeactivate");
}

TEST_F(CKvPeShell_Logic, SetObjectRects_GivesTheContainersRectangle) {
    Activate();
    const RECT place = {30, 40, 230, 70};
    EXPECT_EQ(shell->SetObjectRects(&place, &place), S_OK);
    EXPECT_CALLS(LogicCalls(), "SetObjectRects 30 40 230 70");
}

TEST_F(CKvPeShell_Logic, LastReference_LogicClearsUpWhileTheWindowLives) {
    Activate();
    EXPECT_EQ(shell->SetClientSite(nullptr), S_OK);
    journal.Clear();
    shell->Release();
    shell = nullptr;
    ASSERT_FALSE(LogicCalls().empty());
    EXPECT_EQ(LogicCalls().front().substr(0, 7), "Cleanup");
}

TEST_F(CKvPeShell_Logic, PrivateInterface_GivesWindowAndSite) {
    EXPECT_EQ(shell->GetInPlaceSite(), nullptr);
    Activate();
    EXPECT_EQ(*shell->GetControlWindowPtr(), shell->m_hWnd);
    EXPECT_EQ(shell->GetInPlaceSite(), static_cast<IOleInPlaceSite*>(site.Get()));
}

// Messages

TEST_F(CKvPeShell_Logic, HandledMessages_EndAtTheLogic) {
    Activate();
    EXPECT_EQ(Send(25), 7);
    EXPECT_EQ(Send(WM_MOUSEMOVE), 7);
    EXPECT_EQ(Send(WM_MOUSELEAVE), 7);
    EXPECT_EQ(Send(WM_APP + 1, 1042), 7);
    EXPECT_EQ(Send(WM_ERASEBKGND), 7);
    EXPECT_EQ(Send(WM_LBUTTONDOWN), 7);
    EXPECT_EQ(Send(WM_LBUTTONDBLCLK), 7);
    EXPECT_EQ(Send(WM_RBUTTONDOWN), 7);
    EXPECT_EQ(Send(WM_MBUTTONDOWN), 7);
    EXPECT_EQ(Send(WM_KEYDOWN), 0) << "the key's result is dropped";
    EXPECT_CALLS(LogicCalls(), "CtlColor 1", "MouseMove 1", "MouseLeave 1", "DrawTip 1042", "Erase 1",
                 "LButtonDown 1", "LButtonDblClk 1", "RButtonDown 1", "MButtonDown 1", "KeyDown 1");
}

TEST_F(CKvPeShell_Logic, UnhandledMouseMessages_BecomeEvents) {
    Activate();
    shell->Rows().leavesHandled = FALSE;
    const LPARAM point = MAKELPARAM(3, 4);
    Send(WM_LBUTTONDOWN, 1, point);
    Send(WM_LBUTTONDBLCLK, 1, point);
    Send(WM_RBUTTONDOWN, 2, point);
    Send(WM_MBUTTONDOWN, 16, point);
    const std::string inParent = std::to_string(MAKELPARAM(13, 24));
    EXPECT_CALLS(LogicCalls(), "LButtonDown 1", "OnClick", "LButtonDblClk 1", "OnDblClick", "RButtonDown 1",
                 "OnRButtonDown 2 " + inParent, "MButtonDown 1", "OnMButtonDown 16 " + inParent);
}

TEST_F(CKvPeShell_Logic, LogicThrowsInAMessage_MessageEndsWithZero) {
    Activate();
    shell->Rows().onMessage = [] { throw std::runtime_error("broken"); };
    EXPECT_EQ(Send(WM_MOUSEMOVE), 0);
    shell->Rows().onMessage = nullptr;
    EXPECT_EQ(Send(WM_MOUSEMOVE), 7);
}

TEST_F(CKvPeShell_Logic, ListHover_LogicWithoutPreview_Fails) {
    Activate();
    EXPECT_EQ(static_cast<HRESULT>(Send(1824, 1002, 3)), E_FAIL);
}

TEST_F(CKvPeShell_Preview, ListHover_ReachesTheLogic) {
    Activate();
    EXPECT_EQ(Send(1824, 1002, 3), 5);
    EXPECT_CALLS(LogicCalls(), "ListHover 1824 1002 3");
}

// Events

TEST_F(CKvPeShell_Logic, Events_ReachTheSinkWithTheirArguments) {
    CIPropEditUIEvents& events = *shell;
    EXPECT_EQ(events.FireKeyDownEvent(9, 1), S_OK);
    EXPECT_EQ(events.FireKeyUpEvent(9, 2), S_OK);
    EXPECT_EQ(events.FireRButtonDownEvent(2, 3), S_OK);
    EXPECT_EQ(events.FireMButtonDownEvent(16, 4), S_OK);
    EXPECT_EQ(events.FireBeginPropertyUpdateEvent(), S_OK);
    EXPECT_EQ(events.FireEndPropertyUpdateEvent(), S_OK);
    EXPECT_EQ(events.FireClickEvent(), S_OK);
    EXPECT_EQ(events.FireBeginModalEvent(8), S_OK);
    EXPECT_EQ(events.FireEndModalEvent(8), S_OK);
    // Deliberate: a key-up comes as a key-down.
    EXPECT_CALLS(journal, "OnKeyDown 9 1", "OnKeyDown 9 2", "OnRButtonDown 2 3", "OnMButtonDown 16 4",
                 "OnBeginPropertyUpdate", "OnEndPropertyUpdate", "OnClick", "OnBeginModal 8", "OnEndModal 8");
}

TEST_F(CKvPeShell_Logic, Events_SeveralSinks_LastResultCounts) {
    const auto second = kvtest::RecordingSink::Make(L"second");
    fw::ComPtr<IConnectionPoint> point;
    ASSERT_EQ(shell->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2), point.Put()), S_OK);
    DWORD secondCookie = 0;
    ASSERT_EQ(point->Advise(second.Get(), &secondCookie), S_OK);
    sink->onEvent = [](const std::wstring&) { return E_FAIL; };
    second->onEvent = [](const std::wstring&) { return S_FALSE; };
    CIPropEditUIEvents& events = *shell;
    EXPECT_EQ(events.FireClickEvent(), S_FALSE);
    second->answersSecondInterface = false;
    EXPECT_EQ(events.FireClickEvent(), E_FAIL) << "a sink that is left out has no result";
    EXPECT_CALLS(journal, "OnClick", "second.OnClick", "OnClick");
    ASSERT_EQ(point->Unadvise(secondCookie), S_OK);
}

TEST_F(CKvPeShell_Preview, Updates_HandledByThePreview_StayFromThePalette) {
    CIPropEditUIEvents& events = *shell;
    EXPECT_EQ(events.FireBeginPropertyUpdateEvent(), S_FALSE);
    EXPECT_EQ(events.FireEndPropertyUpdateEvent(), S_FALSE);
    EXPECT_CALLS(journal, "BeginPreview", "EndPreview");
}

TEST_F(CKvPeShell_Preview, Updates_LeftByThePreview_ReachThePalette) {
    shell->Rows().handlesUpdates = 0;
    CIPropEditUIEvents& events = *shell;
    EXPECT_EQ(events.FireBeginPropertyUpdateEvent(), S_OK);
    EXPECT_EQ(events.FireEndPropertyUpdateEvent(), S_OK);
    EXPECT_CALLS(journal, "BeginPreview", "OnBeginPropertyUpdate", "EndPreview", "OnEndPropertyUpdate");
}

TEST_F(CKvPeShell_Button, LaunchDialog_BothFlags_PressesTheFirstButton) {
    const fw::Bstr text(L"row");
    EXPECT_EQ(shell->LaunchDialog(text.Get(), 24), S_FALSE);
    EXPECT_EQ(shell->LaunchDialog(text.Get(), 8), S_OK);
    EXPECT_EQ(shell->LaunchDialog(text.Get(), 16), E_UNEXPECTED);
    EXPECT_CALLS(LogicCalls(), "CustomButton 0", "LaunchDialog row");
}

TEST_F(CKvPeShell_Logic, AmbientSystemColourAsAnUnsignedNumber_IsTaken) {
    fw::Variant given;
    VARIANT* const raw = given.Put();
    raw->vt = VT_UI4;
    raw->ulVal = 0x8000000F;
    site->ambients[DISPID_AMBIENT_BACKCOLOR] = given;
    site->ambients[DISPID_AMBIENT_FORECOLOR] = given;
    site->ambients[-2000] = given;
    site->ambients[-2001] = given;
    Activate();
    OLE_COLOR color = 0;
    EXPECT_EQ(shell->get_BackColor(&color), S_OK);
    EXPECT_EQ(color, 0x8000000FU);
    EXPECT_EQ(shell->get_ForeColor(&color), S_OK);
    EXPECT_EQ(color, 0x8000000FU);
    EXPECT_EQ(shell->get_ReadOnlyBackColor(&color), S_OK);
    EXPECT_EQ(color, 0x8000000FU);
    EXPECT_EQ(shell->get_ReadOnlyForeColor(&color), S_OK);
    EXPECT_EQ(color, 0x8000000FU);
}

}  // namespace
