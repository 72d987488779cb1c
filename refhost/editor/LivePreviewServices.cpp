#include "host_sdk/KvEdLivePreview.h"
#include "refhost/editor/Document.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/Host.h"
#include "refhost/editor/LivePreview.h"
#include "refhost/editor/LivePreviewContexts.h"
#include "refhost/testing/ServiceCall.h"

using kvhost::Document;
using kvhost::Host;
using kvhost::ServiceCall;

namespace {

/// Calls with the preview of the running host and the document, when both are there.
template <class Work>
void OnPreview(KvApDocument* document, const Work& work) {
    Host* const host = Host::Current();
    if (host != nullptr && document != nullptr) {
        work(host->Preview(), static_cast<Document&>(*document));
    }
}

}  // namespace

KvEdLivePreviewAction::KvEdLivePreviewAction() = default;
KvEdLivePreviewAction::~KvEdLivePreviewAction() = default;

KvEdLivePreview::KvEdLivePreview(KvApDocument* document, bool stops) : m_document(document), m_stops(stops) {
    const ServiceCall call(L"KvEdLivePreview", m_stops);
}

KvEdLivePreview::~KvEdLivePreview() = default;

// These have no way to tell a failure. What ends a preview is done even when it is told to fail: actions hold
// controls that are about to go.

void KvEdLivePreview::abortAll() {
    const ServiceCall call(L"abortAll");
    OnPreview(m_document, [](auto& preview, Document& document) { preview.Abort(document); });
}

void KvEdLivePreview::queueAction(KvEdLivePreviewAction* action) {
    std::unique_ptr<KvEdLivePreviewAction> owned(action);
    ServiceCall call(L"queueAction");
    if (call.Fails() || !owned) {
        return;
    }
    OnPreview(m_document,
              [&](auto& preview, Document& document) { preview.Queue(document, std::move(owned)); });
}

void KvEdLivePreview::endPreview() {
    const ServiceCall call(L"endPreview");
    OnPreview(m_document, [](auto& preview, Document& document) { preview.End(document); });
}

void KvEdLivePreview::endPreview(unsigned long flags, bool cancelled) {
    const ServiceCall call(L"endPreview", flags, cancelled);
    OnPreview(m_document, [](auto& preview, Document& document) { preview.End(document); });
}

void KvEdLivePreview::startRecording() {
    const ServiceCall call(L"startRecording");
    OnPreview(m_document, [](auto& preview, Document&) { preview.HoldQueue(true); });
}

void KvEdLivePreview::endRecording() {
    const ServiceCall call(L"endRecording");
    OnPreview(m_document, [](auto& preview, Document&) { preview.HoldQueue(false); });
}

KvEdLivePreviewContextManager* kvedLivePreviewContextManager() {
    ServiceCall call(L"kvedLivePreviewContextManager");
    Host* const host = call.Fails() ? nullptr : Host::Current();
    call.Returns(host != nullptr);
    return host != nullptr ? &host->PreviewContexts() : nullptr;
}
