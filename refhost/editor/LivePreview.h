#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "host_sdk/KvEdLivePreview.h"

namespace kvhost {

class Document;
class EditorState;

/// The one preview of the running host: a queue of actions, run from the message loop, and what they show on
/// a document. Its state is told by EditorState.
class KVHOST_API LivePreview {
public:
    explicit LivePreview(EditorState& state);
    LivePreview(const LivePreview&) = delete;
    LivePreview& operator=(const LivePreview&) = delete;
    ~LivePreview();

    /// Starts the preview. With a document other than that of the preview in force, that one ends first.
    void Queue(Document& document, std::unique_ptr<KvEdLivePreviewAction> action);
    /// Drops the queue and takes back what is shown on the document.
    void Abort(const Document& document);
    /// Abort, and the preview is over. Also for a document that is saved, undone or closed.
    void End(const Document& document);
    void HoldQueue(bool hold);

    [[nodiscard]] std::size_t QueuedActions() const { return m_queue.size(); }
    /// Actions that were run since the host's start.
    [[nodiscard]] int RunActions() const { return m_runActions; }
    /// Runs what is queued now; the message loop does so when it is idle enough to get there.
    void RunQueue();

private:
    class Wakeup;

    void WakeUp();
    void Run(std::unique_ptr<KvEdLivePreviewAction> action);
    [[nodiscard]] bool MayRun() const;
    void TakeBack();

    EditorState& m_state;
    Document* m_document = nullptr;  // of the preview in force
    std::vector<std::unique_ptr<KvEdLivePreviewAction>> m_queue;
    std::unique_ptr<Wakeup> m_wakeup;
    bool m_held = false;
    bool m_takeBackWhenDone = false;
    bool m_endWhenDone = false;
    int m_runActions = 0;
};

}  // namespace kvhost
