#include "tests/control/support/RowContainer.h"

#include "framework/com/SafeArray.h"
#include "framework/window/MainWindow.h"
#include "refhost/automation/LiveObject.h"
#include "tests/control/support/ModuleLock.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/PairedCalls.h"
#include "tests/support/RowFont.h"
#include "tests/support/RowWarmUp.h"
#include "tests/support/WarmUp.h"

namespace kvtest {
namespace {

const LeakCounter s_objects("scripted objects", kvhost::ScriptedObject::LiveCount);
const LeakCounter s_sites("sites", FakeSite::LiveCount);
const LeakCounter s_frames("frames", FakeFrame::LiveCount);
const LeakCounter s_sinks("sinks", RecordingSink::LiveCount);
const LeakCounter s_dynamicProperties("scripted dynamic properties",
                                      kvhost::ScriptedDynamicProperty::LiveCount);
const LeakCounter s_hostObjects("automation objects", kvhost::LiveObject::Count);
const LeakCounter s_module("owners in the module", [] { return AskModuleCanUnload() == S_FALSE ? 1L : 0L; });
const WarmUpStep s_rows(&WarmUpRows);

const fw::WindowClass s_windowClass{.name = L"KvTestContainer"};

}  // namespace

RowContainer::RowContainer() {
    document = &host->Documents().New();
    frame.Create(s_windowClass, L"container", WS_POPUP | WS_VISIBLE, {100, 100, 500, 400}, nullptr);
    elsewhere.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, {200, 200, 220, 220}, frame);
    fw::SetMainWindow(frame);
    ::SetForegroundWindow(frame);
    elsewhere.SetFocus();
    Clear();
}

RowContainer::~RowContainer() {
    Discard();
    fw::SetMainWindow(nullptr);
    frame.DestroyWindow();
    PumpWaiting();
}

void RowContainer::Create(const CLSID& classId) {
    ASSERT_EQ(::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IKvPiPropertyEditControl2),
                                 control.PutVoid()),
              S_OK);
    site = FakeSite::Make(frame, c_place);
    ASSERT_EQ(As<IOleObject>()->SetClientSite(site.Get()), S_OK);
    sink = RecordingSink::Make();
    fw::ComPtr<IConnectionPoint> point;
    ASSERT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(IKvPiPropertyEditEventsSink2),
                                                                   point.Put()),
              S_OK);
    ASSERT_EQ(point->Advise(sink.Get(), &sinkCookie), S_OK);
    Clear();
}

void RowContainer::CreateTextRow(const std::vector<const wchar_t*>& texts, bool readOnly) {
    Create(CLSID_KvPePropertyEditorText);
    std::vector<IDispatch*> selection;
    for (const wchar_t* text : texts) {
        const wchar_t name[] = {static_cast<wchar_t>(L'A' + selection.size()), 0};
        selection.push_back(&MakeObject(name, text));
    }
    ASSERT_EQ(InitEdit(selection, readOnly), S_OK);
    ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
    PumpWaiting();
    Clear();
}

HRESULT RowContainer::InitEdit(const std::vector<IDispatch*>& selection, bool readOnly) {
    return SelectionArrays(selection, dispid).Init(*control.Get(), readOnly ? VARIANT_TRUE : VARIANT_FALSE);
}

HRESULT RowContainer::DoVerb(LONG verb) {
    return As<IOleObject>()->DoVerb(verb, nullptr, site.Get(), 0, frame, &c_place);
}

void RowContainer::GiveFont() {
    const fw::ComPtr<IFont> font = MakeRowFont();
    ASSERT_TRUE(font);
    ASSERT_EQ(control->put_Font(font.Get()), S_OK);
}

void RowContainer::UIActivate() {
    ASSERT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
    PumpWaiting();
    Clear();
}

void RowContainer::Discard() {
    if (control) {
        EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(As<IOleObject>()->SetClientSite(nullptr), S_OK);
    }
    control.Reset();
    if (sink) {
        sink->onEvent = nullptr;
    }
    sink.Reset();
    site.Reset();
    objects.clear();
}

kvhost::ScriptedObject& RowContainer::MakeObject(const wchar_t* name, const wchar_t* text,
                                                 unsigned interfaces) {
    objects.push_back(kvhost::ScriptedObject::Make(name, interfaces));
    objects.back()->At(c_property).Set(text);
    return *objects.back();
}

HWND RowContainer::Row() const {
    HWND window = nullptr;
    const auto active = As<IOleInPlaceObject>();
    return active && SUCCEEDED(active->GetWindow(&window)) ? window : nullptr;
}

std::wstring RowContainer::BoxText() const {
    wchar_t text[200]{};
    ::GetWindowTextW(Box(), text, 200);
    return text;
}

CallLines RowContainer::Events() const {
    return CallsOnly(journal, {"On"});
}

std::string RowContainer::Unpaired() const {
    return DescribeUnpaired(CallsOf(journal));
}

void RowContainer::Clear() {
    journal.Clear();
}

}  // namespace kvtest
