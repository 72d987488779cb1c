#include "refhost/editor/LivePreviewContexts.h"

#include <algorithm>

#include "refhost/testing/ServiceCall.h"

namespace kvhost {

LivePreviewContexts::LivePreviewContexts() = default;
LivePreviewContexts::~LivePreviewContexts() = default;

bool LivePreviewContexts::addReactor(const wchar_t* context, KvEdLivePreviewContextReactor* reactor) {
    ServiceCall call(L"addContextReactor", context);
    if (call.Fails() || context == nullptr || reactor == nullptr) {
        return call.Returns(false);
    }
    auto& reactors = m_reactors[context];
    const bool isNew = std::find(reactors.begin(), reactors.end(), reactor) == reactors.end();
    if (isNew) {
        reactors.push_back(reactor);
    }
    return call.Returns(isNew);
}

bool LivePreviewContexts::removeReactor(const wchar_t* context, KvEdLivePreviewContextReactor* reactor) {
    ServiceCall call(L"removeContextReactor", context);
    // A removal is carried out even when it is told to fail: the reactor is about to die.
    const auto found = context != nullptr ? m_reactors.find(context) : m_reactors.end();
    const bool removed = found != m_reactors.end() && std::erase(found->second, reactor) != 0;
    return call.Returns(!call.Fails() && removed);
}

void LivePreviewContexts::Raise(const std::wstring& context, KvEdLivePreviewEvent event,
                                const KvRxObject* value) {
    const auto found = m_reactors.find(context);
    if (found == m_reactors.end()) {
        return;
    }
    const std::vector<KvEdLivePreviewContextReactor*> reactors = found->second;
    for (KvEdLivePreviewContextReactor* const reactor : reactors) {
        const auto& attached = found->second;
        if (std::find(attached.begin(), attached.end(), reactor) != attached.end()) {
            reactor->contextEvent(event, value);
        }
    }
}

}  // namespace kvhost
