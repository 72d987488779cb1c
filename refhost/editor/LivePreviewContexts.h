#pragma once

#include <map>
#include <string>
#include <vector>

#include "host_sdk/KvEdLivePreview.h"

namespace kvhost {

/// The reactors of contexts that preview.
class KVHOST_API LivePreviewContexts final : public KvEdLivePreviewContextManager {
public:
    LivePreviewContexts();
    LivePreviewContexts(const LivePreviewContexts&) = delete;
    LivePreviewContexts& operator=(const LivePreviewContexts&) = delete;
    ~LivePreviewContexts();

    // KvEdLivePreviewContextManager, with journal and faults.
    bool addReactor(const wchar_t* context, KvEdLivePreviewContextReactor* reactor) override;
    bool removeReactor(const wchar_t* context, KvEdLivePreviewContextReactor* reactor) override;

    /// Tells the reactors of the context; one may remove itself or others meanwhile.
    void Raise(const std::wstring& context, KvEdLivePreviewEvent event, const KvRxObject* value);

private:
    std::map<std::wstring, std::vector<KvEdLivePreviewContextReactor*>> m_reactors;  // not owned
};

}  // namespace kvhost
