#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/KvRxObject.h"

/// Loads and keeps the host's plug-in modules. Found in the system registry under "DynamicLinker".
class KVHOST_API KvRxDynamicLinker : public KvRxObject {
public:
    [[nodiscard]] static KvRxClass* desc();

    // Slot 0 is isA.
    virtual void ReservedSlot1() {}
    virtual void ReservedSlot2() {}
    virtual void ReservedSlot3() {}
    virtual void ReservedSlot4() {}
    virtual void ReservedSlot5() {}
    virtual void ReservedSlot6() {}
    virtual void ReservedSlot7() {}
    virtual void ReservedSlot8() {}
    virtual void ReservedSlot9() {}
    virtual void ReservedSlot10() {}
    virtual void ReservedSlot11() {}
    virtual void ReservedSlot12() {}
    virtual void ReservedSlot13() {}
    virtual void ReservedSlot14() {}
    virtual void ReservedSlot15() {}
    virtual void ReservedSlot16() {}
    virtual void ReservedSlot17() {}
    virtual void ReservedSlot18() {}
    /// Slot 19. The module that is being initialised with `packet` may be unloaded when no longer needed.
    virtual bool unlockApplication(void* packet) = 0;
    virtual void ReservedSlot20() {}
    /// Slot 21. The module that is being initialised with `packet` may be used with any open document.
    virtual bool registerAppMDIAware(void* packet) = 0;

protected:
    ~KvRxDynamicLinker() = default;
};

/// Messages that the linker sends to a module's kvrxEntryPoint.
enum KvRxAppMessage : unsigned {
    KVRX_MSG_INIT = 1,
    KVRX_MSG_UNLOAD = 2,
};

/// Loads the plug-in module at `path`, unless it is loaded, and sends it the init message. `printErrors` lets
/// the host report a failure to the user; `asCommand` tells that no command of the user asked for it. False
/// on failure.
KVHOST_API bool kvrxLoadModule(const wchar_t* path, bool printErrors, bool asCommand);

/// Version of the host's interface that a module answers from kvrxGetApiVersion: major version in the upper
/// half.
inline constexpr unsigned KVRX_API_VERSION = 0x130000;
