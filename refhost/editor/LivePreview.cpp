#include "refhost/editor/LivePreview.h"

#include "framework/window/CWnd.h"
#include "refhost/editor/Document.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/Host.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

constexpr fw::WindowClass c_wakeupClass{L"KvHostLivePreview", 0, fw::NoCursor};
constexpr UINT c_runQueue = WM_USER;

}  // namespace

/// Gets the message that was posted for the queue, under whatever loop runs.
class LivePreview::Wakeup final : public CWnd {
public:
    explicit Wakeup(LivePreview& preview) : m_preview(preview) {
        CreateEx(0, c_wakeupClass, L"", 0, {}, HWND_MESSAGE);
    }
    ~Wakeup() override { DestroyWindow(); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == c_runQueue) {
            m_preview.RunQueue();
            return 0;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    LivePreview& m_preview;
};

LivePreview::LivePreview(EditorState& state) : m_state(state) {
}

LivePreview::~LivePreview() = default;

void LivePreview::Queue(Document& document, std::unique_ptr<KvEdLivePreviewAction> action) {
    if (m_document != nullptr && m_document != &document) {
        End(*m_document);
    }
    m_document = &document;
    m_endWhenDone = false;
    m_state.SetPreviewStarted(true);
    m_queue.push_back(std::move(action));
    if (!m_held) {
        WakeUp();
    }
}

void LivePreview::HoldQueue(bool hold) {
    m_held = hold;
    if (!m_held && !m_queue.empty()) {
        WakeUp();
    }
}

void LivePreview::WakeUp() {
    if (!m_wakeup) {
        m_wakeup = std::make_unique<Wakeup>(*this);
    }
    m_wakeup->PostMessage(c_runQueue);
}

void LivePreview::Abort(const Document& document) {
    if (m_document != &document) {
        return;
    }
    m_queue.clear();
    TakeBack();
}

void LivePreview::End(const Document& document) {
    if (m_document != &document) {
        return;
    }
    Abort(document);
    if (m_state.IsPreviewRecording()) {
        m_endWhenDone = true;
        return;
    }
    m_document = nullptr;
    m_state.SetPreviewStarted(false);
}

void LivePreview::TakeBack() {
    // Amid an action its changes are still being made.
    if (m_state.IsPreviewRecording()) {
        m_takeBackWhenDone = true;
    } else {
        m_document->GetDatabase().Undo().Preview().TakeBack();
    }
}

bool LivePreview::MayRun() const {
    const Host* const host = Host::Current();
    return host != nullptr && m_document != nullptr && m_document->AllowsLivePreview() &&
           const_cast<Host*>(host)->Documents().Current() == m_document;
}

void LivePreview::RunQueue() {
    if (m_held || m_state.IsPreviewRecording()) {
        return;
    }
    while (!m_queue.empty()) {
        std::unique_ptr<KvEdLivePreviewAction> action = std::move(m_queue.front());
        m_queue.erase(m_queue.begin());
        if (MayRun()) {
            Run(std::move(action));
        }
    }
}

void LivePreview::Run(std::unique_ptr<KvEdLivePreviewAction> action) {
    ServiceCall call(L"runPreviewAction");
    if (call.Fails()) {
        call.Returns(Tolm::eNotAllowed);
        return;
    }
    Document& document = *m_document;
    PreviewRecord& record = document.GetDatabase().Undo().Preview();
    m_takeBackWhenDone = false;
    ++m_runActions;
    m_state.SetPreviewRecording(true);
    record.BeginRecording();
    const Tolm::ErrorStatus status = action->Execute();
    record.EndRecording();
    m_state.SetPreviewRecording(false);
    if (status != Tolm::eOk || m_takeBackWhenDone) {
        record.TakeBack();
    }
    call.Returns(status);
    if (m_endWhenDone) {
        m_endWhenDone = false;
        End(document);
    }
}

}  // namespace kvhost
