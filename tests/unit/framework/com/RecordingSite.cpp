#include "tests/unit/framework/com/RecordingSite.h"

#include "tests/support/LeakCheck.h"
#include "tests/unit/framework/com/CallLog.h"

namespace kvtest {

namespace {

long s_liveSites = 0;
const LeakCounter s_sites("container sites", [] { return s_liveSites; });

}  // namespace

HRESULT Reactions::Answer(const std::string& call, const std::string& arguments) {
    Note(arguments.empty() ? call : call + " " + arguments);
    if (const auto found = actions.find(call); found != actions.end()) {
        // A copy: what runs may take itself out.
        const auto action = found->second;
        action();
    }
    const auto result = results.find(call);
    return result == results.end() ? S_OK : result->second;
}

// RecordingFrame

std::span<const fw::InterfaceEntry> RecordingFrame::Interfaces() {
    static constexpr std::array s_interfaces{
        fw::Implements<RecordingFrame, IOleInPlaceFrame>(),
        fw::Implements<RecordingFrame, IOleInPlaceUIWindow, IOleInPlaceFrame>(),
        fw::Implements<RecordingFrame, IOleWindow, IOleInPlaceFrame>()};
    return s_interfaces;
}

STDMETHODIMP RecordingFrame::GetWindow(HWND*) {
    return reactions->Answer(name + ".GetWindow");
}
STDMETHODIMP RecordingFrame::ContextSensitiveHelp(BOOL) {
    return reactions->Answer(name + ".ContextSensitiveHelp");
}
STDMETHODIMP RecordingFrame::GetBorder(LPRECT) {
    return reactions->Answer(name + ".GetBorder");
}
STDMETHODIMP RecordingFrame::RequestBorderSpace(LPCBORDERWIDTHS) {
    return reactions->Answer(name + ".RequestBorderSpace");
}
STDMETHODIMP RecordingFrame::SetBorderSpace(LPCBORDERWIDTHS widths) {
    return reactions->Answer(name + ".SetBorderSpace", widths ? "widths" : "null");
}
STDMETHODIMP RecordingFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR objectName) {
    activeObject = object;
    return reactions->Answer(name + ".SetActiveObject", object ? ToUtf8(objectName) : "null");
}
STDMETHODIMP RecordingFrame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) {
    return reactions->Answer(name + ".InsertMenus");
}
STDMETHODIMP RecordingFrame::SetMenu(HMENU, HOLEMENU, HWND) {
    return reactions->Answer(name + ".SetMenu");
}
STDMETHODIMP RecordingFrame::RemoveMenus(HMENU) {
    return reactions->Answer(name + ".RemoveMenus");
}
STDMETHODIMP RecordingFrame::SetStatusText(LPCOLESTR) {
    return reactions->Answer(name + ".SetStatusText");
}
STDMETHODIMP RecordingFrame::EnableModeless(BOOL) {
    return reactions->Answer(name + ".EnableModeless");
}
STDMETHODIMP RecordingFrame::TranslateAccelerator(LPMSG, WORD) {
    return reactions->Answer(name + ".TranslateAccelerator");
}

// RecordingSite

RecordingSite::RecordingSite() {
    ++s_liveSites;
}

RecordingSite::~RecordingSite() {
    --s_liveSites;
}

std::span<const fw::InterfaceEntry> RecordingSite::Interfaces() {
    static constexpr std::array s_interfaces{
        fw::Implements<RecordingSite, IOleClientSite>(), fw::Implements<RecordingSite, IOleInPlaceSite>(),
        fw::Implements<RecordingSite, IOleWindow, IOleInPlaceSite>(),
        fw::Implements<RecordingSite, IOleControlSite>(), fw::Implements<RecordingSite, IDispatch>()};
    return s_interfaces;
}

STDMETHODIMP RecordingSite::SaveObject() {
    return reactions.Answer("site.SaveObject");
}
STDMETHODIMP RecordingSite::GetMoniker(DWORD, DWORD, IMoniker**) {
    return reactions.Answer("site.GetMoniker");
}
STDMETHODIMP RecordingSite::GetContainer(IOleContainer** result) {
    *result = nullptr;
    fw::Ignore(reactions.Answer("site.GetContainer"));
    return E_NOINTERFACE;
}
STDMETHODIMP RecordingSite::ShowObject() {
    return reactions.Answer("site.ShowObject");
}
STDMETHODIMP RecordingSite::OnShowWindow(BOOL) {
    return reactions.Answer("site.OnShowWindow");
}
STDMETHODIMP RecordingSite::RequestNewObjectLayout() {
    return reactions.Answer("site.RequestNewObjectLayout");
}

