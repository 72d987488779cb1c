#pragma once

#include "host_sdk/ErrorStatus.h"
#include "host_sdk/Export.h"

class KvApDocument;
class KvRxObject;

// Live preview: the drawing shows what a change would do, and the host takes it back byte for byte. A preview
// is started (kvedIsLivePreviewStarted) from the first queued action to endPreview, and records
// (kvedIsLivePreviewRecording) only while the host runs an action.

/// A change to be shown. The host owns it once it is queued, and deletes it when it has run or is dropped.
/// The order of the operations is fixed.
class KVHOST_API KvEdLivePreviewAction {
public:
    KvEdLivePreviewAction();
    KvEdLivePreviewAction(const KvEdLivePreviewAction&) = delete;
    KvEdLivePreviewAction& operator=(const KvEdLivePreviewAction&) = delete;
    virtual ~KvEdLivePreviewAction();

    /// Makes the change. What a status other than eOk leaves behind is taken back at once.
    virtual Tolm::ErrorStatus Execute() = 0;
    /// Further data of the action for the host; 0 for none.
    virtual int Reserved() = 0;
};

/// Scope of calls on the preview of one document. Calls on a null document do nothing.
class KVHOST_API KvEdLivePreview {
public:
    /// `stops` tells that the calls end a preview; without it a new action follows.
    KvEdLivePreview(KvApDocument* document, bool stops);
    KvEdLivePreview(const KvEdLivePreview&) = delete;
    KvEdLivePreview& operator=(const KvEdLivePreview&) = delete;
    ~KvEdLivePreview();  // NOLINT(performance-trivially-destructible)

    /// Drops the queued actions and takes back what is shown. A preview that is started stays so.
    void abortAll();
    /// Takes the action over and starts the preview. It runs later, from the message loop, if the document is
    /// still current and allows a preview then.
    void queueAction(KvEdLivePreviewAction* action);
    /// As abortAll, and the preview is no longer started.
    void endPreview();
    /// The same; `cancelled` tells that the user has chosen nothing. `flags` is 0.
    void endPreview(unsigned long flags, bool cancelled);
    /// Actions queued between these two run together, after the second.
    void startRecording();
    void endRecording();

private:
    KvApDocument* m_document;  // the host's
    bool m_stops;
};

/// What the user does in a context that previews, as a dialog.
enum class KvEdLivePreviewEvent : int {
    Ended = 0,
    /// The user points at a value.
    Value = 1,
};

/// Hears the events of contexts that it is added to. Not owned by the host: remove it before it dies.
class KVHOST_API KvEdLivePreviewContextReactor {
public:
    /// `value` is an object of the context's class of values, null when the event carries none. It is the
    /// host's.
    virtual void contextEvent(KvEdLivePreviewEvent event, const KvRxObject* value) = 0;

protected:
    KvEdLivePreviewContextReactor() = default;
    ~KvEdLivePreviewContextReactor() = default;
};

/// The contexts that preview, by name. Owned by the host.
class KVHOST_API KvEdLivePreviewContextManager {
public:
    /// False for a reactor that the context has already, or has not.
    virtual bool addReactor(const wchar_t* context, KvEdLivePreviewContextReactor* reactor) = 0;
    virtual bool removeReactor(const wchar_t* context, KvEdLivePreviewContextReactor* reactor) = 0;

protected:
    ~KvEdLivePreviewContextManager() = default;
};

/// Null before the host has started.
[[nodiscard]] KVHOST_API KvEdLivePreviewContextManager* kvedLivePreviewContextManager();
