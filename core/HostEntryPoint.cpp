#include "core/HostEntryPoint.h"

#include "host_sdk/KvRxDictionary.h"
#include "host_sdk/KvRxDynamicLinker.h"

namespace {

KvRxDynamicLinker* FindDynamicLinker() {
    return kvrxCast<KvRxDynamicLinker>(kvrxSysRegistry()->at(L"DynamicLinker"));
}

}  // namespace

unsigned AnswerHostMessage(unsigned message, void* packet) {
    if (message != KVRX_MSG_INIT) {
        return 0;
    }
    if (KvRxDynamicLinker* const linker = FindDynamicLinker()) {
        linker->unlockApplication(packet);
    }
    // The host may have replaced its linker while it unlocked us.
    if (KvRxDynamicLinker* const linker = FindDynamicLinker()) {
        linker->registerAppMDIAware(packet);
    }
    return 0;
}
