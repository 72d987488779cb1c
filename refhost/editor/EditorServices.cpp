#include "framework/base/WindowsApi.h"
#include "host_sdk/KvEdServices.h"
#include "refhost/db/Database.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/Host.h"
#include "refhost/testing/ServiceCall.h"

using kvhost::EditorState;
using kvhost::Host;
using kvhost::ServiceCall;

namespace {

/// Null while no host runs.
EditorState* Editor() {
    Host* const host = Host::Current();
    return host != nullptr ? &host->Editor() : nullptr;
}

/// A question about the editor's state that is answered with no when it fails or nobody is there to ask.
template <class Question>
bool Answer(ServiceCall& call, const Question& question) {
    const EditorState* const editor = call.Fails() ? nullptr : Editor();
    return call.Returns(editor != nullptr && question(*editor));
}

}  // namespace

bool kvedIsDragging() {
    ServiceCall call(L"kvedIsDragging");
    return Answer(call, [](const EditorState& editor) { return editor.IsDragging(); });
}

bool kvedIsInCommandStack(unsigned mask) {
    ServiceCall call(L"kvedIsInCommandStack", mask);
    return Answer(call, [&](const EditorState& editor) { return editor.IsInCommand(mask); });
}

bool kvedIsLivePreviewStarted() {
    ServiceCall call(L"kvedIsLivePreviewStarted");
    return Answer(call, [](const EditorState& editor) { return editor.IsPreviewStarted(); });
}

bool kvedIsLivePreviewRecording() {
    ServiceCall call(L"kvedIsLivePreviewRecording");
    return Answer(call, [](const EditorState& editor) { return editor.IsPreviewRecording(); });
}

HWND kvedGetPaletteWnd(int palette) {
    ServiceCall call(L"kvedGetPaletteWnd", palette);
    const EditorState* const editor = call.Fails() ? nullptr : Editor();
    HWND const window = editor != nullptr ? editor->PaletteWindow(palette) : nullptr;
    call.Returns(window != nullptr);
    return window;
}

KvDbObjectId kvedGetCurViewportObjectId() {
    ServiceCall call(L"kvedGetCurViewportObjectId");
    Host* const host = call.Fails() ? nullptr : Host::Current();
    const kvhost::Document* const document = host != nullptr ? host->Documents().Current() : nullptr;
    return call.Returns(document != nullptr ? document->GetDatabase().CurrentViewport() : KvDbObjectId());
}

COLORREF kvedGetVpOvrBackgColorValue() {
    ServiceCall call(L"kvedGetVpOvrBackgColorValue");
    const EditorState* const editor = call.Fails() ? nullptr : Editor();
    return call.Returns(editor != nullptr ? editor->ViewportOverrideColor() : ::GetSysColor(COLOR_WINDOW));
}

// The services without result do their work even when they are told to fail: they have no way to say so.

void kvedSendModelessOperationStart(const wchar_t* mark) {
    const ServiceCall call(L"kvedSendModelessOperationStart", mark);
    if (EditorState* const editor = Editor(); editor != nullptr && mark != nullptr) {
        editor->StartModeless(mark);
    }
}

void kvedSendModelessOperationEnded(const wchar_t* mark) {
    const ServiceCall call(L"kvedSendModelessOperationEnded", mark);
    if (EditorState* const editor = Editor(); editor != nullptr && mark != nullptr) {
        editor->EndModeless(mark);
    }
}

void kvedDisableUsrbrk() {
    const ServiceCall call(L"kvedDisableUsrbrk");
    if (EditorState* const editor = Editor()) {
        editor->DisableUserBreak();
    }
}

void kvedEnableUsrbrk() {
    const ServiceCall call(L"kvedEnableUsrbrk");
    if (EditorState* const editor = Editor()) {
        editor->EnableUserBreak();
    }
}

void kvedPostCommandPrompt() {
    const ServiceCall call(L"kvedPostCommandPrompt");
    if (EditorState* const editor = Editor()) {
        editor->PostPrompt();
    }
}

IUnknown* kvedGetApplicationObject() {
    ServiceCall call(L"kvedGetApplicationObject");
    Host* const host = call.Fails() ? nullptr : Host::Current();
    IUnknown* const application = host != nullptr ? host->ApplicationObject() : nullptr;
    if (application != nullptr) {
        application->AddRef();
    }
    call.Returns(application != nullptr);
    return application;
}

const KvDbGlobals* kvdbWorkingGlobals() {
    ServiceCall call(L"kvdbWorkingGlobals");
    Host* const host = call.Fails() ? nullptr : Host::Current();
    kvhost::Database* const database = host != nullptr ? host->WorkingDatabase() : nullptr;
    call.Returns(database != nullptr);
    return database != nullptr ? &database->Globals() : nullptr;
}
