// A plug-in module for the linker's tests; compiled a second time with another version.
#include "framework/base/WindowsApi.h"
#include "host_sdk/KvRxClass.h"
#include "host_sdk/KvRxDictionary.h"
#include "host_sdk/KvRxDynamicLinker.h"

#ifndef TEST_PLUGIN_VERSION
#define TEST_PLUGIN_VERSION KVRX_API_VERSION
#endif

namespace {

// Messages since the library was loaded, newest in the lowest digit.
unsigned g_messages = 0;
bool g_unlocked = false;
bool g_mdiAware = false;

}  // namespace

extern "C" __declspec(dllexport) unsigned kvrxGetApiVersion(unsigned) {
    return TEST_PLUGIN_VERSION;
}

extern "C" __declspec(dllexport) unsigned kvrxEntryPoint(unsigned message, void* packet) {
    g_messages = g_messages * 10 + message;
    if (message == KVRX_MSG_INIT) {
        auto* const linker = kvrxCast<KvRxDynamicLinker>(kvrxSysRegistry()->at(L"DynamicLinker"));
        g_unlocked = linker->unlockApplication(packet);
        g_mdiAware = linker->registerAppMDIAware(packet);
    }
    return 0;
}

extern "C" __declspec(dllexport) unsigned TestPluginMessages() {
    return g_messages;
}

extern "C" __declspec(dllexport) bool TestPluginWasAccepted() {
    return g_unlocked && g_mdiAware;
}