STDMETHODIMP RecordingSite::GetWindow(HWND* result) {
    *result = parent;
    return reactions.Answer("site.GetWindow");
}
STDMETHODIMP RecordingSite::ContextSensitiveHelp(BOOL) {
    return reactions.Answer("site.ContextSensitiveHelp");
}
STDMETHODIMP RecordingSite::CanInPlaceActivate() {
    return reactions.Answer("site.CanInPlaceActivate");
}
STDMETHODIMP RecordingSite::OnInPlaceActivate() {
    return reactions.Answer("site.OnInPlaceActivate");
}
STDMETHODIMP RecordingSite::OnUIActivate() {
    return reactions.Answer("site.OnUIActivate");
}
STDMETHODIMP RecordingSite::GetWindowContext(IOleInPlaceFrame** frameResult,
                                             IOleInPlaceUIWindow** documentResult, LPRECT position,
                                             LPRECT clipping, LPOLEINPLACEFRAMEINFO info) {
    EXPECT_EQ(info->cb, sizeof(OLEINPLACEFRAMEINFO));
    *frameResult = nullptr;
    *documentResult = nullptr;
    const HRESULT result = reactions.Answer("site.GetWindowContext");
    if (SUCCEEDED(result)) {
        fw::Ignore(frame.CopyTo(frameResult));
        fw::Ignore(document.CopyTo(documentResult));
        *position = place;
        *clipping = clip;
    }
    return result;
}
STDMETHODIMP RecordingSite::Scroll(SIZE) {
    return reactions.Answer("site.Scroll");
}
STDMETHODIMP RecordingSite::OnUIDeactivate(BOOL undoable) {
    return reactions.Answer("site.OnUIDeactivate", undoable ? "undoable" : "");
}
STDMETHODIMP RecordingSite::OnInPlaceDeactivate() {
    return reactions.Answer("site.OnInPlaceDeactivate");
}
STDMETHODIMP RecordingSite::DiscardUndoState() {
    return reactions.Answer("site.DiscardUndoState");
}
STDMETHODIMP RecordingSite::DeactivateAndUndo() {
    return reactions.Answer("site.DeactivateAndUndo");
}
STDMETHODIMP RecordingSite::OnPosRectChange(LPCRECT) {
    return reactions.Answer("site.OnPosRectChange");
}

STDMETHODIMP RecordingSite::OnControlInfoChanged() {
    return reactions.Answer("site.OnControlInfoChanged");
}
STDMETHODIMP RecordingSite::LockInPlaceActive(BOOL) {
    return reactions.Answer("site.LockInPlaceActive");
}
STDMETHODIMP RecordingSite::GetExtendedControl(IDispatch** result) {
    *result = nullptr;
    fw::Ignore(reactions.Answer("site.GetExtendedControl"));
    return E_NOTIMPL;
}
STDMETHODIMP RecordingSite::TransformCoords(POINTL*, POINTF*, DWORD) {
    return reactions.Answer("site.TransformCoords");
}
STDMETHODIMP RecordingSite::TranslateAccelerator(LPMSG, DWORD modifiers) {
    return reactions.Answer("site.TranslateAccelerator", std::to_string(modifiers));
}
STDMETHODIMP RecordingSite::OnFocus(BOOL got) {
    return reactions.Answer("site.OnFocus", got ? "1" : "0");
}
STDMETHODIMP RecordingSite::ShowPropertyFrame() {
    return reactions.Answer("site.ShowPropertyFrame");
}

STDMETHODIMP RecordingSite::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}
STDMETHODIMP RecordingSite::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return E_NOTIMPL;
}
STDMETHODIMP RecordingSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return E_NOTIMPL;
}
STDMETHODIMP RecordingSite::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO*, UINT*) {
    EXPECT_TRUE(::IsEqualIID(reserved, IID_NULL));
    EXPECT_EQ(flags, DISPATCH_PROPERTYGET);
    EXPECT_EQ(parameters->cArgs, 0u);
    const auto ambient = ambients.find(id);
    return ambient == ambients.end() ? DISP_E_MEMBERNOTFOUND : ambient->second.CopyTo(result);
}

fw::ComPtr<CComObject<RecordingSite>> MakeSite(HWND parent) {
    fw::ComPtr<CComObject<RecordingSite>> site;
    EXPECT_EQ(CComObject<RecordingSite>::CreateInstance(nullptr, site.Put()), S_OK);
    site->parent = parent;
    EXPECT_EQ(CComObject<RecordingFrame>::CreateInstance(nullptr, site->frame.Put()), S_OK);
    EXPECT_EQ(CComObject<RecordingFrame>::CreateInstance(nullptr, site->document.Put()), S_OK);
    site->frame->reactions = &site->reactions;
    site->document->reactions = &site->reactions;
    site->document->name = "document";
    return site;
}

}  // namespace kvtest
